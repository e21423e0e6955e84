// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One record of a Slide Information File: nine fixed-width text fields,
// 278 bytes. Record 0 of a collection is the file header, 1..n the slides.

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cb {

enum class Field { Spare, PictureFile, SlideText, Category, Location, Make, Model, Serial, Value };

struct FieldLayout {
  Field field;
  std::string_view name;
  std::size_t offset;
  std::size_t width;
};

inline constexpr std::size_t kRecordLength = 278;

// The fields in record order.
inline constexpr std::array<FieldLayout, 9> kFields{{
    {Field::Spare, "Spare", 0, 11},
    {Field::PictureFile, "PictureFile", 11, 26},
    {Field::SlideText, "SlideText", 37, 100},
    {Field::Category, "Category", 137, 26},
    {Field::Location, "Location", 163, 26},
    {Field::Make, "Make", 189, 26},
    {Field::Model, "Model", 215, 26},
    {Field::Serial, "Serial", 241, 26},
    {Field::Value, "Value", 267, 11},
}};

constexpr const FieldLayout& LayoutOf(Field f) { return kFields[static_cast<std::size_t>(f)]; }

// The places in kFields, for code that takes each field's width as a
// constant, in a fold over them.
using FieldPlaces = std::make_index_sequence<kFields.size()>;

class SlideRecord {
 public:
  using Bytes = std::array<char, kRecordLength>;

  // A never-assigned record holds NUL in every field.
  SlideRecord() { bytes_.fill('\0'); }

  // The whole fixed-width field, padding included.
  std::string Get(Field f) const;
  // The same without a copy.
  std::string_view View(Field f) const;
  // Assigns as a fixed-length field does: cut to the width or padded with blanks.
  void Set(Field f, std::string_view text);

  const Bytes& bytes() const { return bytes_; }
  Bytes& bytes() { return bytes_; }

  friend bool operator==(const SlideRecord&, const SlideRecord&) = default;

 private:
  Bytes bytes_;
};

// Element 0 is the header, elements 1..n the slides.
using SlideArray = std::vector<SlideRecord>;

}  // namespace cb
