// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The local files a drag from a file manager carries.

#include <string>
#include <vector>

class QMimeData;

namespace cb {

// In the drag's order; none for a null drag or one without local files.
std::vector<std::string> DroppedFiles(const QMimeData* data);

}  // namespace cb
