// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Faces that the program's notes and pages name and that a free system does
// not ship, with their advance widths, so that an installed face can be
// chosen to stand in for one by measuring it against them.

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace cb {

struct NamedFace {
  std::string_view family;
  // Advance widths of the characters 32 to 126, in thousandths of the em.
  std::array<std::uint16_t, 95> advances;
  // Free faces that may stand in for it, widest first; unused places empty.
  std::array<std::string_view, 5> standIns;
};

// The row of `family` (its exact name), or null for a face the table does not know.
const NamedFace* FindNamedFace(std::string_view family);

// The stand-ins of `face`, widest first.
std::span<const std::string_view> StandIns(const NamedFace& face);

// The width of the UTF-8 text `utf8` set in `face`, in ems. A character
// outside 32 to 126 counts as wide as a figure.
double WidthInEms(const NamedFace& face, std::string_view utf8);

}  // namespace cb
