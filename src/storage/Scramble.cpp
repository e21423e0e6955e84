// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/Scramble.h"

#include <algorithm>

#include "base/Text.h"

namespace cb {
namespace {

// 256 - c for codes 1..255; NUL (which would give 256) has none.
bool Flip(char c, char& out) {
  const auto code = static_cast<unsigned char>(c);
  if (code == 0) return false;
  out = static_cast<char>(256 - code);
  return true;
}

}  // namespace

std::string ScrambleField(std::string_view input) {
  const auto n = Trim(input).size();
  std::string out;
  out.reserve(n);
  for (char c : input.substr(0, n)) {
    char s;
    if (Flip(c, s)) out += s;
  }
  return out;
}

std::string UnscrambleField(std::string_view input) {
  std::string out;
  out.reserve(input.size());
  for (char c : input) {
    char s;
    if (c != ' ' && Flip(c, s)) out += s;
  }
  return out;
}

void ScrambleInPlace(std::span<char> field, bool trimFirst) {
  const std::string_view v(field.data(), field.size());
  const auto first = v.find_first_not_of(' ');
  const std::size_t n = first == std::string_view::npos ? 0 : v.find_last_not_of(' ') - first + 1;
  const std::size_t from = trimFirst && n > 0 ? first : 0;
  std::size_t out = 0;  // never passes the byte being read
  for (std::size_t i = from; i < from + n; ++i)
    if (char c; Flip(field[i], c)) field[out++] = c;
  std::fill(field.begin() + static_cast<std::ptrdiff_t>(out), field.end(), ' ');
}

std::size_t UnscrambleTo(const char* in, std::size_t width, char* out) {
  std::size_t n = 0;
  for (std::size_t i = 0; i < width; ++i)
    if (char c; in[i] != ' ' && Flip(in[i], c)) out[n++] = c;
  std::fill(out + n, out + width, ' ');
  return n;
}

}  // namespace cb
