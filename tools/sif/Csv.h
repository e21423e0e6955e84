// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Comma-separated values after RFC 4180.

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace cb::sif {

using CsvRow = std::vector<std::string>;

// Appends one record of Windows-1252 fields to `out` in UTF-8, ending in
// CR LF. A field is quoted, with its quotes doubled, when it holds a comma,
// quote, CR or LF, or begins or ends with a blank.
void AppendCsvRecord(std::string& out, std::span<const std::string_view> cp1252Fields);

// Reads RFC 4180 text, also with LF or CR line ends and behind a UTF-8
// byte-order mark. Empty lines are skipped; a quoted field keeps its line
// breaks as written. False, with `message` naming the line, when a quoted
// field is not closed or text follows its closing quote.
bool ParseCsv(std::string_view text, std::vector<CsvRow>& rows, std::string& message);

}  // namespace cb::sif
