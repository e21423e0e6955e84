#include "dialogs/DialogButtons.h"

#include <QPushButton>

#include "qt/Twips.h"

namespace cb {
namespace {

struct ButtonSpec {
  const char* name;
  const char* caption;
  double left;  // twips
};

constexpr ButtonSpec kButtons[] = {{"cmdOK", "OK", 600}, {"cmdCancel", "Cancel", 1815}, {"cmdHelp", "Help", 3030}};
constexpr double kWidth = 1140, kHeight = 390;

}  // namespace

DialogButtons MakeDialogButtons(QWidget* dialog, double top) {
  QPushButton* made[3];
  for (int i = 0; i < 3; ++i) {
    made[i] = new QPushButton(kButtons[i].caption, dialog);
    made[i]->setObjectName(kButtons[i].name);
  }
  made[0]->setDefault(true);
  const DialogButtons buttons{made[0], made[1], made[2]};
  PlaceDialogButtons(buttons, top);
  return buttons;
}

void PlaceDialogButtons(const DialogButtons& b, double top) {
  QPushButton* all[] = {b.ok, b.cancel, b.help};
  for (int i = 0; i < 3; ++i) all[i]->setGeometry(TwipsRect(kButtons[i].left, top, kWidth, kHeight));
}

}  // namespace cb
