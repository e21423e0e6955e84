// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The substring search under every query: the first of `needle` in
// [p, end). Sixteen places are tried at once by their first and last byte,
// and only the places where both agree are compared whole, so a scan of the
// folded text runs near the speed of reading it.

#include <cstddef>
#include <cstring>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace cb {

inline const char* FindBytes(const char* p, const char* end, std::string_view needle) {
  const std::size_t k = needle.size();
  if (k == 0) return p;
  if (static_cast<std::size_t>(end - p) < k) return nullptr;
  if (k == 1) return static_cast<const char*>(std::memchr(p, needle[0], static_cast<std::size_t>(end - p)));
#if defined(__SSE2__)
  const char* const n = needle.data();
  const __m128i first = _mm_set1_epi8(n[0]);
  const __m128i last = _mm_set1_epi8(n[k - 1]);
  // The places [at, at + 16) whose first and last byte both agree, as bits.
  const auto candidates = [&](const char* at) {
    const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at + k - 1));
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_and_si128(_mm_cmpeq_epi8(a, first), _mm_cmpeq_epi8(b, last))));
  };
  const auto verified = [&](const char* at, unsigned bits) -> const char* {
    for (; bits != 0; bits &= bits - 1) {
      const char* s = at + __builtin_ctz(bits);
      if (std::memcmp(s + 1, n + 1, k - 2) == 0) return s;
    }
    return nullptr;
  };
  const char* const begin = p;
  const char* const stop = end - (k - 1);  // the places a match can start are before it
  for (; stop - p >= 16; p += 16)
    if (const unsigned bits = candidates(p))
      if (const char* s = verified(p, bits)) return s;
  if (p == stop) return nullptr;
  // The last places: one block ending at `stop`, overlapping the ones already tried.
  if (stop - begin >= 16) {
    const char* const at = stop - 16;
    return verified(at, candidates(at) & (~0u << (p - at)));
  }
  for (; p < stop; ++p)
    if (p[0] == n[0] && p[k - 1] == n[k - 1] && std::memcmp(p + 1, n + 1, k - 2) == 0) return p;
  return nullptr;
#else
  return static_cast<const char*>(::memmem(p, static_cast<std::size_t>(end - p), needle.data(), k));
#endif
}

}  // namespace cb
