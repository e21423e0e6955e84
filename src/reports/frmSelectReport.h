#pragma once
// The report chooser behind the main toolbar's Report: the kind of report
// and, behind "Font >>", the font of its pages. OK opens the report viewer.

#include <QDialog>

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

 private:
  void Form_Load();
};

}  // namespace cb
