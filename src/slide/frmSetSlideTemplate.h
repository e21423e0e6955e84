// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The template chooser. A template cannot be changed for an existing
// gallery: its OK always goes on to the New File command, which starts a
// new, empty gallery under the chosen template. A cancelled New File keeps
// the new template in force over the open gallery, as the program always has.

#include <QDialog>
#include <array>

class QGroupBox;
class QPushButton;
class QRadioButton;

namespace cb {

class frmSetSlideTemplate : public QDialog {
  Q_OBJECT
 public:
  explicit frmSetSlideTemplate(QWidget* parent = nullptr);

  QGroupBox* Frame1;
  QRadioButton* optHome;
  QRadioButton* optRE;
  QRadioButton* optVEH;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
  QPushButton* cmdHelp;

  void cmdOK_Click();

 signals:
  // Every OK: the frame runs its New File command before the dialog closes.
  void NewFileWanted();

 private:
  void Form_Load();
  std::array<QRadioButton*, 3> options_{};
};

}  // namespace cb
