// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The report viewer: a child of the main window that shows the report
// pages and follows their links, from the summary to a sub-report and from
// there to the slide, with Previous, Next, Print and Help on its toolbar.

#include <QWidget>
#include <memory>
#include <string>

#include "model/WBStack.h"
#include "reports/SummaryPage.h"
#include "reports/UIReportController.h"

class QAction;
class QMdiArea;
class QToolBar;

namespace cb {

class ReportBrowser;

class frmReport : public QWidget {
  Q_OBJECT
 public:
  frmReport();
  ~frmReport() override;

  // Set before Show.
  cb::ReportKind ReportKind = cb::ReportKind::ByLocation;
  std::string ReportFont;  // Windows-1252
  // Where the slides of the pages' links come up.
  void SlideWindows(std::unique_ptr<ReportSlideWindows> windows);

  // Adds the window to `area` and runs its load, which writes and shows the
  // summary. When the summary cannot be written the window unloads.
  void Show(QMdiArea& area);
  // Each activation: Activated for the main toolbar, the caption from the page.
  void Form_Activate();

  // A followed link, with its href as the page writes it.
  void WebBrowser1_LinkFollowed(const QString& href);
  void Print_Click();
  void Previous_Click();
  void Next_Click();
  void Help_Click();

  ReportBrowser* WebBrowser1;
  QToolBar* Toolbar1;
  QAction* PrintButton = nullptr;
  QAction* PreviousButton = nullptr;
  QAction* NextButton = nullptr;
  QAction* HelpButton = nullptr;

  // The page history behind Previous and Next.
  const WBStack& Stack() const { return stack_; }

 signals:
  void Activated();

 private:
  // A toolbar navigation outstanding: the next link enters no history.
  enum class Navigation { None, Previous, Next };

  bool Form_Load();
  void Unload();
  std::string ReportsDirectory() const;

  std::unique_ptr<ReportSlideWindows> slideWindows_;
  std::unique_ptr<UIReportController> controller_;
  WBStack stack_;
  Navigation NavigationMode = Navigation::None;
};

}  // namespace cb
