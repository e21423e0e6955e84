// SPDX-License-Identifier: GPL-3.0-or-later
// The reports' rules: how numbers are read and written, and what the viewer
// reads from a page (link keys, link meanings by page title, the rows it opens
// for display, the fonts it falls back to), and its history.

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <set>

#include "base/NumberRules.h"
#include "model/WBStack.h"
#include "reports/ViewerRules.h"

namespace cb::testing {
namespace {

const ReportLocale kGerman{".", ",", "\x80", {}};  // the euro sign in the files' code page

TEST(LeadingNumber, ReadsWhatItCanFromTheFront) {
  constexpr double inf = std::numeric_limits<double>::infinity();
  const std::pair<const char*, double> rows[] = {
      {"1,500", 1},     {"$500", 0},        {"12.50", 12.5},   {"", 0},
      {"abc", 0},       {"  -3.5kg", -3.5}, {"+7", 7},         {".5", 0.5},
      {"-", 0},         {"1.2.3", 1.2},     {"1 000", 1000},   {"1\t2", 12},
      {"1E3", 1000},    {"1e-2", 0.01},     {"2D2", 200},      {"1E", 1},
      {"1E+", 1},       {"5x1E3", 5},       {"1 2 3", 123},    {"1 e5", 100000},
      {" 1 . 5", 1.5},  {"- 4", -4},        {"1E 2", 100},     {"1E400", inf},
      {"-1E400", -inf}, {"1E-400", 0},      {"0.0000E999", 0}, {"99999999999", 99999999999.0}};
  for (const auto& [text, value] : rows) EXPECT_EQ(LeadingNumber(text), value) << '"' << text << '"';
}

TEST(NumberText, FifteenDigitsAndExponentOnlyWhereNeeded) {
  // clang-format off
  const std::pair<double, const char*> rows[] = {
      {12.5, "12.5"}, {0, "0"}, {-0.0, "0"}, {0.1 + 0.2, "0.3"}, {-2.5, "-2.5"}, {1e20, "1E+20"},
      {1.5e300, "1.5E+300"}, {123456789012345, "123456789012345"}, {1234567890123456, "1.23456789012346E+15"},
      {0.0001, "0.0001"}, {0.00001, "1E-05"}, {0.000123, "0.000123"}, {1234567.12345, "1234567.12345"}};
  // clang-format on
  for (const auto& [value, text] : rows) EXPECT_EQ(NumberText(value), text) << value;
  // The sub-reports cut it to the 11 characters of the Value field.
  EXPECT_EQ(NumberText(LeadingNumber("1234567.12345")).substr(0, 11), "1234567.123");
}

TEST(AmountText, WholeNumbersInGroupsOfThree) {
  // clang-format off
  const std::pair<double, const char*> rows[] = {
      {0, ""},           {0.4, ""},           {0.5, "1"},       {-0.4, "-"},
      {12, "12"},        {999, "999"},        {1500, "1,500"},  {-2500, "-2,500"},
      {999.5, "1,000"},  {2.5, "3"},          {1234567.5, "1,234,568"},
      {1e20, "100,000,000,000,000,000,000"},  {1.23456789012345678e17, "123,456,789,012,346,000"}};
  // clang-format on
  for (const auto& [value, text] : rows) EXPECT_EQ(AmountText(value, ReportLocale()), text) << value;
  EXPECT_EQ(AmountText(1234567, kGerman), "1.234.567");
}

TEST(StrictNumber, TakesTheWholeTextOrNothing) {
  const ReportLocale en;
  constexpr auto no = std::nullopt;
  const std::pair<const char*, std::optional<double>> rows[] = {
      {"12345", 12345}, {"AB123", no}, {"", no},    {"   ", no},    {" 1,234  ", 1234}, {"$12", 12},
      {"12$", 12},      {"-$5", -5},   {"$-5", -5}, {"1.5E2", 150}, {"12-34", no},      {"0", 0},
      {",5", no},       {"1e999", no}, {"1E", no},  {"12.5.1", no}};
  for (const auto& [text, value] : rows) EXPECT_EQ(StrictNumber(text, en), value) << '"' << text << '"';
  EXPECT_EQ(StrictNumber(std::string(26, '\0'), en), no);

  EXPECT_EQ(StrictNumber("1.234,5 \x80", kGerman), 1234.5);
  EXPECT_EQ(StrictNumber("1,234.5", kGerman), no);
}

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
