// SPDX-License-Identifier: GPL-3.0-or-later
#include "gallery/dlgRemoveSlide.h"

#include <QLabel>
#include <QPushButton>

#include "dialogs/DialogButtons.h"
#include "dialogs/HelpRoutine.h"
#include "qt/Twips.h"

namespace cb {
namespace {
constexpr char kQuestion[] = "Are you sure you want to remove this slide?";
}  // namespace

dlgRemoveSlide::dlgRemoveSlide() {
  setObjectName("dlgRemoveSlide");
  setWindowTitle("Remove Slide");
  Label1 = new QLabel(kQuestion, this);
  Label1->setObjectName("Label1");
  Label1->setGeometry(TwipsRect(240, 240, 4200, 300));
  const DialogButtons buttons = MakeDialogButtons(this, 840);
  cmdOK = buttons.ok;
  cmdCancel = buttons.cancel;
  cmdHelp = buttons.help;
  setFixedSize(TwipsToPixelsX(4680), TwipsToPixelsY(1500));
  connect(cmdOK, &QPushButton::clicked, this, [this] {
    Confirmed = true;
    accept();
  });
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(cmdHelp, &QPushButton::clicked, this, [this] { CloseWithHelp(*this); });
  InstallF1(*this);
  CentreOnScreen(*this);
}

}  // namespace cb
