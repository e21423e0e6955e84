#include "reports/SubReportPage.h"

#include <cmath>

#include "base/Text.h"

namespace cb {
namespace {

// The date cell of a sub-report has always shown this day, not today.
constexpr char kFixedDate[] = "15/Jun/2001";
constexpr char kEmptyCell[] = "<td width='20%'></td>";
// Nothing reads this form; it stands in the pages by category only.
constexpr const char* kCategoryForm =
    "<form method='POST' name='frmReport'>"
    "<p>&nbsp;</p>"
    "<input type='hidden' name='ReportType' value='Sub'>"
    "</form>";

constexpr Field kCopied[] = {Field::Category, Field::PictureFile, Field::Location, Field::Serial, Field::SlideText};

void AppendRows(std::string& p, const SubReportPageInput& in, double& total) {
  const std::string& f = in.font;
  const SlideArray& subset = *in.subset;
  for (std::size_t i = 1; i < subset.size(); ++i) {
    const SlideRecord& s = subset[i];
    p += "<tr>";
    // The other grouping field: a location trimmed, a category with its padding.
    const std::string other =
        in.kind == ReportKind::ByCategory ? Trim(s.Get(Field::Location)) : s.Get(Field::Category);
    p += "<td width='20%'><font size='2' face='" + f + "'>" + other + "</font></td>";
    p += "<td width='20%'><font face='" + f + "' size='2'><a href='file:///" + in.filePath + "?" +
         Trim(s.Get(Field::PictureFile)) + "'>" + Trim(s.Get(Field::SlideText)) + "</a></font></td>";
    // Only a serial that reads wholly as a number other than 0 is shown.
    const std::string serial = s.Get(Field::Serial);
    const auto number = StrictNumber(serial, *in.locale);
    if (!number || *number == 0)
      p += "<td width='20%'><font size='2' face='" + f + "'></font></td>";
    else
      p += "<td width='20%'><font size='2' face='" + f + "'>" + serial + "</font></td>";
    p += kEmptyCell;
    p += "<td width='20%'>";
    const std::string value = s.Get(Field::Value);
    p += "<p align='right'><font size='2' face='" + f + "'>" + value + "</font></td>";
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
  const std::string& f = in.font;
  const bool byCategory = in.kind == ReportKind::ByCategory;
  const std::string& label = in.groupLabel;

  std::string p(kReportPageHead);
  p += byCategory ? std::string("<title>Sub-Report By Category</title>") : "<title>Sub-Report By " + label + "</title>";
  p += "</head>";
  p += "<body  bgcolor='#00FFFF'>";
  p += "<table border='0' width='100%' cellspacing='0' cellpadding='0'>";
  p += "<tr>";
  p += "<td width='33%'><b><font sans unicode size='2' face='" + f + "'>" + kFixedDate + "</font></b></td>";
  p += "<td width='33%'>";
  p += "<p align='center'><u><b><font size='3' sans unicode face='" + f +
       "'>Slide Detail Report</font></b></u></td>";
  p += "<td width='34%'>";
  p += "<p align='right'><b><font sans unicode size='2' face='" + f + "'></font></b></td>";
  p += "</tr>";
  p += "<tr>";
  p += "<td width='33%'></td>";
  p += "<td width='33%'>";
  p += "<p align='center'><u><b><font size='3' sans unicode face='" + f +
       (byCategory ? std::string("'>By Category</font></b></u></td>") : "'>By " + label + "</font></b></u></td>");
  p += "<td width='34%'>";
  p += "<p align='right'></td>";
  p += "</tr>";
  p += "</table>";
  p += "<table border='0' width='100%' cellspacing='0' cellpadding='0'>";
  p += "<tr>";
  p += "<td width='20%'><br></td>";
  for (int i = 0; i < 4; ++i) p += kEmptyCell;
  p += "</tr>";
  p += "<tr>";
  p += "<td width='20%'><b><font face='" + f +
       (byCategory ? std::string("' size='3'>Category:</font></b></td>") : "' size='3'>" + label + ":</font></b></td>");
  p += "<td width='20%'><b><font face='" + f + "' size='3'>" + in.key + "</font></b></td>";
  for (int i = 0; i < 3; ++i) p += kEmptyCell;
  p += "</tr>";
  p += "<tr>";
  p += "<td width='20%'><br></td>";
  for (int i = 0; i < 4; ++i) p += kEmptyCell;
  p += "</tr>";
  p += "<tr>";
  p += "<td width='20%'><b><u><font size='2' face='" + f +
       (byCategory ? "'>" + label + "</font></u></b></td>" : std::string("'>Category</font></u></b></td>"));
  p += "<td width='20%'>";
  p += "<p align='left'><b><u><font size='2' face='" + f + "'>Slide Text</font></u></b></td>";
  p += "<td width='20%'>";
  p += "<p align='left'><b><u><font size='2' face='" + f + "'>Serial Number</font></u></b></td>";
  p += kEmptyCell;
  p += "<td width='20%'>";
  p += "<p align='right'><b><u><font size='2' face='" + f + "'>Value</u></b></font></td>";
  p += "</tr>";
  double total = 0;
  AppendRows(p, in, total);
  p += "<tr>";
  p += "<td width='20%'><b><font size='2' face='" + f + "'>Total</b></font></td>";
  p += "<td width='20%'><b><font size='2' face='" + f + "'></b></font></td>";
  p += "<td width='20%'>";
  p += "<p align='right'><b><font size='2' face='" + f + "'></b></font></td>";
  p += kEmptyCell;
  p += "<td width='20%'>";
  p += "<p align='right'><b><font size='2' face='" + f + "'>" + NumberText(total) + "</b></font></td>";
  p += "</tr>";
  p += "</table>";
  if (byCategory) p += kCategoryForm;
  p += "</body>";
  p += "</html>";
  return p;
}

}  // namespace cb
