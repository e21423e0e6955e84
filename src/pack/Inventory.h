// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The contents of a Slide Information File as UTF-8 text, the form in which
// they leave and enter the tool: what export writes and import reads.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pack/SifFile.h"

namespace cb::pack {

// One slide's nine fields in record order, UTF-8, trailing padding dropped.
using SlideRow = std::array<std::string, 9>;

struct Inventory {
  std::optional<std::int32_t> SlideTemplate;  // nothing when unknown
  std::string BackgroundImage;
  std::string Wallpaper;
  std::string ReportFont;
  std::vector<SlideRow> Slides;
};

// The record's field names in lower camel case: "spare", "pictureFile", ...
std::string JsonKey(std::size_t column);

// Windows-1252 text to UTF-8 with its trailing blanks dropped; leading blanks stay.
std::string FieldToUtf8(std::string_view bytes);

// The document as UTF-8.
Inventory ToInventory(const SifDocument& doc);

// Turns an inventory into the settings and slides of a new file. `templateOverride`
// wins over the inventory's own template; with neither, the template is 1.
// Refuses, with a message naming row and field, text that Windows-1252 cannot
// hold, text longer than its field and a template outside 1 to 3.
bool FromInventory(const Inventory& inv, std::optional<std::int32_t> templateOverride, SifSettings& settings,
                   SlideArray& slides, std::string& message);

}  // namespace cb::pack
