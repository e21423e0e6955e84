// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Sixteen bytes taken as one value, for scans of fixed-width fields and of
// the text made from them: SSE2 on x86-64, plain bytes elsewhere, with the
// same results. A comparison gives 0xFF in each byte where it holds.

#include <array>
#include <cstddef>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace cb::bytes16 {

inline constexpr std::size_t kSize = 16;

// Bit i is set for each of the first n bytes.
constexpr unsigned LowBits(std::size_t n) { return n >= kSize ? 0xFFFFu : (1u << n) - 1; }

// The plain form, which every machine has: the one used where SSE2 is
// missing, and the one the vector form is checked against.
namespace plain {

struct Lanes {
  std::array<unsigned char, kSize> b;
};

inline Lanes Load(const char* p) {
  Lanes v;
  std::memcpy(v.b.data(), p, kSize);
  return v;
}
inline void Store(char* p, Lanes v) { std::memcpy(p, v.b.data(), kSize); }
inline Lanes Splat(char c) {
  Lanes v;
  v.b.fill(static_cast<unsigned char>(c));
  return v;
}
inline Lanes Equal(Lanes v, char c) {
  for (auto& x : v.b) x = x == static_cast<unsigned char>(c) ? 0xFF : 0;
  return v;
}
inline Lanes SignedBelow(Lanes v, char c) {
  for (auto& x : v.b) x = static_cast<signed char>(x) < c ? 0xFF : 0;
  return v;
}
inline Lanes Or(Lanes a, Lanes b) {
  for (std::size_t i = 0; i < kSize; ++i) a.b[i] |= b.b[i];
  return a;
}
inline Lanes And(Lanes v, char c) {
  for (auto& x : v.b) x &= static_cast<unsigned char>(c);
  return v;
}
inline Lanes Negate(Lanes v) {
  for (auto& x : v.b) x = static_cast<unsigned char>(-x);
  return v;
}
inline unsigned Bits(Lanes v) {
  unsigned bits = 0;
  for (std::size_t i = 0; i < kSize; ++i) bits |= (v.b[i] >> 7u) << i;
  return bits;
}
inline Lanes FirstFrom(std::size_t n, Lanes a, Lanes b) {
  for (std::size_t i = 0; i < n && i < kSize; ++i) b.b[i] = a.b[i];
  return b;
}

}  // namespace plain

#if defined(__SSE2__)

using Lanes = __m128i;

inline Lanes Load(const char* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
inline void Store(char* p, Lanes v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
inline Lanes Splat(char c) { return _mm_set1_epi8(c); }
inline Lanes Equal(Lanes v, char c) { return _mm_cmpeq_epi8(v, _mm_set1_epi8(c)); }
// Bytes below `c` taken as signed: the bytes from 0x80 up are below any of 0..127.
inline Lanes SignedBelow(Lanes v, char c) { return _mm_cmpgt_epi8(_mm_set1_epi8(c), v); }
inline Lanes Or(Lanes a, Lanes b) { return _mm_or_si128(a, b); }
inline Lanes And(Lanes v, char c) { return _mm_and_si128(v, _mm_set1_epi8(c)); }
// 256 - b in each byte: the scrambling of the data files.
inline Lanes Negate(Lanes v) { return _mm_sub_epi8(_mm_setzero_si128(), v); }
// The top bit of each byte, byte i as bit i.
inline unsigned Bits(Lanes v) { return static_cast<unsigned>(_mm_movemask_epi8(v)); }
// The first n bytes (n <= 16) from `a`, the rest from `b`.
inline Lanes FirstFrom(std::size_t n, Lanes a, Lanes b) {
  const Lanes first = _mm_cmpgt_epi8(_mm_set1_epi8(static_cast<char>(n)),
                                     _mm_setr_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15));
  return _mm_or_si128(_mm_and_si128(first, a), _mm_andnot_si128(first, b));
}

#else

using namespace plain;

#endif

}  // namespace cb::bytes16
