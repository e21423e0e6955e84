// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Pictures of the program drawn in code: the splash and about picture.

#include <QPixmap>
#include <QSize>

namespace cb {

// The program's title picture at `size`.
QPixmap SplashPicture(QSize size);

}  // namespace cb
