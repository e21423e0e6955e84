// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The pictures of the main window's and the viewers' toolbars, drawn in code at whatever size is asked.

#include <QIcon>
#include <QString>

namespace cb {

// The toolbar picture under the image key `key` ("New", "Open", "Edit", "Report", "Zoom",
// "Unzoom", "Window", "Background", "Help", and the viewers' "Print", "Previous", "Next");
// a null icon for any other key. Keys are exact.
// Pixmaps come out at the requested size, and the disabled mode is drawn in greys.
QIcon ToolbarIcon(const QString& key);

}  // namespace cb
