// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the report viewer reads from a page: the meaning of a link by the
// title of the page that holds it, the key behind its "?", and the rows
// and fonts it has to mend to show the page as a report.

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace cb {

// What following a link of a page does, by that page's title.
enum class LinkAction {
  None,                 // a page the viewer does not know: it closes
  SubReportByCategory,  // a summary's category link
  SubReportByLocation,  // a summary's location, suburb or year link
  CategorySlide,        // a sub-report's slide link
  LocationSlide,
};

LinkAction LinkActionForTitle(std::string_view title);

// All of `href` behind its first "?", as written ("#" and blanks included);
// nothing when there is no "?", and the link is an ordinary one.
std::optional<std::string> LinkKey(std::string_view href);

// `page` with a "<tr>" before every cell that follows a "</tr>": the later
// rows of a summary's group leave it out, which a web browser mends on its
// own and Qt's rich text does not. The file keeps its bytes; only the view
// is mended.
std::string RowsOpened(std::string_view page);

// The fonts offered for the pages, in the order of the list.
inline constexpr std::array<std::string_view, 5> kReportFonts{"Arial Narrow", "Arial", "Courier New", "Garamond",
                                                              "Tahoma"};
// The font of a file that has none stored.
inline constexpr std::string_view kDefaultReportFont = kReportFonts[0];

// Families of free fonts that look like `face`, best first, for a system
// without it; empty for a face the table does not know.
std::span<const std::string_view> FontFallbacks(std::string_view face);

}  // namespace cb
