// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The per-character scrambling of the data files: code c becomes 256 - c,
// so it is its own inverse. On disk, blank is byte 224 and byte 32 is padding.

#include <span>
#include <string>
#include <string_view>

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
void UnscrambleInPlace(std::span<char> field);

}  // namespace cb
