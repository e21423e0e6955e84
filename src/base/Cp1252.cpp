// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Cp1252.h"

#include "base/Words.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace cb {
namespace {

// Code points of 0x80..0x9F; the unassigned five keep their own value.
constexpr std::array<char32_t, 32> kHigh{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char32_t ToCodePoint(unsigned char b) { return (b >= 0x80 && b < 0xA0) ? kHigh[b - 0x80] : b; }

// The UTF-8 bytes of a code point below 0x10000: one to three.
struct Utf8Form {
  std::size_t size = 0;
  std::array<char, 3> bytes{};
};

constexpr Utf8Form EncodeUtf8(char32_t c) {
  if (c < 0x80) return {1, {static_cast<char>(c)}};
  if (c < 0x800) return {2, {static_cast<char>(0xC0 | (c >> 6)), static_cast<char>(0x80 | (c & 0x3F))}};
  return {3, {static_cast<char>(0xE0 | (c >> 12)), static_cast<char>(0x80 | ((c >> 6) & 0x3F)),
              static_cast<char>(0x80 | (c & 0x3F))}};
}

// The UTF-8 form of every byte from 0x80 up; the bytes below stand for themselves.
constexpr auto kHighUtf8 = [] {
  std::array<Utf8Form, 128> forms{};
  for (std::size_t b = 0; b < forms.size(); ++b) forms[b] = EncodeUtf8(ToCodePoint(static_cast<unsigned char>(0x80 + b)));
  return forms;
}();

std::optional<char> FromCodePoint(char32_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
  for (std::size_t i = 0; i < kHigh.size(); ++i)
    if (kHigh[i] == c) return static_cast<char>(0x80 + i);
  return std::nullopt;
}

// Decodes one UTF-8 sequence at `i`; nothing on a malformed one.
std::optional<char32_t> NextCodePoint(std::string_view s, std::size_t& i) {
  const auto b = static_cast<unsigned char>(s[i]);
  const int extra = b < 0x80 ? 0 : (b >> 5) == 0x6 ? 1 : (b >> 4) == 0xE ? 2 : (b >> 3) == 0x1E ? 3 : -1;
  if (extra < 0) return std::nullopt;
  char32_t c = extra == 0 ? b : (b & (0x3F >> extra));
  for (int k = 1; k <= extra; ++k) {
    if (i + static_cast<std::size_t>(k) >= s.size()) return std::nullopt;
    const auto cont = static_cast<unsigned char>(s[i + static_cast<std::size_t>(k)]);
    if ((cont >> 6) != 0x2) return std::nullopt;
    c = (c << 6) | (cont & 0x3F);
  }
  i += static_cast<std::size_t>(extra) + 1;
  return c;
}

}  // namespace

std::string Cp1252ToUtf8(std::string_view bytes) {
  std::string out(bytes.size() * kMaxUtf8PerCp1252, '\0');
  out.resize(static_cast<std::size_t>(Cp1252ToUtf8(bytes, out.data()) - out.data()));
  return out;
}

// ASCII, most of any text, goes a word at a time.
char* Cp1252ToUtf8(std::string_view bytes, char* out) {
  using namespace words;
  const char* in = bytes.data();
  const char* const end = in + bytes.size();
  while (in < end) {
    if (end - in >= static_cast<std::ptrdiff_t>(kSize) && AllAscii(Load(in))) {
      Store(out, Load(in));
      in += kSize;
      out += kSize;
      continue;
    }
    const auto code = static_cast<unsigned char>(*in++);
    if (code < 0x80) {
      *out++ = static_cast<char>(code);
      continue;
    }
    const Utf8Form& f = kHighUtf8[code - 0x80];
    out = std::copy_n(f.bytes.begin(), f.size, out);
  }
  return out;
}

std::optional<std::string> Utf8ToCp1252(std::string_view utf8, char32_t* bad) {
  std::string out;
  for (std::size_t i = 0; i < utf8.size();) {
    const auto c = NextCodePoint(utf8, i);
    const auto b = c ? FromCodePoint(*c) : std::nullopt;
    if (!b) {
      if (bad) *bad = c.value_or(0xFFFD);
      return std::nullopt;
    }
    out += *b;
  }
  return out;
}

std::string Utf8ToCp1252Lossy(std::string_view utf8) {
  std::string out;
  for (std::size_t i = 0; i < utf8.size();) {
    const auto c = NextCodePoint(utf8, i);
    if (!c) ++i;
    const auto b = c ? FromCodePoint(*c) : std::nullopt;
    out += b.value_or('?');
  }
  return out;
}

}  // namespace cb
