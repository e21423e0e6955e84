// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The program's icon: a framed picture with a price tag, kept as a table of
// flat shapes so that the window icon, the PNG sizes and the scalable SVG
// are drawn from one description.

#include <QIcon>
#include <QImage>

#include <string>

namespace cb {

// The icon painted at `size` x `size` pixels, transparent around the tile.
QImage PaintProgramIcon(int size);

// The icon at the usual sizes, for the program's windows.
QIcon ProgramIcon();

// The icon as an SVG document (256 x 256 user units).
std::string ProgramIconSvg();

}  // namespace cb
