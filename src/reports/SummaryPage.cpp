#include "reports/SummaryPage.h"

#include <cmath>
#include <utility>
#include <vector>

namespace cb {
namespace {


struct KindTexts {
  const char* title;
  const char* secondHeadingStart;  // the group label and kSecondHeadingEnd follow when not complete
  bool labelInHeading;
};

constexpr KindTexts kCategoryTexts{"<title>Report By Category</title>", "'><u><b>By Category</b></u></font></td>", false};
constexpr KindTexts kLocationTexts{"<title>Report By Location</title>", "'><u><b>By ", true};
constexpr char kSecondHeadingEnd[] = "</b></u></font></td>";
constexpr char kColumnHeadingEnd[] = "</u></b></td>";
constexpr char kCategoryColumn[] = "Category";

// Appends the cells, F standing for the font, as the pages write them.
class Cells {
 public:
  Cells(std::string& page, const std::string& font) : p_(page), f_(font) {}

  void GroupLink(const std::string& path, const std::string& key) {
    p_ += "<td width='16%'><font size='2' face='" + f_ + "'><a href='file:///" + path + "?" + key + "'>" + key +
          "</a></td>";
  }
  void BlankGroup() { p_ += "<td width='16%'><font size='2' face='" + f_ + "'></td>"; }
  void Entry(const std::string& key) { p_ += "<td width='25%'><font size='2' face='" + f_ + "'>" + key + "</td>"; }
  void Amount(const std::string& amount) {
    p_ += "<td width='25%'><p align='right'><font size='2' face='" + f_ + "'>" + amount + "</td>";
  }
  void NoAmount() { p_ += "<td width='25%'><p align='right'><font size='2' face='" + f_ + "'></td>"; }

 private:
  std::string& p_;
  const std::string& f_;
};

void AppendGroupRows(std::string& page, const SummaryPageInput& in, double& grandTotal) {
  const ValueMatrix& m = *in.matrix;
  const KeyList& groups = *in.groups;
  const KeyList& entries = *in.entries;
  const ReportLocale& locale = *in.locale;
  Cells cells(page, in.font);
  std::vector<std::pair<std::int32_t, double>> rows;  // the entries with a value, in order
  for (std::int32_t g = 1; g < static_cast<std::int32_t>(groups.size()); ++g) {
    rows.clear();
    // Cells never written are empty and read as 0: they make no row.
    for (const std::int32_t e : m.WrittenEntries(g))
      if (const double v = LeadingNumber(m.Cell(g, e)); v != 0) rows.emplace_back(e, v);
    const auto count = static_cast<std::int32_t>(rows.size());  // CountRowEntries of the group

    page += "<tr>";
    cells.GroupLink(in.filePath, groups[static_cast<std::size_t>(g)]);
    double groupTotal = 0;
    std::int32_t row = 1;
    for (const auto& [e, v] : rows) {
      AddSkippingOverflow(groupTotal, v);
      const std::string& entry = entries[static_cast<std::size_t>(e)];
      if (row == 1) {
        // The first row shares the group's "<tr>"; later rows open none.
        cells.Entry(entry);
        if (count > 1) {
          cells.Amount(AmountText(v, locale));
          cells.NoAmount();
        } else {
          cells.NoAmount();
          cells.Amount(AmountText(v, locale));
        }
      } else {
        cells.BlankGroup();
        cells.Entry(entry);
        cells.Amount(AmountText(v, locale));
        if (row == count)
          cells.Amount(AmountText(groupTotal, locale));
        else
          cells.NoAmount();
      }
      page += "</tr>";
      ++row;
    }
    AddSkippingOverflow(grandTotal, groupTotal);
  }
}

}  // namespace

std::string WriteSummaryPage(const SummaryPageInput& in) {
  const std::string& f = in.font;
  const KindTexts& kind = in.kind == ReportKind::ByCategory ? kCategoryTexts : kLocationTexts;
  const std::string firstColumn = in.kind == ReportKind::ByCategory ? kCategoryColumn : in.groupLabel;
  const std::string secondColumn = in.kind == ReportKind::ByCategory ? in.groupLabel : kCategoryColumn;

  std::string p(kReportPageHead);
  p += kind.title;
  p += "</head>";
  p += "<body  bgcolor='#00FFFF'>";
  p += "<table border=0 width=100% cellspacing=0 cellpadding=0>";
  p += "<tr>";
  p += "<td width=33%><b><font face='" + f + "' size=2>" + in.dateText + "</font></b></td>";
  p += "<td width=33%>";
  p += "<p align=center><font size=3 face='" + f + "'><u><b>Slide Summary Report</b></u></font></td>";
  p += "<td width=34%>";
  p += "<p align=right><b><font face='" + f + "' size=2></font></b></td>";
  p += "</tr>";
  p += "<tr>";
  p += "<td width=33%></td>";
  p += "<td width=33%>";
  p += "<p align=center><font size=3 face='" + f + kind.secondHeadingStart;
  if (kind.labelInHeading) p += in.groupLabel + kSecondHeadingEnd;
  p += "<td width=34%>";
  p += "<p align=right></td>";
  p += "</tr>";
  p += "</table>";
  p += "<table border=0 width=100% cellspacing=0 cellpadding=0>";
  p += "<br>";
  p += "<tr>";
  p += "<td width='25%'><b><u><font size='2' face='" + f + "'>" + firstColumn + kColumnHeadingEnd;
  p += "<td width='25%'><b><u><font size='2' face='" + f + "'>" + secondColumn + kColumnHeadingEnd;
  p += "<td width='25%'><p align='right'><b><u><font size='2' face='" + f + "'>Sub-Total</u></b></td>";
  p += "<td width='25%'><p align='right'><b><u><font size='2' face='" + f + "'>Total</u></b></td>";
  p += "</tr>";
  double grandTotal = 0;
  AppendGroupRows(p, in, grandTotal);
  p += "<tr>";
  p += "<td width='25%'><b><font size='2' face='" + f + "'>Total</b></td>";
  p += "<td width='25%'><b><font size='2' face='" + f + "'></b></td>";
  p += "<td width='25%'><p align='right'><b><font size='2' face='" + f + "'></b></td>";
  p += "<td width='25%'><p align='right'><b><font size='2' face='" + f + "'>" + AmountText(grandTotal, *in.locale) +
       "</b></td>";
  p += "</tr>";
  p += "</table>";
  p += "</body>";
  p += "</html>";
  return p;
}

}  // namespace cb
