// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Windows-1252, the code page of the data files, to and from UTF-8.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace cb {

// Every byte has a character; the five unassigned codes map to the C1 controls.
std::string Cp1252ToUtf8(std::string_view bytes);

// The same written at `out`, which has room for kMaxUtf8PerCp1252 bytes for
// each of `bytes`; returns the end of what was written.
inline constexpr std::size_t kMaxUtf8PerCp1252 = 3;
char* Cp1252ToUtf8(std::string_view bytes, char* out);

// The bytes of `utf8` in Windows-1252, or nothing when a character has none
// there (or the text is no valid UTF-8). `bad` receives the offending code point.
std::optional<std::string> Utf8ToCp1252(std::string_view utf8, char32_t* bad = nullptr);

// Lossy: characters without a code become "?". For showing text, never for files.
std::string Utf8ToCp1252Lossy(std::string_view utf8);

}  // namespace cb
