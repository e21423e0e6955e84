// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The help conventions shared by every window: F1, the Help buttons and the
// Help menu items open the help viewer on the page the window help table
// (help/WindowHelp.h) gives the window; dialogs close as they do so.
//
// A window takes part with a row under its object name in WindowHelp.cpp
// (and one per control that differs from it), InstallF1(*this) where it is
// made, and its Help button connected to CloseWithHelp(*this). A toolbar
// button that only opens help calls ShowHelp(*this, "<its object name>").

#include <QString>
#include <QWidget>

#include "model/WindowHelp.h"

class QMdiArea;
class QMenu;

namespace cb {

// The help viewer as the routine sees it. The help feature's window is the
// one there is; it installs its maker at start (InstallHelpViewer), so the
// windows below it open help without knowing it.
class HelpViewerWindow : public QWidget {
 public:
  // The bare file name of the page the next load opens, such as "help001.htm".
  QString HelpPage;
  // Loads the window on its first showing, else brings it forward unchanged.
  virtual void ShowForward() = 0;
};
void SetHelpViewerMaker(HelpViewerWindow* (*maker)());

// The client area the viewer opens in; the main window names its own as it
// is made. Without one (the login at start-up) the viewer stands alone.
void SetHelpArea(QMdiArea* area);

// The open-only routine: sets the viewer's HelpPage and shows it without
// waiting. A viewer that is already open comes forward and keeps its page.
void OpenHelp(const QString& page);

// Help for `control` on `window`, both by object name, as the table gives
// it: the closing routine (hide the window, open the viewer, unload the
// window, so a caller waiting on a dialog finds it cancelled) or the
// open-only one. A window without a row takes no help.
void ShowHelp(QWidget& window, const QString& control = {});

// The Help button: the closing routine on the window's own page, whatever
// its row says of F1.
void CloseWithHelp(QWidget& window);

// F1 in `window` or any control in it: ShowHelp for the control that has the
// keyboard, or the nearest of its parents that has a row of its own.
void InstallF1(QWidget& window);

// F1 on an item of `menu`: the open-only routine when the item, by object
// name, has a row of its own among the menu items' rows.
void InstallMenuF1(QMenu& menu);

// The open viewer, or null.
HelpViewerWindow* OpenHelpViewer();
// The open viewer's HelpPage: the page it was last asked for; "" when none is open.
QString HelpPage();

// Closes and deletes the viewer, if one is open.
void UnloadHelp();

}  // namespace cb
