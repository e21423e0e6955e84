// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/SubReportPage.h"

#include <cmath>

#include "base/Text.h"
#include "reports/PageCells.h"

namespace cb {
namespace {

// The date cell of a sub-report has always shown this day, not today.
constexpr char kFixedDate[] = "15/Jun/2001";
// Nothing reads this form; it stands in the pages by category only.
constexpr const char* kCategoryForm =
    "<form method='POST' name='frmReport'>"
    "<p>&nbsp;</p>"
    "<input type='hidden' name='ReportType' value='Sub'>"
    "</form>";

constexpr PageHeadMarkup kHead{true,
                               {"<b><font sans unicode size='2' face='", "'>", "</font></b></td>"},
                               {"<u><b><font size='3' sans unicode face='", "'>", "</font></b></u></td>"}};
constexpr CellMarkup kKey{"<b><font face='", "' size='3'>", "</font></b></td>"};
constexpr CellMarkup kColumnHeading{"<b><u><font size='2' face='", "'>", "</font></u></b></td>"};
constexpr CellMarkup kValueHeading{"<b><u><font size='2' face='", "'>", "</u></b></font></td>"};
constexpr CellMarkup kText{"<font size='2' face='", "'>", "</font></td>"};
constexpr CellMarkup kLink{"<font face='", "' size='2'>", "</font></td>"};
constexpr CellMarkup kTotal{"<b><font size='2' face='", "'>", "</b></font></td>"};
constexpr char kWidth[] = "20%";

constexpr Field kCopied[] = {Field::Category, Field::PictureFile, Field::Location, Field::Serial, Field::SlideText};

void AppendRows(std::string& p, const SubReportPageInput& in, double& total) {
  const SlideArray& subset = *in.subset;
  PageCells cells(p, in.font, true);
  for (std::size_t i = 1; i < subset.size(); ++i) {
    const SlideRecord& s = subset[i];
    p += "<tr>";
    // The other grouping field: a location trimmed, a category with its padding.
    cells.Cell(kWidth, CellAlign::None, kText,
               in.kind == ReportKind::ByCategory ? Trim(s.Get(Field::Location)) : s.Get(Field::Category));
    cells.Cell(kWidth, CellAlign::None, kLink,
               "<a href='file:///" + in.filePath + "?" + Trim(s.Get(Field::PictureFile)) + "'>" +
                   Trim(s.Get(Field::SlideText)) + "</a>");
    // Only a serial that reads wholly as a number other than 0 is shown.
    const std::string serial = s.Get(Field::Serial);
    const auto number = StrictNumber(serial, *in.locale);
    cells.Cell(kWidth, CellAlign::None, kText, !number || *number == 0 ? std::string() : serial);
    cells.Empty(kWidth, 1);
    const std::string value = s.Get(Field::Value);
    cells.Cell(kWidth, CellAlign::Right, kText, value);
    AddSkippingOverflow(total, LeadingNumber(value));
    p += "</tr>";
  }
}

}  // namespace

SlideArray SelectSlides(const SlideArray& slides, Field keyField, const std::string& key, RtError& error) {
  SlideArray subset(1);
  for (std::size_t i = 1; i < slides.size(); ++i) {
    const SlideRecord& s = slides[i];
    if (Trim(s.Get(keyField)) != key) continue;
    SlideRecord& copy = subset.emplace_back();
    for (Field field : kCopied) copy.Set(field, Trim(s.Get(field)));
    const double v = LeadingNumber(Trim(s.Get(Field::Value)));
    if (!std::isfinite(v)) {
      error = RtError::Overflow;
      subset.pop_back();
      return subset;
    }
    copy.Set(Field::Value, NumberText(v));
  }
  return subset;
}

std::string WriteSubReportPage(const SubReportPageInput& in) {
  const bool byCategory = in.kind == ReportKind::ByCategory;
  const std::string& label = in.groupLabel;
  const std::string group = byCategory ? "Category" : label;

  std::string p;
  AppendPageStart(p, in.font, kHead, "<title>Sub-Report By " + group + "</title>", kFixedDate, "Slide Detail Report",
                  "By " + group);
  PageCells cells(p, in.font, true);
  const auto spacer = [&] {
    p += "<tr>";
    cells.Plain(kWidth, CellAlign::None, "<br>");
    cells.Empty(kWidth, 4);
    p += "</tr>";
  };
  spacer();
  p += "<tr>";
  cells.Cell(kWidth, CellAlign::None, kKey, group + ":");
  cells.Cell(kWidth, CellAlign::None, kKey, in.key);
  cells.Empty(kWidth, 3);
  p += "</tr>";
  spacer();
  p += "<tr>";
  cells.Cell(kWidth, CellAlign::None, kColumnHeading, byCategory ? label : "Category");
  cells.Cell(kWidth, CellAlign::Left, kColumnHeading, "Slide Text");
  cells.Cell(kWidth, CellAlign::Left, kColumnHeading, "Serial Number");
  cells.Empty(kWidth, 1);
  cells.Cell(kWidth, CellAlign::Right, kValueHeading, "Value");
  p += "</tr>";
  double total = 0;
  AppendRows(p, in, total);
  cells.TotalRow(kWidth, kTotal, 1, NumberText(total));
  AppendPageEnd(p, byCategory ? kCategoryForm : "");
  return p;
}

}  // namespace cb
