// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/SlideRecord.h"

#include <algorithm>

namespace cb {

std::string SlideRecord::Get(Field f) const { return std::string(View(f)); }

std::string_view SlideRecord::View(Field f) const {
  const auto& s = LayoutOf(f);
  return std::string_view(bytes_.data() + s.offset, s.width);
}

void SlideRecord::Set(Field f, std::string_view text) {
  const auto& s = LayoutOf(f);
  const auto n = std::min(text.size(), s.width);
  auto out = bytes_.begin() + static_cast<std::ptrdiff_t>(s.offset);
  std::copy_n(text.begin(), n, out);
  std::fill(out + static_cast<std::ptrdiff_t>(n), out + static_cast<std::ptrdiff_t>(s.width), ' ');
}

}  // namespace cb
