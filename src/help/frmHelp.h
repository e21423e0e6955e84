// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The help viewer: one generated help page in a browser, with Print,
// Previous and Next. Callers set HelpPage and show it (see OpenHelp); the
// page is read only when the window loads, so an open viewer keeps its page.

#include <QWidget>
#include <string>

#include "dialogs/HelpRoutine.h"
#include "help/HelpViewerRules.h"

class QAction;
class QTextBrowser;
class QToolBar;
class QUrl;

namespace cb {

class frmHelp : public HelpViewerWindow {
  Q_OBJECT
 public:
  frmHelp();

  QTextBrowser* WebBrowser1;
  QToolBar* Toolbar1;
  QAction* cmdPrint;
  QAction* cmdPrevious;
  QAction* cmdNext;

  void ShowForward() override;
  // The file on show, as the history names it.
  const std::string& Shown() const { return shown_; }
  const HelpHistory& History() const { return history_; }

  void Previous_Click();
  void Next_Click();
  void Print_Click();

 protected:
  void showEvent(QShowEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;

 private:
  void Form_Load();
  void Form_Resize();
  // Goes to `url` as a link does: recorded in the history first.
  void Navigate2(const std::string& url);
  // Shows the page in file `path`, or the viewer's own page when it cannot be read.
  void Display(const std::string& path);
  void WebBrowser1_AnchorClicked(const QUrl& url);
  void SetButtons();

  HelpHistory history_;
  std::string shown_;
  bool loaded_ = false;
};

// Makes this window the one that OpenHelp and the F1 routine open.
void InstallHelpViewer();
// The open viewer, or null.
frmHelp* HelpViewer();

}  // namespace cb
