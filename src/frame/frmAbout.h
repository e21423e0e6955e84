// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The modal About window: the program's picture and an OK button.

#include <QDialog>

class QLabel;
class QPushButton;

namespace cb {

class frmAbout : public QDialog {
  Q_OBJECT
 public:
  frmAbout();
  QPushButton* cmdOK;

 protected:
  void resizeEvent(QResizeEvent* e) override;

 private:
  QLabel* picture_;
};

}  // namespace cb
