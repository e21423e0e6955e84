// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Comma-separated values after RFC 4180.

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/Bytes16.h"
#include "base/Cp1252.h"

namespace cb::sif {

using CsvRow = std::vector<std::string>;

// Appends one record of Windows-1252 fields to `out` in UTF-8, ending in
// CR LF. A field is quoted, with its quotes doubled, when it holds a comma,
// quote, CR or LF, or begins or ends with a blank.
void AppendCsvRecord(std::string& out, std::span<const std::string_view> cp1252Fields);

// Writes one such field at `out` and returns its end.
char* PutCsvField(char* out, std::string_view cp1252);

// The room a field of `size` bytes may take: each byte three in UTF-8, two
// quotes, and a run of 16 bytes written past its end.
constexpr std::size_t CsvFieldRoom(std::size_t size) { return size * kMaxUtf8PerCp1252 + 2 + bytes16::kSize; }

// The bytes, as bits, that may make a field other than its text: those that
// quote it and those beyond ASCII, with the other controls below CR.
inline unsigned CsvMayChange(bytes16::Lanes v) {
  using namespace bytes16;
  return Bits(Or(SignedBelow(v, '\r' + 1), Or(Equal(v, '"'), Equal(v, ','))));
}

// PutCsvField for a text of `size` bytes that `text` gives a byte at a time
// (text[i]) or sixteen (text(i), from byte i on, even past the end), into
// CsvFieldRoom(size) bytes: runs of plain text go out whole, and only a
// quote or a byte beyond ASCII splits one.
template <typename Text>
[[gnu::always_inline]] inline char* PutCsvFieldRuns(char* out, std::size_t size, Text text) {
  using namespace bytes16;
  unsigned special = 0;
  for (std::size_t i = 0; i < size && special == 0; i += kSize) {
    const Lanes v = text(i);
    special |= Bits(Or(Or(Equal(v, ','), Equal(v, '"')), Or(Equal(v, '\r'), Equal(v, '\n')))) & LowBits(size - i);
  }
  const bool quoted = special != 0 || (size > 0 && (text[0] == ' ' || text[size - 1] == ' '));
  if (quoted) *out++ = '"';
  for (std::size_t i = 0; i < size; i += kSize) {
    const Lanes v = text(i);
    const std::size_t n = std::min(kSize, size - i);
    const unsigned high = Bits(v) & LowBits(n);
    unsigned quotes = Bits(Equal(v, '"')) & LowBits(n);
    if ((high | quotes) == 0) {
      Store(out, v);
      out += n;
      continue;
    }
    // The bytes [from, to) of the run.
    std::size_t from = 0;
    const auto piece = [&](std::size_t to) {
      if ((high & LowBits(to) & ~LowBits(from)) == 0) {
        Store(out, text(i + from));
        out += to - from;
      } else {
        char run[kSize];
        Store(run, v);
        out = Cp1252ToUtf8(std::string_view(run + from, to - from), out);
      }
    };
    for (; quotes != 0; quotes &= quotes - 1) {
      const auto through = static_cast<std::size_t>(std::countr_zero(quotes)) + 1;
      piece(through);
      *out++ = '"';
      from = through;
    }
    piece(n);
  }
  if (quoted) *out++ = '"';
  return out;
}

// Reads RFC 4180 text, also with LF or CR line ends and behind a UTF-8
// byte-order mark. Empty lines are skipped; a quoted field keeps its line
// breaks as written. False, with `message` naming the line, when a quoted
// field is not closed or text follows its closing quote.
bool ParseCsv(std::string_view text, std::vector<CsvRow>& rows, std::string& message);

}  // namespace cb::sif
