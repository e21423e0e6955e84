// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/Scramble.h"

#include <algorithm>
#include <cstdint>

#include "base/Text.h"
#include "base/Words.h"

namespace cb {
namespace {

// 256 - c for codes 1..255; NUL (which would give 256) has none.
bool Flip(char c, char& out) {
  const auto code = static_cast<unsigned char>(c);
  if (code == 0) return false;
  out = static_cast<char>(256 - code);
  return true;
}

// 256 - c in every byte of a word, without carries between them.
std::uint64_t Complement(std::uint64_t w) {
  using namespace words;
  return ((~w & ~kHighBits) + kOnes) ^ (~w & kHighBits);
}

// Whether no byte of `w` is a blank or a NUL, so that all of it unscrambles.
bool AllText(std::uint64_t w) { return !words::HasByte(w, ' ') && !words::HasByte(w, '\0'); }

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

// A stored field is mostly its text, then blanks: both go a word at a time,
// and blanks that stay where they are are not written again.
void UnscrambleInPlace(std::span<char> field) {
  using namespace words;
  const std::size_t size = field.size();
  char* const f = field.data();
  std::size_t i = 0;
  for (; i + kSize <= size && AllText(Load(f + i)); i += kSize) Store(f + i, Complement(Load(f + i)));
  for (; i < size && f[i] != ' ' && f[i] != '\0'; ++i) f[i] = static_cast<char>(-f[i]);
  std::size_t out = i;
  std::size_t dirty = i;  // the end of what is no blank yet, behind `out`
  while (i < size) {
    while (i + kSize <= size && Load(f + i) == Repeated(' ')) i += kSize;
    // The last word, when blank, covers whatever is left.
    if (size >= kSize && i + kSize > size && Load(f + size - kSize) == Repeated(' ')) break;
    if (i == size) break;
    if (f[i] != ' ') {
      dirty = i + 1;
      if (f[i] != '\0') f[out++] = static_cast<char>(-f[i]);
    }
    ++i;
  }
  if (dirty > out) std::fill(f + out, f + dirty, ' ');
}

}  // namespace cb
