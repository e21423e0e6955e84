// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The frame of both page viewers, help and reports: a toolbar of captioned
// buttons over a browser that fills the rest of the window.

#include <QString>
#include <string_view>

class QAction;
class QTextBrowser;
class QToolBar;
class QWidget;

namespace cb {

// The viewer's toolbar, Toolbar1: captions under 24-pixel icons.
QToolBar* MakeViewerToolbar(QWidget& viewer, const QString& title = {});

// A button on it: `key` is its object name and caption and picks its icon.
QAction* AddViewerButton(QToolBar& toolbar, std::string_view key, std::string_view tip);

// Names the browser WebBrowser1 and lays the toolbar over it, edge to edge.
void LayOutViewer(QWidget& viewer, QToolBar& toolbar, QTextBrowser& browser);

}  // namespace cb
