// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/ViewerRules.h"

namespace cb {
namespace {

struct TitleAction {
  std::string_view title;
  LinkAction action;
};

// The titles the page writers give their pages. A report by location keeps
// its title for every template; its sub-reports take the template's word.
constexpr std::array<TitleAction, 6> kTitles{{
    {"Report By Category", LinkAction::SubReportByCategory},
    {"Report By Location", LinkAction::SubReportByLocation},
    {"Sub-Report By Category", LinkAction::CategorySlide},
    {"Sub-Report By Location", LinkAction::LocationSlide},
    {"Sub-Report By Year", LinkAction::LocationSlide},
    {"Sub-Report By Suburb", LinkAction::LocationSlide},
}};

struct Fallback {
  std::string_view face;
  std::array<std::string_view, 4> families;  // unused places left empty
};

// Metric-compatible Liberation fonts first, then the URW clones, then DejaVu,
// which every Debian desktop has.
constexpr std::array<Fallback, 5> kFallbacks{{
    {"Arial Narrow", {"Liberation Sans Narrow", "Nimbus Sans Narrow", "DejaVu Sans Condensed", "DejaVu Sans"}},
    {"Arial", {"Liberation Sans", "Nimbus Sans", "DejaVu Sans"}},
    {"Courier New", {"Liberation Mono", "Nimbus Mono PS", "DejaVu Sans Mono"}},
    {"Garamond", {"EB Garamond", "C059", "DejaVu Serif"}},
    {"Tahoma", {"DejaVu Sans"}},  // the same humanist cut
}};

}  // namespace

LinkAction LinkActionForTitle(std::string_view title) {
  for (const auto& row : kTitles)
    if (row.title == title) return row.action;
  return LinkAction::None;
}

std::optional<std::string> LinkKey(std::string_view href) {
  const auto q = href.find('?');
  if (q == std::string_view::npos) return std::nullopt;
  return std::string(href.substr(q + 1));
}

std::string RowsOpened(std::string_view page) {
  static constexpr std::string_view kRowEnd = "</tr>", kCell = "<td";
  std::string out;
  out.reserve(page.size());
  std::size_t copied = 0;
  for (auto at = page.find(kRowEnd); at != std::string_view::npos; at = page.find(kRowEnd, copied)) {
    const std::size_t after = at + kRowEnd.size();
    out.append(page.substr(copied, after - copied));
    if (page.substr(after).starts_with(kCell)) out += "<tr>";
    copied = after;
  }
  out.append(page.substr(copied));
  return out;
}

std::span<const std::string_view> FontFallbacks(std::string_view face) {
  for (const auto& row : kFallbacks) {
    if (row.face != face) continue;
    std::size_t n = 0;
    while (n < row.families.size() && !row.families[n].empty()) ++n;
    return std::span(row.families).first(n);
  }
  return {};
}

}  // namespace cb
