// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/WBStack.h"

namespace cb {

std::string WBStack::ItemAtCurrent() const {
  if (current_ < 0 || current_ >= static_cast<std::int32_t>(items_.size())) return {};
  return items_[static_cast<std::size_t>(current_)];
}

std::string WBStack::GetStackFile(std::int32_t operation, const std::string& fileName) {
  switch (operation) {
    case 1:
      if (fileName.empty()) return {};
      items_.assign(2, std::string());
      items_[1] = fileName;
      current_ = total_ = 1;
      break;
    case 2:
      if (current_ >= 2) --current_;
      break;
    case 3:
      if (fileName.empty()) return {};
      items_.resize(static_cast<std::size_t>(current_) + 2);
      current_ = total_ = static_cast<std::int32_t>(items_.size()) - 1;
      items_[static_cast<std::size_t>(current_)] = fileName;
      break;
    case 4:
      ++current_;
      break;
    default:
      break;
  }
  return ItemAtCurrent();
}

}  // namespace cb
