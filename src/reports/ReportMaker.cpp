// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/ReportMaker.h"

#include <array>

#include "model/Categories.h"
#include "reports/SubReportPage.h"
#include "reports/ValueMatrix.h"
#include "storage/SifReader.h"

namespace cb {
namespace {

struct TemplateLabel {
  std::int32_t slideTemplate;
  std::string_view label;
};

constexpr std::array<TemplateLabel, 3> kGroupLabels{{{1, "Location"}, {2, "Suburb"}, {3, "Year"}}};

// The record loops count in 16 bits, and a collection needs its header.
RtError CheckSlides(const SlideArray& slides) {
  if (slides.empty()) return RtError::SubscriptOutOfRange;
  if (static_cast<long>(slides.size()) - 1 > kMaxRecords) return RtError::Overflow;
  return RtError::None;
}

}  // namespace

std::optional<std::string_view> GroupLabel(std::int32_t slideTemplate) {
  for (const auto& row : kGroupLabels)
    if (row.slideTemplate == slideTemplate) return row.label;
  return std::nullopt;
}

Status MakeSummaryPage(const ReportSource& in, ReportKind kind, std::string_view source, std::string& page) {
  const SlideArray& slides = *in.slides;
  if (const RtError e = CheckSlides(slides); e != RtError::None) return {e, source};
  KeyList categories(1), locations(1);
  GetCategories(slides, categories);
  GetLocations(slides, locations);
  const bool byCategory = kind == ReportKind::ByCategory;
  const KeyList& groups = byCategory ? categories : locations;
  const KeyList& entries = byCategory ? locations : categories;

  ValueMatrix matrix(static_cast<std::int32_t>(groups.size()) - 1, static_cast<std::int32_t>(entries.size()) - 1);
  const Field groupField = byCategory ? Field::Category : Field::Location;
  const Field entryField = byCategory ? Field::Location : Field::Category;
  if (const RtError e = SumValues(slides, groupField, entryField, groups, entries, matrix); e != RtError::None)
    return {e, source};

  page.clear();
  if (const auto label = GroupLabel(in.slideTemplate)) {
    SummaryPageInput p;
    p.kind = kind;
    p.matrix = &matrix;
    p.groups = &groups;
    p.entries = &entries;
    p.groupLabel = std::string(*label);
    p.font = in.font;
    p.filePath = in.filePath;
    p.dateText = GeneralDateNow(*in.locale);
    p.locale = in.locale;
    page = WriteSummaryPage(p);
  }
  return {};
}

Status MakeSubReportPage(const ReportSource& in, ReportKind kind, const std::string& key, std::string_view source,
                         std::string& page) {
  if (const RtError e = CheckSlides(*in.slides); e != RtError::None) return {e, source};
  RtError e = RtError::None;
  const SlideArray subset =
      SelectSlides(*in.slides, kind == ReportKind::ByCategory ? Field::Category : Field::Location, key, e);
  if (e != RtError::None) return {e, source};

  page.clear();
  if (const auto label = GroupLabel(in.slideTemplate)) {
    SubReportPageInput p;
    p.kind = kind;
    p.subset = &subset;
    p.key = key;
    p.groupLabel = std::string(*label);
    p.font = in.font;
    p.filePath = in.filePath;
    p.locale = in.locale;
    page = WriteSubReportPage(p);
  }
  return {};
}

}  // namespace cb
