// SPDX-License-Identifier: GPL-3.0-or-later
#include "gallery/DropRules.h"

#include "base/Text.h"

namespace cb {
namespace {

std::string Extension(const std::string& path) {
  const auto slash = path.rfind('/');
  const auto dot = path.rfind('.');
  if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return {};
  return path.substr(dot);
}

std::string BareName(const std::string& path) {
  const auto slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

}  // namespace

SortedDrop SortDrop(std::span<const std::string> paths) {
  SortedDrop drop;
  for (const std::string& p : paths) {
    const std::string ext = Extension(p);
    if (SameName(ext, ".jpg") || SameName(ext, ".jpeg"))
      drop.pictures.push_back(p);
    else if (SameName(ext, ".sif"))
      drop.slideFiles.push_back(p);
    else
      drop.others.push_back(p);
  }
  return drop;
}

std::string NotTakenText(std::span<const std::string> paths) {
  std::string text = "These files were not added as slides; only JPEG pictures that can be read are taken:\n";
  for (const std::string& p : paths) text += "\n" + BareName(p);
  return text;
}

}  // namespace cb
