// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// How report pages read and print numbers. A Value field is free text:
// LeadingNumber reads what it can from its front, NumberText and AmountText
// print a double, and StrictNumber accepts a whole text or nothing.

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace cb {

// What the pages take from the user's locale. The windows fill it from the
// system; tests fix it.
struct ReportLocale {
  std::string thousandsSeparator = ",";
  std::string decimalPoint = ".";
  std::string currencySymbol = "$";
  // The current date and time in the general date format (short date, blank,
  // long time). Asked once per summary page; unset gives a local dd/mm/yyyy hh:mm:ss.
  std::function<std::string()> generalDate;
};

// The date text of a summary page written now.
std::string GeneralDateNow(const ReportLocale& locale);

// The number at the front of `text`: blanks, tabs and line feeds are passed
// over, then an optional sign, digits with at most one ".", and an optional
// exponent (E or D). Stops at the first other character; no number gives 0.
// A number beyond the range of a double gives an infinity, which callers
// treat as an overflow.
double LeadingNumber(std::string_view text);

// Adds `v` to `total` unless the sum leaves the range of a double: such a
// sum is skipped, as a failing statement of the page step is.
void AddSkippingOverflow(double& total, double v);

// `x` in decimal with up to 15 significant digits and no leading blank;
// exponent form ("1E+20", "1.5E-05") below 1E-4 and from 1E+15 on.
std::string NumberText(double x);

// `x` in the form "#,###": rounded half away from zero to a whole number,
// digits grouped in threes with the locale's separator, and no digit at
// all for a number that rounds to 0 (0 and 0.4 give "", -0.4 gives "-").
std::string AmountText(double x, const ReportLocale& locale);

// The whole of `text` as a number: blanks around it, the locale's currency
// symbol at either end, a leading sign, thousands separators among the
// integer digits, the locale's decimal point and an exponent. Nothing when
// any other character stands in it or it holds no digit.
std::optional<double> StrictNumber(std::string_view text, const ReportLocale& locale);

}  // namespace cb
