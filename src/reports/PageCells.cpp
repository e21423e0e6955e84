// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/PageCells.h"

namespace cb {
namespace {

// The head of every report page, up to its title.
constexpr std::string_view kReportPageHead =
    "<html>"
    "<head>"
    "<meta http-equiv='Content-Language' content='en-us'>"
    "<meta http-equiv='Content-Type' content='text/html; charset=windows-1252'>"
    "<meta name='GENERATOR' content='Microsoft FrontPage 4.0'>"
    "<meta name='ProgId' content='FrontPage.Editor.Document'>";

constexpr std::string_view kAlignNames[] = {"", "left", "center", "right"};

}  // namespace

void PageCells::Value(std::string_view v) {
  if (quoted_) p_ += '\'';
  p_ += v;
  if (quoted_) p_ += '\'';
  p_ += '>';
}

void PageCells::Open(std::string_view width, CellAlign align) {
  p_ += "<td width=";
  Value(width);
  if (align == CellAlign::None) return;
  p_ += "<p align=";
  Value(kAlignNames[static_cast<int>(align)]);
}

void PageCells::Cell(std::string_view width, CellAlign align, const CellMarkup& markup, std::string_view text) {
  Open(width, align);
  p_ += markup.open;
  p_ += face_;
  p_ += markup.mid;
  p_ += text;
  p_ += markup.close;
}

void PageCells::Plain(std::string_view width, CellAlign align, std::string_view inner) {
  Open(width, align);
  p_ += inner;
  p_ += "</td>";
}

void PageCells::Empty(std::string_view width, int count) {
  for (int i = 0; i < count; ++i) Plain(width);
}

void PageCells::TotalRow(std::string_view width, const CellMarkup& markup, int gaps, std::string_view total) {
  p_ += "<tr>";
  Cell(width, CellAlign::None, markup, "Total");
  Cell(width, CellAlign::None, markup);
  Cell(width, CellAlign::Right, markup);
  Empty(width, gaps);
  Cell(width, CellAlign::Right, markup, total);
  p_ += "</tr>";
}

void AppendPageStart(std::string& page, std::string_view face, const PageHeadMarkup& markup, std::string_view titleTag,
                     std::string_view date, std::string_view heading, std::string_view subheading) {
  const std::string_view table = markup.quoted ? "<table border='0' width='100%' cellspacing='0' cellpadding='0'>"
                                               : "<table border=0 width=100% cellspacing=0 cellpadding=0>";
  page += kReportPageHead;
  page += titleTag;
  page += "</head>";
  page += "<body  bgcolor='#00FFFF'>";
  page += table;
  PageCells cells(page, face, markup.quoted);
  page += "<tr>";
  cells.Cell("33%", CellAlign::None, markup.date, date);
  cells.Cell("33%", CellAlign::Center, markup.heading, heading);
  cells.Cell("34%", CellAlign::Right, markup.date);
  page += "</tr>";
  page += "<tr>";
  cells.Plain("33%");
  cells.Cell("33%", CellAlign::Center, markup.heading, subheading);
  cells.Plain("34%", CellAlign::Right);
  page += "</tr>";
  page += "</table>";
  page += table;
}

void AppendPageEnd(std::string& page, std::string_view trailer) {
  page += "</table>";
  page += trailer;
  page += "</body>";
  page += "</html>";
}

}  // namespace cb
