// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/frmReport.h"

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>

#include "dialogs/HelpRoutine.h"
#include "dialogs/PagePrint.h"
#include "dialogs/PageViewer.h"
#include "qt/SystemLocale.h"
#include "qt/Twips.h"
#include "reports/ReportBrowser.h"
#include "reports/ViewerRules.h"
#include "state/modGlobal.h"
#include "storage/DataAccess.h"

namespace cb {
namespace {

constexpr char kCaption[] = "Report Viewer";
constexpr char kSummaryFile[] = "Report1.htm";

struct ToolButton {
  const char* key;  // also the caption
  const char* tip;
  QAction* frmReport::*button;
  void (frmReport::*click)();
};

constexpr ToolButton kToolButtons[] = {
    {"Print", "Print Report", &frmReport::PrintButton, &frmReport::Print_Click},
    {"Previous", "Go Back", &frmReport::PreviousButton, &frmReport::Previous_Click},
    {"Next", "Go Forward", &frmReport::NextButton, &frmReport::Next_Click},
    {"Help", "Help", &frmReport::HelpButton, &frmReport::Help_Click},
};

}  // namespace

frmReport::frmReport() {
  setObjectName("frmReport");
  setWindowTitle(kCaption);
  Toolbar1 = MakeViewerToolbar(*this, "Toolbar1");
  for (const ToolButton& b : kToolButtons) {
    QAction* a = AddViewerButton(*Toolbar1, b.key, b.tip);
    this->*b.button = a;
    connect(a, &QAction::triggered, this, b.click);
  }
  WebBrowser1 = new ReportBrowser(this);
  WebBrowser1->setAccessibleName("Report");
  LayOutViewer(*this, *Toolbar1, *WebBrowser1);
  connect(WebBrowser1, &ReportBrowser::LinkFollowed, this, &frmReport::WebBrowser1_LinkFollowed);
  connect(WebBrowser1, &ReportBrowser::PrintRequested, this, &frmReport::Print_Click);

  // F1 gives way to the help viewer: the viewer closes as it opens.
  InstallF1(*this);
}

frmReport::~frmReport() = default;

std::string frmReport::ReportsDirectory() const {
  return Globals().MainController->AppPath() + std::string(kReportsFolder);
}

void frmReport::SlideWindows(std::unique_ptr<ReportSlideWindows> windows) { slideWindows_ = std::move(windows); }

void frmReport::Show(QMdiArea& area) {
  QMdiSubWindow* sub = area.addSubWindow(this);
  sub->setAttribute(Qt::WA_DeleteOnClose);
  if (!Form_Load()) {
    Unload();
    return;
  }
  sub->setGeometry(area.viewport()->rect());
  sub->show();
}

bool frmReport::Form_Load() {
  ModGlobal& g = Globals();
  controller_ = std::make_unique<UIReportController>(*g.MainController, g.Slides, g.ErrorInfo, SystemReportLocale());
  controller_->SlideWindows(slideWindows_.get());
  controller_->ReportFont(ReportFont);
  const bool written = ReportKind == cb::ReportKind::ByLocation ? controller_->CreateReportByLocation()
                                                                : controller_->CreateReportByCategory();
  if (!written) return false;
  WebBrowser1->ShowPage(stack_.GetStackFile(1, ReportsDirectory() + kSummaryFile));
  NextButton->setEnabled(false);
  PreviousButton->setEnabled(false);
  return true;
}

void frmReport::Unload() { parentWidget()->close(); }

// Only activation sets the caption, so it may lag behind the page shown.
void frmReport::Form_Activate() {
  emit Activated();
  const QString title = WebBrowser1->documentTitle();
  if (!title.isEmpty()) setWindowTitle(title);
}

void frmReport::WebBrowser1_LinkFollowed(const QString& href) {
  const auto key = LinkKey(FromQ(href));
  if (!key) {  // not one of the report's own links: it goes ahead
    WebBrowser1->setSource(WebBrowser1->source().resolved(QUrl(href)));
    return;
  }
  if (!controller_->FollowLink(FromQ(WebBrowser1->documentTitle()), *key)) {
    Unload();
    return;
  }
  // A new sub-report, or after a slide the sub-report again behind it.
  const std::string path = ReportsDirectory() + controller_->ReportStack(StackOp::CurrentName, "");
  WebBrowser1->ShowPage(path);
  PreviousButton->setEnabled(true);
  // The first link after Previous or Next is deliberately left out of the history.
  if (NavigationMode == Navigation::None) {
    stack_.GetStackFile(3, path);
    if (stack_.CurrentItem() == stack_.TotalItems()) NextButton->setEnabled(false);
  }
  NavigationMode = Navigation::None;
}

void frmReport::Previous_Click() {
  const std::string file = stack_.GetStackFile(2, "");
  if (stack_.CurrentItem() == 1) PreviousButton->setEnabled(false);
  NextButton->setEnabled(true);
  NavigationMode = Navigation::Previous;
  WebBrowser1->ShowPage(file);
}

void frmReport::Next_Click() {
  const std::string file = stack_.GetStackFile(4, "");
  if (stack_.CurrentItem() == stack_.TotalItems()) NextButton->setEnabled(false);
  PreviousButton->setEnabled(true);
  NavigationMode = Navigation::Next;
  WebBrowser1->ShowPage(file);
}

void frmReport::Print_Click() { PrintBrowser(*WebBrowser1, "report"); }

void frmReport::Help_Click() { ShowHelp(*this, HelpButton->objectName()); }

}  // namespace cb
