// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogButtons.h"

#include <QPushButton>

#include "qt/Twips.h"

namespace cb {
namespace {

struct ButtonRow {
  const char* name;
  const char* caption;
};

constexpr ButtonRow kButtons[] = {{"cmdOK", "OK"}, {"cmdCancel", "Cancel"}, {"cmdHelp", "Help"}};
constexpr double kGap = 75, kHeight = 390;  // twips

}  // namespace

DialogButtons MakeDialogButtons(QWidget* dialog) {
  QPushButton* made[3];
  for (int i = 0; i < 3; ++i) {
    made[i] = new QPushButton(kButtons[i].caption, dialog);
    made[i]->setObjectName(kButtons[i].name);
    made[i]->setAccessibleName(kButtons[i].caption);
  }
  made[0]->setDefault(true);
  return {made[0], made[1], made[2]};
}

DialogButtons MakeDialogButtons(QWidget* dialog, double top, double left, double width) {
  const DialogButtons buttons = MakeDialogButtons(dialog);
  PlaceDialogButtons(buttons, top, left, width);
  return buttons;
}

void PlaceDialogButtons(const DialogButtons& b, double top, double left, double width) {
  QPushButton* all[] = {b.ok, b.cancel, b.help};
  for (int i = 0; i < 3; ++i) all[i]->setGeometry(TwipsRect(left + i * (width + kGap), top, width, kHeight));
}

}  // namespace cb
