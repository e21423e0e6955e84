// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The per-character scrambling of the data files: code c becomes 256 - c,
// so it is its own inverse. On disk, blank is byte 224 and byte 32 is padding.

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

#include "base/Bytes16.h"

namespace cb {

// Scrambles the first n characters of `input`, where n is the length of the
// blank-trimmed input: leading blanks thus cost as many characters at the end.
// NUL has no scrambled form and is left out.
std::string ScrambleField(std::string_view input);

// Unscrambles every character, skipping blanks (padding) and NULs.
std::string UnscrambleField(std::string_view input);

// The same on a fixed-width field in place, which ends padded with blanks
// as an assignment pads it. `trimFirst` scrambles the trimmed text instead.
void ScrambleInPlace(std::span<char> field, bool trimFirst);

// Unscrambles the stored field [in, in + width) into `out`, which does not
// overlap it: the text UnscrambleField gives, then blanks up to `width`, as
// an assignment pads a field. Returns the length of the text.
std::size_t UnscrambleTo(const char* in, std::size_t width, char* out);

// The reading and writing of a stored field goes sixteen bytes at a time,
// up to this many bytes past the end of the field.
inline constexpr std::size_t kUnscrambleSpill = bytes16::kSize;

// The unscrambled text of a stored field at `in`: byte i, and sixteen bytes
// from byte i on.
struct StoredText {
  const char* in;
  char operator[](std::size_t i) const { return static_cast<char>(-in[i]); }
  bytes16::Lanes operator()(std::size_t i) const { return bytes16::Negate(bytes16::Load(in + i)); }
};

// A stored field of `Width` bytes read sixteen at a time, unscrambled. A
// field is mostly its text, then padding; one that is so is Plain, and its
// text is the first size() bytes of its runs.
template <std::size_t Width>
class StoredField {
 public:
  static constexpr std::size_t kRuns = (Width + bytes16::kSize - 1) / bytes16::kSize;

  explicit StoredField(const char* in) : in_(in) {
    using namespace bytes16;
    Mask gaps = ~Mask{} << Width;  // past the field
#pragma GCC unroll 8
    for (std::size_t k = 0; k < kRuns; ++k) {
      const Lanes v = Load(in + k * kSize);
      gaps |= Mask{Bits(Equal(And(v, ~' '), '\0'))} << (k * kSize);  // blank or NUL
      runs_[k] = Negate(v);
    }
    const Mask first = gaps & (~gaps + 1);
    size_ = CountZeros(first);
    plain_ = (gaps & (gaps + first)) == 0;  // the gaps run on to the top
  }

  bool Plain() const { return plain_; }
  std::size_t size() const { return size_; }
  const bytes16::Lanes& Run(std::size_t k) const { return runs_[k]; }
  // How many of run k's bytes are text, and their bits.
  std::size_t TextIn(std::size_t k) const {
    const std::size_t from = k * bytes16::kSize;
    return size_ <= from ? 0 : std::min(size_ - from, bytes16::kSize);
  }
  unsigned TextBits(std::size_t k) const { return bytes16::LowBits(TextIn(k)); }
  // A Plain field's text, read again from the stored bytes.
  StoredText Text() const { return {in_}; }

  // Writes the field at `out` as UnscrambleTo does, with up to
  // kUnscrambleSpill bytes more, and returns the length of its text.
  std::size_t WriteTo(char* out) const {
    using namespace bytes16;
    if (!plain_) return UnscrambleTo(in_, Width, out);
#pragma GCC unroll 8
    for (std::size_t k = 0; k < kRuns; ++k) Store(out + k * kSize, FirstFrom(TextIn(k), runs_[k], Splat(' ')));
    return size_;
  }

 private:
  __extension__ using Wide = unsigned __int128;
  // A bit for each byte, past the field too.
  using Mask = std::conditional_t<(Width < 64), std::uint64_t, Wide>;
  static_assert(Width < 8 * sizeof(Mask));

  static std::size_t CountZeros(Mask m) {
    if constexpr (sizeof(Mask) == sizeof(std::uint64_t)) {
      return static_cast<std::size_t>(std::countr_zero(m));
    } else {
      const auto low = static_cast<std::uint64_t>(m);
      return low ? static_cast<std::size_t>(std::countr_zero(low))
                 : 64 + static_cast<std::size_t>(std::countr_zero(static_cast<std::uint64_t>(m >> 64)));
    }
  }

  const char* in_;
  bytes16::Lanes runs_[kRuns];
  std::size_t size_ = 0;
  bool plain_ = false;
};

}  // namespace cb
