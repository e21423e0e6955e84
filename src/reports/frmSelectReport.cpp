// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/frmSelectReport.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "dialogs/DialogButtons.h"
#include "dialogs/HelpRoutine.h"
#include "qt/Twips.h"
#include "reports/UIReportController.h"
#include "reports/ViewerRules.h"
#include "state/modGlobal.h"
#include "storage/HistorySteps.h"

namespace cb {
namespace {

constexpr char kCaption[] = "Select Report";
constexpr char kOptionPrefix[] = "Report By ";

// Design places in twips.
constexpr ElementRect kFrame{120, 60, 4095, 1215};
constexpr ElementRect kLocation{240, 330, 3600, 300};  // within the frame
constexpr ElementRect kCategory{240, 720, 3600, 300};
constexpr double kButtonsTop = 1440;
constexpr ElementRect kFontButton{3030, 1980, 1140, 390};
constexpr ElementRect kFontBox{600, 2640, 3570, 315};
constexpr double kClientWidth = 4335, kClientHeight = 2490;
// "Font >>" makes the dialog 3660 twips tall, title bar included.
constexpr double kTitleBar = 420, kGrownHeight = 3660 - kTitleBar;

QString Latin(std::string_view s) { return QString::fromLatin1(s.data(), static_cast<qsizetype>(s.size())); }

}  // namespace

frmSelectReport::frmSelectReport(QWidget* parent) : QDialog(parent) {
  setObjectName("frmSelectReport");
  setWindowTitle(kCaption);
  fraSelectReport = new QGroupBox("Report", this);
  fraSelectReport->setObjectName("fraSelectReport");
  optLocation = new QRadioButton(fraSelectReport);
  optLocation->setObjectName("optLocation");
  optCategory = new QRadioButton("Report By Category", fraSelectReport);
  optCategory->setObjectName("optCategory");
  const DialogButtons buttons = MakeDialogButtons(this, kButtonsTop);
  cmdOK = buttons.ok;
  cmdCancel = buttons.cancel;
  cmdHelp = buttons.help;
  cmdFont = new QPushButton("Font >>", this);
  cmdFont->setObjectName("cmdFont");
  cboFont = new QComboBox(this);
  cboFont->setObjectName("cboFont");
  cboFont->setAccessibleName("Font");
  cboFont->setEditable(true);
  cboFont->setInsertPolicy(QComboBox::NoInsert);  // a typed name serves this report only
  cboFont->lineEdit()->setAccessibleName("Font");
  cboFont->view()->setAccessibleName("Font");
  fraSelectReport->setGeometry(TwipsRect(kFrame));
  optLocation->setGeometry(TwipsRect(kLocation));
  optCategory->setGeometry(TwipsRect(kCategory));
  cmdFont->setGeometry(TwipsRect(kFontButton));
  cboFont->setGeometry(TwipsRect(kFontBox));
  setFixedSize(TwipsToPixelsX(kClientWidth), TwipsToPixelsY(kClientHeight));
  setTabOrder(optLocation, optCategory);
  setTabOrder(optCategory, cmdOK);
  setTabOrder(cmdOK, cmdCancel);
  setTabOrder(cmdCancel, cmdHelp);
  setTabOrder(cmdHelp, cmdFont);
  setTabOrder(cmdFont, cboFont);
  connect(cmdOK, &QPushButton::clicked, this, &frmSelectReport::cmdOK_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(cmdHelp, &QPushButton::clicked, this, [this] { CloseWithHelp(*this); });
  connect(cmdFont, &QPushButton::clicked, this, &frmSelectReport::cmdFont_Click);
  connect(cboFont, &QComboBox::activated, this, &frmSelectReport::cboFont_Click);
  InstallF1(*this);
  Form_Load();
}

void frmSelectReport::Form_Load() {
  CentreOnScreen(*this);
  UIMainController& mc = *Globals().MainController;
  // The reports know three templates; any other value is read as the first.
  auto label = GroupLabel(mc.SlideTemplate());
  if (!label) {
    mc.SlideTemplate(1);
    label = GroupLabel(1);
  }
  optLocation->setText(kOptionPrefix + Latin(*label));
  optLocation->setChecked(true);
  for (const std::string_view face : kReportFonts) cboFont->addItem(Latin(face));
  cboFont->setEditText(mc.ReportFont().empty() ? Latin(kDefaultReportFont) : ToQ(mc.ReportFont()));
  optLocation->setFocus();
}

void frmSelectReport::cmdFont_Click() {
  setFixedHeight(TwipsToPixelsY(kGrownHeight));
  cmdFont->setEnabled(false);
  cboFont->setFocus();
}

void frmSelectReport::cboFont_Click() {
  UIMainController& mc = *Globals().MainController;
  mc.ReportFont(FromQ(cboFont->currentText()));
  // The pick is kept in the file's header; a failure to save is not shown here.
  Report(mc.SaveSettings(steps::kChooseReportFont), Globals().ErrorInfo);
}

void frmSelectReport::cmdOK_Click() {
  chosenKind_ = optLocation->isChecked() ? ReportKind::ByLocation : ReportKind::ByCategory;
  chosenFont_ = FromQ(cboFont->currentText());
  accept();
}

}  // namespace cb
