// SPDX-License-Identifier: GPL-3.0-or-later
#include "Csv.h"

#include <cstdint>

#include "base/Cp1252.h"
#include "base/Words.h"

namespace cb::sif {
namespace {

bool IsSpecial(char c) { return c == ',' || c == '"' || c == '\r' || c == '\n'; }

bool NeedsQuotes(std::string_view f) {
  using namespace words;
  std::size_t i = 0;
  for (; i + kSize <= f.size(); i += kSize) {
    const std::uint64_t w = Load(f.data() + i);
    if (HasByte(w, ',') || HasByte(w, '"') || HasByte(w, '\r') || HasByte(w, '\n')) return true;
  }
  for (; i < f.size(); ++i)
    if (IsSpecial(f[i])) return true;
  return !f.empty() && (f.front() == ' ' || f.back() == ' ');
}

}  // namespace

// The characters that decide a field's quoting are ASCII, the same in
// Windows-1252 and UTF-8.
char* PutCsvField(char* out, std::string_view f) {
  if (!NeedsQuotes(f)) return Cp1252ToUtf8(f, out);
  *out++ = '"';
  for (auto quote = f.find('"'); quote != std::string_view::npos; quote = f.find('"')) {
    out = Cp1252ToUtf8(f.substr(0, quote), out);
    *out++ = '"';
    *out++ = '"';
    f.remove_prefix(quote + 1);
  }
  out = Cp1252ToUtf8(f, out);
  *out++ = '"';
  return out;
}

namespace {

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

// Steps over one line end (CR LF, LF or CR) at `i`.
void SkipLineEnd(std::string_view t, std::size_t& i) {
  if (t[i] == '\r' && i + 1 < t.size() && t[i + 1] == '\n') ++i;
  ++i;
}

}  // namespace

void AppendCsvRecord(std::string& out, std::span<const std::string_view> cp1252Fields) {
  // Room for the worst case: every byte three in UTF-8, quotes, commas, CR LF.
  std::size_t room = 2;
  for (auto f : cp1252Fields) room += f.size() * kMaxUtf8PerCp1252 + 3;
  const std::size_t at = out.size();
  out.resize(at + room);
  char* p = out.data() + at;
  for (std::size_t c = 0; c < cp1252Fields.size(); ++c) {
    if (c) *p++ = ',';
    p = PutCsvField(p, cp1252Fields[c]);
  }
  *p++ = '\r';
  *p++ = '\n';
  out.resize(static_cast<std::size_t>(p - out.data()));
}

bool ParseCsv(std::string_view text, std::vector<CsvRow>& rows, std::string& message) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  rows.clear();
  std::size_t line = 1;
  std::size_t i = 0;
  while (i < text.size()) {
    if (IsLineEnd(text[i])) {  // an empty line
      SkipLineEnd(text, i);
      ++line;
      continue;
    }
    CsvRow row;
    for (;;) {
      std::string field;
      if (i < text.size() && text[i] == '"') {
        const std::size_t opened = line;
        for (++i;; ++i) {
          if (i >= text.size()) {
            message = "line " + std::to_string(opened) + ": a quoted field is not closed";
            return false;
          }
          if (text[i] == '"') {
            if (i + 1 < text.size() && text[i + 1] == '"') {
              field += '"';
              ++i;
              continue;
            }
            ++i;
            break;
          }
          if (text[i] == '\n' || (text[i] == '\r' && (i + 1 >= text.size() || text[i + 1] != '\n'))) ++line;
          field += text[i];
        }
        if (i < text.size() && text[i] != ',' && !IsLineEnd(text[i])) {
          message = "line " + std::to_string(line) + ": text after the closing quote of a field";
          return false;
        }
      } else {
        const std::size_t end = text.find_first_of(",\r\n", i);
        const std::size_t stop = end == std::string_view::npos ? text.size() : end;
        field.assign(text.substr(i, stop - i));
        i = stop;
      }
      row.push_back(std::move(field));
      if (i < text.size() && text[i] == ',') {
        ++i;
        continue;
      }
      break;
    }
    rows.push_back(std::move(row));
    if (i < text.size()) {
      SkipLineEnd(text, i);
      ++line;
    }
  }
  return true;
}

}  // namespace cb::sif
