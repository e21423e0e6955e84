// SPDX-License-Identifier: GPL-3.0-or-later
#include "Show.h"

#include <array>
#include <numeric>
#include <string_view>

#include "pack/Inventory.h"
#include "pack/TemplateLabels.h"

namespace cb::sif {
namespace {

using pack::FieldToUtf8;
using pack::kFieldLabels;
using pack::kTemplateNames;
using pack::LabelColumn;
using pack::SifDocument;
using pack::TemplateOf;

// Values start in one column, whatever the indent.
void Line(std::string& out, std::string_view indent, std::string_view label, std::string_view value) {
  std::string l = std::string(indent) + std::string(label) + ':';
  l.resize(std::max<std::size_t>(l.size() + 1, 18), ' ');
  out += l + std::string(value) + "\n";
}

std::string TemplateText(const SifDocument& doc) {
  const auto t = TemplateOf(doc);
  if (!t) return "\"" + FieldToUtf8(doc.Header.TemplateText) + "\" (no number)";
  if (*t >= 1 && *t <= 3) return std::to_string(*t) + " " + std::string(kTemplateNames[static_cast<std::size_t>(*t)]);
  return std::to_string(*t) + " (unknown; edited as Home Security)";
}

}  // namespace

std::string ShowText(const std::string& path, const SifDocument& doc, const SlideQuery& query) {
  std::string out;
  Line(out, "", "File", path);
  Line(out, "", "Template", TemplateText(doc));
  Line(out, "", "Background image", FieldToUtf8(doc.Header.BackgroundImage));
  Line(out, "", "Wallpaper", FieldToUtf8(doc.Header.Wallpaper));
  Line(out, "", "Report font", FieldToUtf8(doc.Header.ReportFont));
  Line(out, "", "Slides", std::to_string(doc.Slides.size() - 1));
  std::vector<std::int32_t> numbers(doc.Slides.size() - 1);
  std::iota(numbers.begin(), numbers.end(), 1);
  if (!query.Empty()) {
    numbers = SlideIndex(doc.Slides).Find(query);
    Line(out, "", "Found", FoundText(numbers.size(), doc.Slides.size() - 1, query));
  }

  const std::size_t column = LabelColumn(TemplateOf(doc).value_or(1));
  for (const std::int32_t i : numbers) {
    out += "\nSlide " + std::to_string(i) + "\n";
    for (const auto& l : kFieldLabels) {
      const std::string value = FieldToUtf8(doc.Slides[static_cast<std::size_t>(i)].Get(l.field));
      if (!value.empty()) Line(out, "  ", l.label[column], value);
    }
  }
  return out;
}

}  // namespace cb::sif
