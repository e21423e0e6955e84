// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <limits>

#include "base/NumberRules.h"

namespace cb {
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

}  // namespace
}  // namespace cb
