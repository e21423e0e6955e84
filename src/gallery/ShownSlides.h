// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The slides the gallery shows, in file order: every slide, or those a find
// query matched. Base, Roof and the scroll steps count positions in this
// list; with every slide shown a position is the record number itself.

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace cb {

class ShownSlides {
 public:
  void ShowAll() {
    filtered_ = false;
    records_.clear();
  }
  // `records` ascending.
  void ShowOnly(std::vector<std::int32_t> records) {
    filtered_ = true;
    records_ = std::move(records);
  }
  bool Filtered() const { return filtered_; }
  // How many are shown out of `n` slides.
  std::int32_t Count(std::int32_t n) const { return filtered_ ? static_cast<std::int32_t>(records_.size()) : n; }
  // The record at position `p`. Positions past the last go on counting above
  // N, so that an empty cell still names no slide, and below 1 stay as they are.
  std::int32_t Record(std::int32_t p, std::int32_t n) const {
    if (!filtered_ || p < 1) return p;
    const auto count = static_cast<std::int32_t>(records_.size());
    return p <= count ? records_[static_cast<std::size_t>(p - 1)] : n + (p - count);
  }
  // Record `r` has left the collection: the records after it move down one.
  void Removed(std::int32_t r) {
    std::erase(records_, r);
    for (std::int32_t& k : records_)
      if (k > r) --k;
  }

 private:
  bool filtered_ = false;
  std::vector<std::int32_t> records_;
};

}  // namespace cb
