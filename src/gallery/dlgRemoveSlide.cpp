#include "gallery/dlgRemoveSlide.h"

#include <QLabel>
#include <QPushButton>

#include "dialogs/HelpRoutine.h"
#include "dialogs/Twips.h"

namespace cb {
namespace {
constexpr char kQuestion[] = "Are you sure you want to remove this slide?";
constexpr char kHelpPage[] = "help002.htm";
}  // namespace

dlgRemoveSlide::dlgRemoveSlide() {
  setObjectName("dlgRemoveSlide");
  setWindowTitle("Remove Slide");
  Label1 = new QLabel(kQuestion, this);
  Label1->setObjectName("Label1");
  Label1->setGeometry(TwipsRect(240, 240, 4200, 300));
  cmdOK = new QPushButton("OK", this);
  cmdOK->setObjectName("cmdOK");
  cmdOK->setDefault(true);
  cmdCancel = new QPushButton("Cancel", this);
  cmdCancel->setObjectName("cmdCancel");
  cmdHelp = new QPushButton("Help", this);
  cmdHelp->setObjectName("cmdHelp");
  const double lefts[] = {600, 1815, 3030};
  QPushButton* buttons[] = {cmdOK, cmdCancel, cmdHelp};
  for (int i = 0; i < 3; ++i) buttons[i]->setGeometry(TwipsRect(lefts[i], 840, 1140, 390));
  setFixedSize(TwipsToPixelsX(4680), TwipsToPixelsY(1500));
  connect(cmdOK, &QPushButton::clicked, this, [this] {
    Confirmed = true;
    accept();
  });
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(cmdHelp, &QPushButton::clicked, this, [this] { OpenHelp(kHelpPage); });
  InstallF1(*this, kHelpPage);
  CentreOnScreen(*this);
}

}  // namespace cb
