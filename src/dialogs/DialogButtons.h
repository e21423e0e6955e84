// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The OK, Cancel and Help buttons that the small dialogs share.

class QPushButton;
class QWidget;

namespace cb {

struct DialogButtons {
  QPushButton* ok;
  QPushButton* cancel;
  QPushButton* help;
};

// Makes cmdOK (the default), cmdCancel and cmdHelp in `dialog`, each named by
// its caption, for the dialog's own table to place.
DialogButtons MakeDialogButtons(QWidget* dialog);

// The same, side by side at `top` twips, the first at `left`, each `width` wide.
DialogButtons MakeDialogButtons(QWidget* dialog, double top, double left = 600, double width = 1140);

// Moves the three buttons to `top` twips.
void PlaceDialogButtons(const DialogButtons& buttons, double top, double left = 600, double width = 1140);

}  // namespace cb
