#include "storage/Scramble.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

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

// The word tricks below look at eight bytes at once; the byte order of the
// load does not matter, since each works on every byte alike.
constexpr std::uint64_t kOnes = 0x0101010101010101u;
constexpr std::uint64_t kHighBits = 0x8080808080808080u;
constexpr std::uint64_t kBlanks = kOnes * ' ';

std::uint64_t Word(const char* p) {
  std::uint64_t w;
  std::memcpy(&w, p, sizeof w);
  return w;
}

void PutWord(char* p, std::uint64_t w) { std::memcpy(p, &w, sizeof w); }

bool HasZeroByte(std::uint64_t w) { return ((w - kOnes) & ~w & kHighBits) != 0; }

// Whether a byte of `w` is a blank or a NUL: what unscrambling skips.
bool HasPaddingByte(std::uint64_t w) { return HasZeroByte(w) || HasZeroByte(w ^ kBlanks); }

// Whether every byte of `w` is a blank or a NUL.
bool AllPadding(std::uint64_t w) { return (w & ~kBlanks) == 0; }

// 256 - c in every byte, without carries between them.
std::uint64_t Complement(std::uint64_t w) { return ((~w & ~kHighBits) + kOnes) ^ (~w & kHighBits); }

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

// Eight bytes at a time: a stored field is mostly its text, then padding.
void UnscrambleInPlace(std::span<char> field) {
  const std::size_t size = field.size();
  char* const f = field.data();
  std::size_t i = 0;
  for (; i + 8 <= size && !HasPaddingByte(Word(f + i)); i += 8) PutWord(f + i, Complement(Word(f + i)));
  std::size_t out = i;
  for (;;) {
    for (; i + 8 <= size && AllPadding(Word(f + i)); i += 8) {
    }
    if (i == size) break;
    if (char c; f[i] != ' ' && Flip(f[i], c)) f[out++] = c;
    ++i;
  }
  std::fill(f + out, f + size, ' ');
}

}  // namespace cb
