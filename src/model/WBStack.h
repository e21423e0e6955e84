// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The page history of the report and help viewers, behind their Previous
// and Next buttons.

#include <cstdint>
#include <string>
#include <vector>

namespace cb {

class WBStack {
 public:
  std::int32_t TotalItems() const { return total_; }
  std::int32_t CurrentItem() const { return current_; }
  // Nothing sets it; it stays empty.
  const std::string& FileName() const { return fileName_; }

  // Moves through the history and returns the item at CurrentItem after the
  // move ("" where there is none):
  //  1 start: `fileName` becomes the only item (an empty name changes nothing);
  //  2 back: one item back, not below the first;
  //  3 push: `fileName` after the current item, dropping the forward history
  //    (an empty name changes nothing);
  //  4 forward: one item on, unchecked: the caller keeps Next disabled at the end.
  // Other operations change nothing.
  std::string GetStackFile(std::int32_t operation, const std::string& fileName);

 private:
  std::string ItemAtCurrent() const;

  std::vector<std::string> items_ = std::vector<std::string>(1);  // index 0 unused
  std::int32_t current_ = 0;
  std::int32_t total_ = 0;
  std::string fileName_;
};

}  // namespace cb
