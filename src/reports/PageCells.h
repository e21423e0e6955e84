// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The table cells of the report pages. The summary and the sub-report write
// their cells a little differently (quotes around values, the order of tags);
// each page's markup is kept byte for byte in its own CellMarkup constants.

#include <string>
#include <string_view>

namespace cb {

// The dress of a cell's text: `open`, the font's face, `mid`, the text, then
// `close` up to and including "</td>".
struct CellMarkup {
  std::string_view open;
  std::string_view mid;
  std::string_view close;
};

enum class CellAlign { None, Left, Center, Right };

// Appends cells to a page, the font's face filled into every markup.
class PageCells {
 public:
  // `quoted`: the widths and alignments in single quotes.
  PageCells(std::string& page, std::string_view face, bool quoted) : p_(page), face_(face), quoted_(quoted) {}

  // "<td width=W>", "<p align=A>" unless None, then the text in its markup.
  void Cell(std::string_view width, CellAlign align, const CellMarkup& markup, std::string_view text = {});
  // A cell that holds `inner` and no font.
  void Plain(std::string_view width, CellAlign align = CellAlign::None, std::string_view inner = {});
  // `count` empty cells of `width`.
  void Empty(std::string_view width, int count);
  // The last row: "Total", two empty cells, `gaps` cells with no font, the total at the right.
  void TotalRow(std::string_view width, const CellMarkup& markup, int gaps, std::string_view total);

 private:
  void Open(std::string_view width, CellAlign align);
  void Value(std::string_view v);

  std::string& p_;
  std::string_view face_;
  bool quoted_;
};

// How a page writes its head: the quotes of its tables and the markup of the
// date, the heading lines and the empty cell at the right.
struct PageHeadMarkup {
  bool quoted;
  CellMarkup date;  // also the empty cell right of the date
  CellMarkup heading;
};

// The page's start: the head with `titleTag`, the body, the heading table
// (the date and `heading`, then `subheading`), and the body table opened.
void AppendPageStart(std::string& page, std::string_view face, const PageHeadMarkup& markup, std::string_view titleTag,
                     std::string_view date, std::string_view heading, std::string_view subheading);

// The page's end: the body table closed, `trailer`, the body and the page closed.
void AppendPageEnd(std::string& page, std::string_view trailer = {});

}  // namespace cb
