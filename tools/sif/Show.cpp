#include "Show.h"

#include <array>
#include <string_view>

#include "Inventory.h"

namespace cb::sif {
namespace {

constexpr std::array<std::string_view, 4> kTemplateNames{"", "Home Security", "Real Estate", "Car Yard"};

// The label of a field in the editor of each template (Home Security, Real
// Estate, Car Yard), in the order the listing shows them.
struct FieldLabel {
  Field field;
  std::array<std::string_view, 3> label;
};

constexpr std::array<FieldLabel, 9> kLabels{{
    {Field::PictureFile, {"Picture", "Picture", "Picture"}},
    {Field::SlideText, {"Slide Text", "Slide Text", "Slide Text"}},
    {Field::Category, {"Category", "Category", "Category"}},
    {Field::Location, {"Location", "Suburb", "Year"}},
    {Field::Serial, {"Serial #", "Street", "Regn #"}},
    {Field::Make, {"Make", "Bedrooms", "Colour"}},
    {Field::Model, {"Model", "Extras", "Extras"}},
    {Field::Value, {"Total Value", "Ask Price", "Price"}},
    {Field::Spare, {"Spare", "Spare", "Spare"}},
}};

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

std::string ShowText(const std::string& path, const SifDocument& doc) {
  std::string out;
  Line(out, "", "File", path);
  Line(out, "", "Template", TemplateText(doc));
  Line(out, "", "Background image", FieldToUtf8(doc.Header.BackgroundImage));
  Line(out, "", "Wallpaper", FieldToUtf8(doc.Header.Wallpaper));
  Line(out, "", "Report font", FieldToUtf8(doc.Header.ReportFont));
  Line(out, "", "Slides", std::to_string(doc.Slides.size() - 1));

  const auto t = TemplateOf(doc).value_or(1);
  const std::size_t column = (t >= 1 && t <= 3) ? static_cast<std::size_t>(t - 1) : 0;
  for (std::size_t i = 1; i < doc.Slides.size(); ++i) {
    out += "\nSlide " + std::to_string(i) + "\n";
    for (const auto& l : kLabels) {
      const std::string value = FieldToUtf8(doc.Slides[i].Get(l.field));
      if (!value.empty()) Line(out, "  ", l.label[column], value);
    }
  }
  return out;
}

}  // namespace cb::sif
