// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/SummaryPage.h"

#include <cmath>
#include <utility>
#include <vector>

#include "reports/PageCells.h"

namespace cb {
namespace {

constexpr PageHeadMarkup kHead{false,
                               {"<b><font face='", "' size=2>", "</font></b></td>"},
                               {"<font size=3 face='", "'><u><b>", "</b></u></font></td>"}};
constexpr CellMarkup kColumnHeading{"<b><u><font size='2' face='", "'>", "</u></b></td>"};
constexpr CellMarkup kText{"<font size='2' face='", "'>", "</td>"};
constexpr CellMarkup kTotal{"<b><font size='2' face='", "'>", "</b></td>"};
constexpr char kCategoryColumn[] = "Category";
constexpr char kGroupWidth[] = "16%", kWidth[] = "25%";

void AppendGroupRows(std::string& page, const SummaryPageInput& in, double& grandTotal) {
  const ValueMatrix& m = *in.matrix;
  const KeyList& groups = *in.groups;
  const KeyList& entries = *in.entries;
  const ReportLocale& locale = *in.locale;
  PageCells cells(page, in.font, true);
  const auto amount = [&](const std::string& text) { cells.Cell(kWidth, CellAlign::Right, kText, text); };
  std::vector<std::pair<std::int32_t, double>> rows;  // the entries with a value, in order
  for (std::int32_t g = 1; g < static_cast<std::int32_t>(groups.size()); ++g) {
    rows.clear();
    // Cells never written are empty and read as 0: they make no row.
    for (const std::int32_t e : m.WrittenEntries(g))
      if (const double v = LeadingNumber(m.Cell(g, e)); v != 0) rows.emplace_back(e, v);
    const auto count = static_cast<std::int32_t>(rows.size());  // CountRowEntries of the group

    page += "<tr>";
    const std::string& group = groups[static_cast<std::size_t>(g)];
    cells.Cell(kGroupWidth, CellAlign::None, kText,
               "<a href='file:///" + in.filePath + "?" + group + "'>" + group + "</a>");
    double groupTotal = 0;
    std::int32_t row = 1;
    for (const auto& [e, v] : rows) {
      AddSkippingOverflow(groupTotal, v);
      // The first row shares the group's "<tr>"; later rows open none.
      if (row > 1) cells.Cell(kGroupWidth, CellAlign::None, kText);
      cells.Cell(kWidth, CellAlign::None, kText, entries[static_cast<std::size_t>(e)]);
      if (row == 1 && count > 1) {
        amount(AmountText(v, locale));
        amount("");
      } else if (row == 1) {
        amount("");
        amount(AmountText(v, locale));
      } else {
        amount(AmountText(v, locale));
        amount(row == count ? AmountText(groupTotal, locale) : "");
      }
      page += "</tr>";
      ++row;
    }
    AddSkippingOverflow(grandTotal, groupTotal);
  }
}

}  // namespace

std::string WriteSummaryPage(const SummaryPageInput& in) {
  const bool byCategory = in.kind == ReportKind::ByCategory;
  const std::string firstColumn = byCategory ? kCategoryColumn : in.groupLabel;
  const std::string secondColumn = byCategory ? in.groupLabel : kCategoryColumn;

  std::string p;
  AppendPageStart(p, in.font, kHead,
                  byCategory ? "<title>Report By Category</title>" : "<title>Report By Location</title>", in.dateText,
                  "Slide Summary Report", byCategory ? "By Category" : "By " + in.groupLabel);
  p += "<br>";
  PageCells cells(p, in.font, true);
  p += "<tr>";
  cells.Cell(kWidth, CellAlign::None, kColumnHeading, firstColumn);
  cells.Cell(kWidth, CellAlign::None, kColumnHeading, secondColumn);
  cells.Cell(kWidth, CellAlign::Right, kColumnHeading, "Sub-Total");
  cells.Cell(kWidth, CellAlign::Right, kColumnHeading, "Total");
  p += "</tr>";
  double grandTotal = 0;
  AppendGroupRows(p, in, grandTotal);
  cells.TotalRow(kWidth, kTotal, 0, AmountText(grandTotal, *in.locale));
  AppendPageEnd(p);
  return p;
}

}  // namespace cb
