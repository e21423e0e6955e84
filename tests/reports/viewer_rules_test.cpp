// SPDX-License-Identifier: GPL-3.0-or-later
// What the viewer reads from a page: link keys, link meanings by page
// title, the rows it opens for display, the fonts it falls back to; its history.

#include <gtest/gtest.h>

#include <optional>
#include <set>

#include "model/WBStack.h"
#include "reports/ViewerRules.h"

namespace cb::testing {
namespace {

TEST(LinkKey, IsEverythingBehindTheFirstQuestionMarkAsWritten) {
  const std::pair<const char*, std::optional<std::string>> rows[] = {
      {"file:////home/ann/Files/Household.sif?Lounge", "Lounge"},
      {"file:////home/ann/Files/Household.sif?Kitchen #2", "Kitchen #2"},  // no fragment
      {"file:////home/ann/Files/Household.sif?a%20b", "a%20b"},            // no decoding
      {"file:////x.sif?Q?A", "Q?A"},
      {"file:////x.sif?", ""},
      {"file:////home/ann/Reports/Report1.htm", std::nullopt},
  };
  for (const auto& [href, key] : rows) EXPECT_EQ(LinkKey(href), key) << href;
}

TEST(LinkActionForTitle, FollowsThePageTitleExactly) {
  const std::pair<const char*, LinkAction> rows[] = {
      {"Report By Category", LinkAction::SubReportByCategory},
      {"Report By Location", LinkAction::SubReportByLocation},
      {"Sub-Report By Category", LinkAction::CategorySlide},
      {"Sub-Report By Location", LinkAction::LocationSlide},
      {"Sub-Report By Suburb", LinkAction::LocationSlide},
      {"Sub-Report By Year", LinkAction::LocationSlide},
      // The summaries keep "Location" for every template.
      {"Report By Suburb", LinkAction::None},
      {"report by category", LinkAction::None},
      {"", LinkAction::None},
  };
  for (const auto& [title, action] : rows) EXPECT_EQ(LinkActionForTitle(title), action) << title;
}

TEST(RowsOpened, OpensEveryRowThatFollowsAClosedOne) {
  const std::pair<const char*, const char*> rows[] = {
      {"<tr><td>a</td></tr><td>b</td></tr></table>", "<tr><td>a</td></tr><tr><td>b</td></tr></table>"},
      {"<tr><td>a</td></tr><tr><td>b</td></tr>", "<tr><td>a</td></tr><tr><td>b</td></tr>"},
      {"<tr><td>link</td><tr><td>x</td></tr>", "<tr><td>link</td><tr><td>x</td></tr>"},
      {"<p>no table</p>", "<p>no table</p>"},
      {"</tr>", "</tr>"},
  };
  for (const auto& [page, viewed] : rows) EXPECT_EQ(RowsOpened(page), viewed) << page;
}

TEST(FontFallbacks, EveryOfferedFontEndsInAFontDebianAlwaysHas) {
  const std::set<std::string_view> debian{"DejaVu Sans", "DejaVu Sans Mono", "DejaVu Serif"};
  for (const std::string_view face : kReportFonts) {
    const auto families = FontFallbacks(face);
    EXPECT_TRUE(!families.empty() && debian.contains(families.back())) << face;
  }
  EXPECT_TRUE(FontFallbacks("Comic Sans MS").empty());
}

TEST(WBStack, BackForwardAndPushDropsTheForwardHistory) {
  const std::tuple<int, const char*, const char*, int, int> steps[] = {
      {2, "", "", 0, 0},   {1, "", "", 0, 0},    // an empty start changes nothing
      {1, "a", "a", 1, 1}, {3, "a", "a", 2, 2},  // the viewer pushes its first page once more
      {3, "b", "b", 3, 3}, {3, "", "", 3, 3},   {2, "", "a", 2, 3},
      {2, "", "a", 1, 3},  {2, "", "a", 1, 3},                      // not below the first
      {4, "", "a", 2, 3},  {3, "c", "c", 3, 3},                     // "b" is gone
      {2, "", "a", 2, 3},  {4, "", "c", 3, 3},  {4, "", "", 4, 3},  // forward is unchecked
      {1, "z", "z", 1, 1}, {9, "q", "z", 1, 1},
  };
  WBStack stack;
  for (const auto& [operation, fileName, result, current, total] : steps) {
    SCOPED_TRACE(std::to_string(operation) + " " + fileName);
    EXPECT_EQ(stack.GetStackFile(operation, fileName), result);
    EXPECT_EQ(stack.CurrentItem(), current);
    EXPECT_EQ(stack.TotalItems(), total);
  }
  EXPECT_EQ(stack.FileName(), "");
}

}  // namespace
}  // namespace cb::testing
