// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Small text rules shared across the program. Text is single-byte
// Windows-1252 held in std::string; "blank" means the character 32 only.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"

namespace cb {

// ASCII lower case; every other byte stays.
constexpr char Lower(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }

// ASCII case-insensitive equality, as file and column names compare.
bool SameName(std::string_view a, std::string_view b);

// Removes blanks (32 only) from both ends; NULs and tabs stay.
std::string Trim(std::string_view s);
std::string RTrim(std::string_view s);
// The same as a view into `s`.
std::string_view RTrimView(std::string_view s);

// The text up to, not including, its first NUL; the whole text without one.
std::string StripAtNul(std::string_view s);

// Right-trims `path` and appends "/" unless it now ends in "/" or "\".
void EnsureTrailingBackslash(std::string& path);

// The value of the leading decimal digits of `s`, 0 when it starts with none.
// Digits past what a double holds exactly lose precision, as a numeric read does.
double LeadingDigitsValue(std::string_view s);

// A number converted to a 32-bit integer: rounds half to even;
// Overflow outside the 32-bit range.
struct LongResult {
  std::int32_t value = 0;
  RtError error = RtError::None;
};
LongResult ToLong(double v);

// Text converted to a 32-bit integer: blanks around an optional sign, digits
// and fraction. TypeMismatch when the text is no number (the empty text too).
LongResult TextToLong(std::string_view s);

}  // namespace cb
