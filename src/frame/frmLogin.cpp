// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/frmLogin.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "dialogs/DialogButtons.h"
#include "dialogs/HelpRoutine.h"
#include "qt/MsgBox.h"
#include "qt/Twips.h"
#include "state/modGlobal.h"
#include "state/MDIMainRules.h"

namespace cb {
namespace {

constexpr char kMismatch[] = "The confirmation password is not the same as the password.  Please try again.";

// Design positions in twips.
// The labels are wider than the design's 1380, and the boxes and the window
// grow to match, so that "Confirm Password:" shows whole at today's fonts.
constexpr double kLabelWidth = 1980, kShift = kLabelWidth - 1380;
constexpr ElementRect kPassword{1560 + kShift, 120, 2505, 330};
constexpr ElementRect kPasswordLabel{120, 150, kLabelWidth, 270};
constexpr ElementRect kConfirm{1560 + kShift, 540, 2505, 330};
constexpr ElementRect kConfirmLabel{120, 570, kLabelWidth, 270};
constexpr double kButtonsTop = 1020;
constexpr double kButtonsTopLogin = 496.3;
constexpr double kClientWidth = 4245 + kShift, kClientHeight = 1590;
// The login's outer height of 1815 less a title bar.
constexpr double kClientHeightLogin = 1815 - 420;

}  // namespace

frmLogin::frmLogin(const QString& mode) : Mode(mode) {
  setObjectName("frmLogin");
  lblPassword = new QLabel("&Password:", this);
  lblConfirm = new QLabel("&Confirm Password:", this);
  lblPassword->setObjectName("lblLabels");
  lblConfirm->setObjectName("lblLabels");
  txtPassword = new QLineEdit(this);
  txtPassword->setObjectName("txtPassword");
  txtConfirmPassword = new QLineEdit(this);
  txtConfirmPassword->setObjectName("txtConfirmPassword");
  for (QLineEdit* t : {txtPassword, txtConfirmPassword}) t->setEchoMode(QLineEdit::Password);
  lblPassword->setBuddy(txtPassword);
  lblConfirm->setBuddy(txtConfirmPassword);
  const DialogButtons buttons = MakeDialogButtons(this, kButtonsTop);
  cmdOK = buttons.ok;
  cmdCancel = buttons.cancel;
  cmdHelp = buttons.help;
  txtPassword->setGeometry(TwipsRect(kPassword));
  lblPassword->setGeometry(TwipsRect(kPasswordLabel));
  txtConfirmPassword->setGeometry(TwipsRect(kConfirm));
  lblConfirm->setGeometry(TwipsRect(kConfirmLabel));
  setFixedSize(TwipsToPixelsX(kClientWidth), TwipsToPixelsY(kClientHeight));
  connect(cmdOK, &QPushButton::clicked, this, &frmLogin::cmdOK_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(cmdHelp, &QPushButton::clicked, this, [this] { CloseWithHelp(*this); });
  InstallF1(*this);
  Form_Load();
}

frmLogin::~frmLogin() = default;

void frmLogin::Form_Load() {
  const bool login = Mode == kLogin;
  if (login) {
    PlaceDialogButtons({cmdOK, cmdCancel, cmdHelp}, kButtonsTopLogin);
    lblConfirm->hide();
    txtConfirmPassword->hide();
    setFixedHeight(TwipsToPixelsY(kClientHeightLogin));
  }
  setWindowTitle(Mode);
  const UIMainController& main = *Globals().MainController;
  controller_ = std::make_unique<UIMainController>(main.AppPath(), main.Settings(), Globals());
  CentreOnScreen(*this);
}

void frmLogin::cmdOK_Click() {
  if (Mode == kLogin) {
    std::string stored;
    LoginAccepted = Report(controller_->GetPassword(stored), Globals().ErrorInfo) && stored == FromQ(txtPassword->text());
    accept();
    return;
  }
  if (txtPassword->text() != txtConfirmPassword->text()) {
    MsgBox(kMismatch, vbOKOnly, kErrorTitle);
    return;
  }
  PasswordSet = Report(controller_->PutPassword(FromQ(txtPassword->text())), Globals().ErrorInfo);
  accept();
}

}  // namespace cb
