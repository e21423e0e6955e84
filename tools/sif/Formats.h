// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The two interchange formats of an inventory: CSV (the slides only, under a
// header row of the nine field names) and JSON (the settings and the slides).

#include <string>
#include <string_view>

#include "pack/Inventory.h"

namespace cb::sif {

enum class Format { Csv, Json };

// CSV is a header row of the field names in record order, then one row per
// slide, each field as text (see FieldToUtf8); these append the rows.
void AppendCsvHeader(std::string& out);
void AppendCsvSlide(std::string& out, const SlideRecord& slide);

// Reads slides from CSV whose first row names the columns: any of the nine
// fields, in any order and letter case; a field without a column is empty.
// The settings are left unknown. False with `message` on an unknown or
// repeated column, a row of the wrong length, or malformed CSV.
bool ImportCsv(std::string_view text, pack::Inventory& inv, std::string& message);

// An object of "template", "backgroundImage", "wallpaper", "reportFont" and
// "slides", an array of objects keyed by the field names in lower camel case.
std::string ExportJson(const pack::Inventory& inv);

// The reverse of ExportJson. Missing keys are empty, a missing or null
// template unknown. False with `message` on malformed JSON, an unknown key
// or a value of the wrong kind.
bool ImportJson(std::string_view text, pack::Inventory& inv, std::string& message);

}  // namespace cb::sif
