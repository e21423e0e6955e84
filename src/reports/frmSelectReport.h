// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The report chooser behind the main toolbar's Report: the kind of report
// and, behind "Font >>", the font of its pages. OK accepts the choice, which
// the caller turns into the report viewer.

#include <QDialog>
#include <string>

#include "reports/SummaryPage.h"

class QComboBox;
class QGroupBox;
class QPushButton;
class QRadioButton;

namespace cb {

class frmSelectReport : public QDialog {
  Q_OBJECT
 public:
  explicit frmSelectReport(QWidget* parent = nullptr);

  QGroupBox* fraSelectReport;
  QRadioButton* optLocation;
  QRadioButton* optCategory;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
  QPushButton* cmdHelp;
  QPushButton* cmdFont;
  QComboBox* cboFont;

  void cmdOK_Click();
  void cmdFont_Click();
  // A font picked from the list becomes the file's report font at once.
  void cboFont_Click();

  // The choice, once OK has accepted it.
  cb::ReportKind ChosenKind() const { return chosenKind_; }
  const std::string& ChosenFont() const { return chosenFont_; }

 private:
  void Form_Load();

  cb::ReportKind chosenKind_ = cb::ReportKind::ByLocation;
  std::string chosenFont_;
};

}  // namespace cb
