// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A Slide Information File read from the path the user names, and written
// as a new file the way the program writes one.

#include <cstdint>
#include <optional>
#include <string>

#include "model/SlideRecord.h"
#include "storage/DataAccess.h"
#include "storage/SifReader.h"

namespace cb::pack {

// A file as a load sees it: the decoded header and the slides 1..n
// (element 0 keeps the header record as read, still scrambled).
using SifDocument = SifRead;

// The template of a document, or nothing when its text is no number.
std::optional<std::int32_t> TemplateOf(const SifDocument& doc);

// Reads `path` record by record as the program's load does, without creating
// or changing anything. False, with `message` naming the trouble, when the
// file cannot be read or a load of it would fail.
bool ReadSif(const std::string& path, SifDocument& doc, std::string& message);

// Reads `path` as ReadSif does but keeps no slide: `take` gets the slides of
// `span` a block at a time as stored, still scrambled, and `doc.Slides`
// keeps the header record alone.
bool ReadSifStored(const std::string& path, SifDocument& doc, const StoredBlocks& take, std::string& message,
                   SlideSpan span = {});

// Writes slides 1..n of `slides` (element 0 is ignored) and the four settings
// a save writes (the count is the slides') to `path` through the program's
// own save, as a file that File New started: the header fields the
// program leaves alone are NUL. The file is made beside `path` and moved into
// place, so a failure leaves nothing behind. An existing `path` is replaced
// only when `replace` is set. False with `message` filled on failure.
// A file replaced becomes the step `step` of its undo history, when given.
bool WriteSif(const std::string& path, const SifSettings& settings, const SlideArray& slides, bool replace,
              std::string& message, std::string_view step = {});

}  // namespace cb::pack
