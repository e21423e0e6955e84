// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// How the gallery and the slide window name a slide: its picture file, its
// caption, its tool tip and what a screen reader calls it.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace cb {

// The picture file a slide window opens: of the trimmed PictureFile, what
// stands before its first "." followed by its last four characters. A single
// dot and a three-letter extension pass unchanged; "a.b.jpg" gives "a.jpg".
// nullopt for a name with no ".", which the window then fails to open.
std::optional<std::string> SlidePictureName(std::string_view pictureFile);

// The slide window's caption for record `n`: "Slide 7", or "Slide 7 - " and
// the trimmed slide text when there is one whose first character is not NUL.
std::string SlideCaption(std::string_view slideText, std::int32_t n);

// Tool tip of a cell showing a slide: its trimmed text, or the invitation to
// click when that is empty. An empty cell reads kEmptyCellToolTip.
std::string SlideToolTip(std::string_view slideText);
inline constexpr std::string_view kEmptyCellToolTip = "Empty";
// What a screen reader calls the picture of slide `record`: "Slide 3:
// Television", or "Slide 3" when its trimmed text is empty. An empty cell is
// called kEmptyCellToolTip.
std::string SlideAccessibleName(std::int32_t record, std::string_view slideText);

}  // namespace cb
