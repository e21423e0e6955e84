// SPDX-License-Identifier: GPL-3.0-or-later
#include "pack/Inventory.h"

#include <cstdio>

#include "base/Cp1252.h"
#include "base/Text.h"
#include "storage/DataAccess.h"

namespace cb::pack {
namespace {

// Header settings and the record fields whose width bounds them.
struct HeaderField {
  std::string Inventory::*from;
  std::string SifSettings::*to;
  std::string_view name;
  Field storedIn;
};

constexpr std::array<HeaderField, 3> kHeaderFields{{
    {&Inventory::BackgroundImage, &SifSettings::BackgroundImage, "backgroundImage", Field::PictureFile},
    {&Inventory::Wallpaper, &SifSettings::Wallpaper, "wallpaper", Field::SlideText},
    {&Inventory::ReportFont, &SifSettings::ReportFont, "reportFont", Field::Make},
}};

std::string CodePointName(char32_t c) {
  char buf[16];
  std::snprintf(buf, sizeof buf, "U+%04X", static_cast<unsigned>(c));
  return buf;
}

// The Windows-1252 bytes of one field, or nothing with `why` filled.
std::optional<std::string> ToField(std::string_view utf8, std::size_t width, std::string& why) {
  char32_t bad = 0;
  auto bytes = Utf8ToCp1252(RTrim(utf8), &bad);
  if (!bytes) {
    why = bad == 0xFFFD ? "not valid UTF-8, or a character Windows-1252 cannot hold"
                        : CodePointName(bad) + " is a character Windows-1252 cannot hold";
    return std::nullopt;
  }
  if (bytes->size() > width) {
    why = std::to_string(bytes->size()) + " characters, longer than the " + std::to_string(width) +
          " the field holds";
    return std::nullopt;
  }
  return bytes;
}

}  // namespace

std::string JsonKey(std::size_t column) {
  std::string key(kFields[column].name);
  key[0] = static_cast<char>(key[0] - 'A' + 'a');
  return key;
}

std::string FieldToUtf8(std::string_view bytes) { return Cp1252ToUtf8(RTrim(bytes)); }

Inventory ToInventory(const SifDocument& doc) {
  Inventory inv;
  inv.SlideTemplate = TemplateOf(doc);
  inv.BackgroundImage = FieldToUtf8(doc.Header.BackgroundImage);
  inv.Wallpaper = FieldToUtf8(doc.Header.Wallpaper);
  inv.ReportFont = FieldToUtf8(doc.Header.ReportFont);
  for (std::size_t i = 1; i < doc.Slides.size(); ++i) {
    SlideRow row;
    for (std::size_t c = 0; c < kFields.size(); ++c) row[c] = FieldToUtf8(doc.Slides[i].Get(kFields[c].field));
    inv.Slides.push_back(std::move(row));
  }
  return inv;
}

bool FromInventory(const Inventory& inv, std::optional<std::int32_t> templateOverride, SifSettings& settings,
                   SlideArray& slides, std::string& message) {
  SifSettings s;
  const std::int32_t tmpl = templateOverride.value_or(inv.SlideTemplate.value_or(1));
  if (tmpl < 1 || tmpl > 3) {
    message = "template " + std::to_string(tmpl) + " is outside 1 to 3; give --template";
    return false;
  }
  s.SlideTemplate = tmpl;
  std::string why;
  for (const auto& h : kHeaderFields) {
    const auto bytes = ToField(inv.*h.from, LayoutOf(h.storedIn).width, why);
    if (!bytes) {
      message = std::string(h.name) + ": " + why;
      return false;
    }
    s.*h.to = *bytes;
  }
  if (inv.Slides.size() > static_cast<std::size_t>(kMaxRecords)) {
    message = std::to_string(inv.Slides.size()) + " slides, more than the " +
              std::to_string(kMaxRecords) + " a file can hold";
    return false;
  }
  SlideArray out(inv.Slides.size() + 1);
  for (std::size_t i = 0; i < inv.Slides.size(); ++i) {
    for (std::size_t c = 0; c < kFields.size(); ++c) {
      const auto bytes = ToField(inv.Slides[i][c], kFields[c].width, why);
      if (!bytes) {
        message = "row " + std::to_string(i + 1) + ", " + std::string(kFields[c].name) + ": " + why;
        return false;
      }
      out[i + 1].Set(kFields[c].field, *bytes);
    }
  }
  settings = std::move(s);
  slides = std::move(out);
  return true;
}

}  // namespace cb::pack
