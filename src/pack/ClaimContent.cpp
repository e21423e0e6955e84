// SPDX-License-Identifier: GPL-3.0-or-later
#include "pack/ClaimContent.h"

#include <cmath>
#include <filesystem>
#include <map>

#include "base/Cp1252.h"
#include "base/Text.h"
#include "model/Categories.h"
#include "pack/TemplateLabels.h"
#include "reports/ValueMatrix.h"

namespace cb::pack {
namespace {

namespace fs = std::filesystem;

// The fields of a slide's block, after its text, in the editor's order.
constexpr std::array<Field, 6> kBlockFields{Field::Category, Field::Location, Field::Serial,
                                            Field::Make,     Field::Model,    Field::Value};

// Text as shown: up to a NUL (a field never typed holds NULs), padding dropped.
std::string Shown(const std::string& field) { return Cp1252ToUtf8(RTrim(StripAtNul(field))); }

// The Value as a sub-report lists it: the number at its front, in at most
// the 11 characters of the field.
std::string SubReportValue(const std::string& value) {
  return NumberText(LeadingNumber(Trim(value))).substr(0, LayoutOf(Field::Value).width);
}

// A picture name the gallery can hold: one plain file name.
bool PlainName(const std::string& name) {
  return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos;
}

// A sum that would overflow keeps its last finite value, as the report's does.
void Add(double& total, double v) {
  if (const double t = total + v; std::isfinite(t)) total = t;
}

void AddGroups(const SlideArray& slides, ReportKind kind, const ReportLocale& locale, ClaimContent& c) {
  const bool byCategory = kind == ReportKind::ByCategory;
  const Field groupField = byCategory ? Field::Category : Field::Location;
  const Field entryField = byCategory ? Field::Location : Field::Category;
  KeyList categories(1), locations(1);
  GetCategories(slides, categories);
  GetLocations(slides, locations);
  const KeyList& groups = byCategory ? categories : locations;
  const KeyList& entries = byCategory ? locations : categories;
  ValueMatrix matrix(static_cast<std::int32_t>(groups.size()) - 1, static_cast<std::int32_t>(entries.size()) - 1);
  SumValues(slides, groupField, entryField, groups, entries, matrix);

  // A slide counts where the summary sums it: both its fields non-blank.
  std::map<std::string, std::int32_t> counts;
  for (std::size_t i = 1; i < slides.size(); ++i) {
    const std::string g = Trim(slides[i].Get(groupField));
    if (!g.empty() && !Trim(slides[i].Get(entryField)).empty())
      ++counts[g];
    else
      ++c.ungrouped;
  }
  double grand = 0;
  for (std::int32_t g = 1; g <= matrix.GroupBound(); ++g) {
    double total = 0;
    for (std::int32_t e = 1; e <= matrix.EntryBound(); ++e)
      if (const double v = LeadingNumber(matrix.Cell(g, e)); v != 0) Add(total, v);
    Add(grand, total);
    const std::string& key = groups[static_cast<std::size_t>(g)];
    c.groups.push_back({Cp1252ToUtf8(key), counts[key], AmountText(total, locale)});
  }
  c.grandTotal = AmountText(grand, locale);
  if (c.grandTotal.empty()) c.grandTotal = "0";
  c.grandTotal = Cp1252ToUtf8(c.grandTotal);
  for (auto& g : c.groups) g.total = Cp1252ToUtf8(g.total.empty() ? "0" : g.total);
}

}  // namespace

std::string DefaultGalleryDir(const std::string& filePath) {
  const fs::path dir = fs::absolute(filePath).lexically_normal().parent_path();
  return (dir.parent_path() / "Gallery").string();
}

ClaimContent MakeClaimContent(const SifDocument& doc, const std::string& filePath, const std::string& galleryDir,
                              ReportKind kind, const ReportLocale& locale, std::string_view where) {
  // Without a query the file's own slides, copied nowhere.
  const SlideQuery query = ParseQuery(where);
  std::vector<std::int32_t> numbers;
  const SlideArray matching = query.Empty() ? SlideArray() : MatchingSlides(doc.Slides, query, numbers);
  const SlideArray& slides = query.Empty() ? doc.Slides : matching;

  ClaimContent c;
  const std::int32_t t = TemplateOf(doc).value_or(1);
  c.fileName = fs::path(filePath).filename().string();
  c.templateName = kTemplateNames[LabelColumn(t) + 1];
  c.slideCount = static_cast<std::int32_t>(slides.size()) - 1;
  c.locationWord = LabelOf(Field::Location, t);
  c.groupWord = kind == ReportKind::ByCategory ? "Category" : c.locationWord;
  AddGroups(slides, kind, locale, c);

  for (std::size_t i = 1; i < slides.size(); ++i) {
    const SlideRecord& r = slides[i];
    ClaimSlide s;
    s.number = query.Empty() ? static_cast<std::int32_t>(i) : numbers[i - 1];
    s.text = Shown(r.Get(Field::SlideText));
    s.picture = Cp1252ToUtf8(Trim(StripAtNul(r.Get(Field::PictureFile))));
    if (PlainName(s.picture)) {
      s.picturePath = (fs::path(galleryDir) / s.picture).string();
      std::error_code ec;
      s.pictureFound = fs::is_regular_file(s.picturePath, ec);
    }
    for (const Field f : kBlockFields) {
      const std::string value = f == Field::Value ? SubReportValue(r.Get(f)) : Shown(r.Get(f));
      s.fields.push_back({std::string(LabelOf(f, t)), value});
    }
    c.slides.push_back(std::move(s));
  }
  return c;
}

}  // namespace cb::pack
