// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FaceMetrics.h"

namespace cb {
namespace {

constexpr char kFirst = ' ', kFigure = '0';

// clang-format off
constexpr std::array<NamedFace, 1> kNamedFaces{{
    // Verdana: wide humanist sans. DejaVu Sans (Bitstream Vera) is nearly as
    // wide; Liberation Sans and Nimbus Sans (Arial's metrics) are a good deal narrower.
    {"Verdana",
     {351, 393, 458, 818, 635, 1076, 726, 268, 454, 454, 635, 818, 363, 454, 363, 454,  //  !"#$%&'()*+,-./
      635, 635, 635, 635, 635, 635, 635, 635, 635, 635,                                 // 0-9
      454, 454, 818, 818, 818, 545, 1000,                                               // :;<=>?@
      683, 685, 698, 770, 632, 574, 775, 751, 420, 454, 692, 556, 842,                  // A-M
      748, 787, 603, 787, 695, 683, 616, 731, 683, 988, 685, 615, 685,                  // N-Z
      454, 454, 454, 818, 635, 635,                                                     // [\]^_`
      600, 623, 520, 623, 595, 351, 623, 632, 274, 344, 591, 274, 972,                  // a-m
      632, 606, 623, 623, 426, 520, 394, 632, 591, 818, 591, 591, 525,                  // n-z
      634, 454, 634, 818},                                                              // {|}~
     {"DejaVu Sans", "DejaVu Sans Condensed", "Liberation Sans", "Nimbus Sans", "Liberation Sans Narrow"}},
}};
// clang-format on

}  // namespace

const NamedFace* FindNamedFace(std::string_view family) {
  for (const NamedFace& face : kNamedFaces)
    if (face.family == family) return &face;
  return nullptr;
}

std::span<const std::string_view> StandIns(const NamedFace& face) {
  std::size_t n = 0;
  while (n < face.standIns.size() && !face.standIns[n].empty()) ++n;
  return std::span(face.standIns).first(n);
}

double WidthInEms(const NamedFace& face, std::string_view utf8) {
  long thousandths = 0;
  for (const char c : utf8) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0) == 0x80) continue;  // a continuation byte: its character is counted once
    const std::size_t at = byte - static_cast<unsigned char>(kFirst);
    thousandths += at < face.advances.size() ? face.advances[at] : face.advances[kFigure - kFirst];
  }
  return thousandths / 1000.0;
}

}  // namespace cb
