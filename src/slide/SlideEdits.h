// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the slide editor reads from a slide when it opens and what its OK
// writes back. Text is Windows-1252; the cut to each field's width happens
// on assignment to the fixed-width field, without a word.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "model/SlideRecord.h"

namespace cb {

// The editable boxes' texts.
struct SlideEdits {
  std::string text, category, location, serial, make, model, value;
};

// The boxes on opening: each field trimmed, and cut at a NUL as a text box
// shows it (a never-assigned field opens empty).
SlideEdits EditsFromSlide(const SlideRecord& slide);

// `text` trimmed, each blank inside it made "_": "  Living Room " gives "Living_Room".
std::string BlanksToUnderscores(std::string_view text);

// The OK on record `n`: the slide text trimmed; category and location trimmed
// with blanks made "_"; serial, make and model as typed; the value through
// NumberText(LeadingNumber(...)), left as it was when the number overflows.
// Returns the status text "Slide: n (text)", or nothing, writing nothing,
// when `n` is no slide of `slides`.
std::optional<std::string> StoreEdits(const SlideEdits& typed, std::int32_t n, SlideArray& slides);

}  // namespace cb
