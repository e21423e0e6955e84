// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Eight bytes taken as one word, for scans that treat every byte alike: the
// byte order of the load plays no part in any of these.

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace cb::words {

inline constexpr std::size_t kSize = 8;
inline constexpr std::uint64_t kOnes = 0x0101010101010101u;
inline constexpr std::uint64_t kHighBits = kOnes * 0x80;

// `c` in every byte.
constexpr std::uint64_t Repeated(char c) { return kOnes * static_cast<unsigned char>(c); }

inline std::uint64_t Load(const char* p) {
  std::uint64_t w;
  std::memcpy(&w, p, sizeof w);
  return w;
}

inline void Store(char* p, std::uint64_t w) { std::memcpy(p, &w, sizeof w); }

// Whether a byte of `w` is `c`.
constexpr bool HasByte(std::uint64_t w, char c) {
  const std::uint64_t x = w ^ Repeated(c);
  return ((x - kOnes) & ~x & kHighBits) != 0;
}

constexpr bool AllAscii(std::uint64_t w) { return (w & kHighBits) == 0; }

}  // namespace cb::words
