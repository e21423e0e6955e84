// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The folding of Windows-1252 bytes, for the index and the query alike: a
// table made at compile time, and eight bytes at once where they are plain ASCII.

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/Words.h"

namespace cb {

// What one byte folds to: one or two bytes.
struct FoldedByte {
  std::array<char, 2> bytes{};
  std::uint8_t size = 1;
};

inline constexpr auto kFold = [] {
  std::array<FoldedByte, 256> t{};
  for (std::size_t b = 0; b < t.size(); ++b) t[b] = {{static_cast<char>(b)}, 1};
  const auto to = [&t](std::string_view from, char base) {
    for (const char c : from) t[static_cast<unsigned char>(c)] = {{base}, 1};
  };
  const auto spelt = [&t](std::string_view from, std::string_view two) {
    for (const char c : from) t[static_cast<unsigned char>(c)] = {{two[0], two[1]}, 2};
  };
  // Control bytes become blanks, so the index's separator NUL never occurs in folded text.
  for (std::size_t b = 0; b < 0x20; ++b) t[b] = {{' '}, 1};
  for (char c = 'A'; c <= 'Z'; ++c) t[static_cast<unsigned char>(c)] = {{static_cast<char>(c - 'A' + 'a')}, 1};
  to("\xC0\xC1\xC2\xC3\xC4\xC5\xE0\xE1\xE2\xE3\xE4\xE5", 'a');
  to("\xC7\xE7", 'c');
  to("\xD0\xF0", 'd');
  to("\xC8\xC9\xCA\xCB\xE8\xE9\xEA\xEB", 'e');
  to("\x83", 'f');
  to("\xCC\xCD\xCE\xCF\xEC\xED\xEE\xEF", 'i');
  to("\xD1\xF1", 'n');
  to("\xD2\xD3\xD4\xD5\xD6\xD8\xF2\xF3\xF4\xF5\xF6\xF8", 'o');
  to("\x8A\x9A", 's');
  to("\xD9\xDA\xDB\xDC\xF9\xFA\xFB\xFC", 'u');
  to("\xDD\xFD\xFF\x9F", 'y');
  to("\x8E\x9E", 'z');
  spelt("\xDF", "ss");
  spelt("\xC6\xE6", "ae");
  spelt("\x8C\x9C", "oe");
  spelt("\xDE\xFE", "th");
  return t;
}();

// Folds [in, end) to `out` a byte at a time; returns the end written.
inline char* FoldBytes(const char* in, const char* end, char* out) {
  for (; in < end; ++in) {
    const FoldedByte& f = kFold[static_cast<unsigned char>(*in)];
    out[0] = f.bytes[0];
    out[1] = f.bytes[1];
    out += f.size;
  }
  return out;
}

// Eight bytes of ASCII without control bytes, most of any text, need only
// their upper case lowered: then `lowered` receives them so.
inline bool FoldsPlain(std::uint64_t w, std::uint64_t& lowered) {
  using namespace words;
  const std::uint64_t control = ~(w + Repeated(0x60)) & kHighBits;  // a byte below 0x20
  if (((w & kHighBits) | control) != 0) return false;
  const std::uint64_t upper = (w + Repeated(0x80 - 'A')) & ~(w + Repeated(0x80 - 'Z' - 1)) & kHighBits;
  lowered = w | (upper >> 2);
  return true;
}

// Folds the whole words of [in, end) to `out`, moving `in` past them;
// returns the end written.
inline char* FoldWords(const char*& in, const char* end, char* out) {
  using namespace words;
  for (; end - in >= static_cast<std::ptrdiff_t>(kSize); in += kSize) {
    std::uint64_t lowered;
    if (FoldsPlain(Load(in), lowered)) {
      Store(out, lowered);
      out += kSize;
    } else {
      out = FoldBytes(in, in + kSize, out);
    }
  }
  return out;
}

// Folds [in, end) to `out`, which has room for two bytes for each; returns
// the end written.
inline char* FoldInto(const char* in, const char* end, char* out) {
  out = FoldWords(in, end, out);
  return FoldBytes(in, end, out);
}

inline void AppendFolded(std::string& out, std::string_view bytes) {
  const std::size_t at = out.size();
  out.resize(at + 2 * bytes.size());
  out.resize(
      static_cast<std::size_t>(FoldInto(bytes.data(), bytes.data() + bytes.size(), out.data() + at) - out.data()));
}

// A field without the blanks and NULs that pad it.
inline std::string_view TrimField(std::string_view f) {
  using namespace words;
  constexpr std::uint64_t kNotPad = ~Repeated(' ');  // a blank or a NUL leaves no bit of it
  while (f.size() >= kSize && (Load(f.data() + f.size() - kSize) & kNotPad) == 0) f.remove_suffix(kSize);
  if (std::endian::native == std::endian::little && f.size() >= kSize) {
    // The last word holds a byte that is no pad: the highest such ends the text.
    const std::uint64_t kept = Load(f.data() + f.size() - kSize) & kNotPad;
    f.remove_suffix(static_cast<std::size_t>(std::countl_zero(kept)) / 8);
  }
  const auto pad = [](char c) { return c == ' ' || c == '\0'; };
  while (!f.empty() && pad(f.back())) f.remove_suffix(1);
  while (!f.empty() && pad(f.front())) f.remove_prefix(1);
  return f;
}

// Trims and folds a whole fixed-width field to `out`, which has room for two
// bytes for each of its bytes. The pad behind the text lets its last bytes
// go as one word too; their pad lands past the end returned, to be written over.
inline char* FoldField(std::string_view field, char* out) {
  using namespace words;
  const std::string_view text = TrimField(field);
  const char* const padEnd = field.data() + field.size();
  const char* in = text.data();
  const char* const end = in + text.size();
  out = FoldWords(in, end, out);
  std::uint64_t lowered;
  if (in == end || padEnd - in < static_cast<std::ptrdiff_t>(kSize) || !FoldsPlain(Load(in), lowered))
    return FoldBytes(in, end, out);
  Store(out, lowered);
  return out + (end - in);
}

}  // namespace cb
