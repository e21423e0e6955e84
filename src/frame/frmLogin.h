// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The password dialog: "Login" asks for the password at start-up, "Set
// Password" stores a new one. The caller reads LoginAccepted or PasswordSet.

#include <QDialog>
#include <memory>

class QLabel;
class QLineEdit;
class QPushButton;

namespace cb {

class UIMainController;

class frmLogin : public QDialog {
  Q_OBJECT
 public:
  static constexpr char kLogin[] = "Login";
  static constexpr char kSetPassword[] = "Set Password";

  explicit frmLogin(const QString& mode);
  ~frmLogin() override;

  bool LoginAccepted = false;
  bool PasswordSet = false;
  const QString Mode;

  QLineEdit* txtPassword;
  QLineEdit* txtConfirmPassword;
  QLabel* lblConfirm;
  QLabel* lblPassword;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
  QPushButton* cmdHelp;

  void cmdOK_Click();

 private:
  void Form_Load();
  std::unique_ptr<UIMainController> controller_;
};

}  // namespace cb
