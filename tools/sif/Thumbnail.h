// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// chattelbook-sif thumbnail: the picture a file manager shows for a Slide
// Information File.

#include <QStringList>

#include "CommandIo.h"

namespace cb::sif {

// thumbnail FILE.sif OUT.png [--size N]: writes a PNG of at most N x N
// pixels of the first pictures of the file's slides that read, from the
// gallery beside its folder: one alone fills it, two to four share a 2 x 2
// grid, each upright and fitted to its cell keeping its shape. Without one,
// the program's icon. OUT appears only whole; a file that does not load
// leaves none.
int RunThumbnail(const QStringList& args, const CommandIo& io);

}  // namespace cb::sif
