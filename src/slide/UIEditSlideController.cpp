// SPDX-License-Identifier: GPL-3.0-or-later
#include "slide/UIEditSlideController.h"

#include "base/Text.h"
#include "state/modGlobal.h"

namespace cb {
namespace {

constexpr std::size_t kLongestPath = 50;

// Upper case in Windows-1252: the ASCII letters, the accented letters of
// 0xE0 to 0xFE (but the division sign) and the four that move elsewhere.
char Upper(char c) {
  const auto u = static_cast<unsigned char>(c);
  if (u >= 'a' && u <= 'z') return static_cast<char>(u - 32);
  if (u >= 0xE0 && u <= 0xFE && u != 0xF7) return static_cast<char>(u - 32);
  switch (u) {
    case 0x9A:
      return '\x8A';  // s caron
    case 0x9C:
      return '\x8C';  // oe
    case 0x9E:
      return '\x8E';  // z caron
    case 0xFF:
      return '\x9F';  // y diaeresis
    default:
      return c;
  }
}

}  // namespace

std::string UIEditSlideController::GetFilenamePath(std::string_view path) const {
  std::string out(path);
  if (out.size() > kLongestPath) {
    const auto first = out.find('/');
    const auto second = first == std::string::npos ? first : out.find('/', first + 1);
    const std::size_t keep = second == std::string::npos ? 0 : second + 1;
    const std::int32_t n = globals_.MainController->CurrentImageNumber();
    const std::string picture = n >= 0 && static_cast<std::size_t>(n) < globals_.Slides.size()
                                    ? Trim(globals_.Slides[static_cast<std::size_t>(n)].Get(Field::PictureFile))
                                    : std::string();
    out = out.substr(0, keep) + ".../" + picture;
  }
  for (char& c : out) c = Upper(c);
  return out;
}

}  // namespace cb
