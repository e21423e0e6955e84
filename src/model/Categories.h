// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The category and location lists. No table of them is stored anywhere: a
// list is the set of values the slides hold at the moment of the call.

#include <cstdint>
#include <string>
#include <vector>

#include "model/SlideRecord.h"

namespace cb {

// A key list: element 0 is present and unused, keys stand at 1 and upward.
using KeyList = std::vector<std::string>;

// Appends to `list` the trimmed, non-blank Category values of slides 1..n of
// `slides`, each once (exact, case-sensitive comparison), in order of first
// appearance; entries already in `list` count as taken. Returns the number
// appended. `slides` must hold its header element; an empty `list` gets one.
std::int32_t GetCategories(const SlideArray& slides, KeyList& list);

// The same over the Location field.
std::int32_t GetLocations(const SlideArray& slides, KeyList& list);

}  // namespace cb
