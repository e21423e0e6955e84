// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The two interchange formats of an inventory: CSV (the slides only, under a
// header row of the nine field names) and JSON (the settings and the slides).

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "pack/Inventory.h"

namespace cb::sif {

enum class Format { Csv, Json };

// CSV is a header row of the field names in record order, then one row per
// slide, each field as text (see FieldToUtf8); these append the rows.
void AppendCsvHeader(std::string& out);
void AppendCsvSlide(std::string& out, const SlideRecord& slide);

// CSV rows written straight from stored, still scrambled slides into one
// buffer, each as AppendCsvSlide writes the slide decoded.
class CsvRows {
 public:
  // Appends the rows of `count` slides stored back to back at `stored`,
  // which has kUnscrambleSpill readable bytes after them.
  void Append(const char* stored, std::size_t count);
  // Makes room for `count` more slides at once.
  void Reserve(std::size_t count);
  std::string_view View() const { return {buffer_.get(), size_}; }
  void Clear() { size_ = 0; }

 private:
  std::unique_ptr<char[]> buffer_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

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
