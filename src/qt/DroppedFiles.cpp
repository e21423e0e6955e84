// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/DroppedFiles.h"

#include <QMimeData>
#include <QUrl>

#include "qt/Twips.h"

namespace cb {

std::vector<std::string> DroppedFiles(const QMimeData* data) {
  std::vector<std::string> paths;
  if (!data) return paths;
  for (const QUrl& url : data->urls())
    if (url.isLocalFile()) paths.push_back(PathFromQ(url.toLocalFile()));
  return paths;
}

}  // namespace cb
