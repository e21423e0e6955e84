#pragma once
// How the slide window names its picture file and its caption.

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

}  // namespace cb
