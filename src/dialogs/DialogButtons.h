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

// Makes cmdOK (the default), cmdCancel and cmdHelp in `dialog`, side by side at `top` twips.
DialogButtons MakeDialogButtons(QWidget* dialog, double top);

// Moves the three buttons to `top` twips.
void PlaceDialogButtons(const DialogButtons& buttons, double top);

}  // namespace cb
