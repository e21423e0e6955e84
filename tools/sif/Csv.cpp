#include "Csv.h"

namespace cb::sif {
namespace {

bool NeedsQuotes(std::string_view f) {
  return f.find_first_of(",\"\r\n") != std::string_view::npos || (!f.empty() && (f.front() == ' ' || f.back() == ' '));
}

void AppendField(std::string& out, std::string_view f) {
  if (!NeedsQuotes(f)) {
    out += f;
    return;
  }
  out += '"';
  for (char c : f) {
    if (c == '"') out += '"';
    out += c;
  }
  out += '"';
}

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

// Steps over one line end (CR LF, LF or CR) at `i`.
void SkipLineEnd(std::string_view t, std::size_t& i) {
  if (t[i] == '\r' && i + 1 < t.size() && t[i + 1] == '\n') ++i;
  ++i;
}

}  // namespace

std::string WriteCsv(const std::vector<CsvRow>& rows) {
  std::string out;
  for (const auto& row : rows) {
    for (std::size_t c = 0; c < row.size(); ++c) {
      if (c) out += ',';
      AppendField(out, row[c]);
    }
    out += "\r\n";
  }
  return out;
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
