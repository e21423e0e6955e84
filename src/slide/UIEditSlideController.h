// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The logic behind the slide editor: how it shows the picture's path.

#include <string>
#include <string_view>

namespace cb {

struct ModGlobal;

class UIEditSlideController {
 public:
  // Reads the current slide of `globals` at each call; `globals` must outlive it.
  explicit UIEditSlideController(const ModGlobal& globals) : globals_(globals) {}

  // `path` (Windows-1252) made to fit the read-only box, in upper case. A
  // path over 50 characters keeps what stands up to its second "/", then
  // ".../" and the current slide's trimmed picture file name.
  std::string GetFilenamePath(std::string_view path) const;

 private:
  const ModGlobal& globals_;
};

}  // namespace cb
