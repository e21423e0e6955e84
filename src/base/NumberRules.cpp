// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/NumberRules.h"

#include <charconv>
#include <cmath>
#include <ctime>
#include <limits>

namespace cb {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsNumericBlank(char c) { return c == ' ' || c == '\t' || c == '\n'; }
bool IsExponentMark(char c) { return c == 'E' || c == 'e' || c == 'D' || c == 'd'; }

// A plain number ("-12.5e3", no "+" in front) to a double. A value beyond
// the range of a double becomes an infinity, one below it zero.
double ParsePlain(const std::string& s) {
  double v = 0;
  const char* first = s.data();
  const auto [end, ec] = std::from_chars(first, first + s.size(), v, std::chars_format::general);
  if (ec != std::errc::result_out_of_range) return v;
  // Out of range: the place of the first significant digit tells huge from tiny.
  const bool negative = s[0] == '-';
  long integerDigits = 0, fractionDigits = 0, firstAt = 0;
  bool fraction = false, found = false;
  std::size_t i = negative ? 1 : 0;
  for (; i < s.size() && (IsDigit(s[i]) || s[i] == '.'); ++i) {
    if (s[i] == '.') { fraction = true; continue; }
    fraction ? ++fractionDigits : ++integerDigits;
    if (!found && s[i] != '0') {
      found = true;
      firstAt = fraction ? -fractionDigits : integerDigits;
    }
  }
  const long power = firstAt > 0 ? integerDigits - firstAt : firstAt;
  long exponent = 0;
  if (i < s.size()) exponent = std::strtol(s.c_str() + i + 1, nullptr, 10);
  if (!found || power + exponent < 0) return negative ? -0.0 : 0.0;
  return negative ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
}

}  // namespace

std::string GeneralDateNow(const ReportLocale& locale) {
  if (locale.generalDate) return locale.generalDate();
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char text[32];
  std::strftime(text, sizeof text, "%d/%m/%Y %H:%M:%S", &local);
  return text;
}

double LeadingNumber(std::string_view text) {
  std::string number;
  std::size_t i = 0;
  auto skip = [&] { while (i < text.size() && IsNumericBlank(text[i])) ++i; };
  skip();
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
    if (text[i] == '-') number += '-';
    ++i;
  }
  bool digits = false, point = false;
  for (skip(); i < text.size(); ++i, skip()) {
    if (IsDigit(text[i])) {
      number += text[i];
      digits = true;
    } else if (text[i] == '.' && !point) {
      number += '.';
      point = true;
    } else {
      break;
    }
  }
  if (!digits) return 0;
  if (i < text.size() && IsExponentMark(text[i])) {
    std::size_t j = i + 1;
    std::string exponent = "e";
    while (j < text.size() && IsNumericBlank(text[j])) ++j;
    if (j < text.size() && (text[j] == '+' || text[j] == '-')) exponent += text[j++];
    bool expDigits = false;
    for (; j < text.size(); ++j) {
      if (IsNumericBlank(text[j])) continue;
      if (!IsDigit(text[j])) break;
      exponent += text[j];
      expDigits = true;
    }
    if (expDigits) number += exponent;
  }
  return ParsePlain(number);
}

void AddSkippingOverflow(double& total, double v) {
  const double t = total + v;
  if (std::isfinite(t)) total = t;
}

std::string NumberText(double x) {
  if (x == 0) return "0";  // never "-0"
  char text[40];
  const auto end = std::to_chars(text, text + sizeof text, x, std::chars_format::general, 15).ptr;
  std::string s(text, end);
  for (char& c : s)
    if (c == 'e') c = 'E';
  return s;
}

std::string AmountText(double x, const ReportLocale& locale) {
  if (x == 0) return {};
  // Fifteen significant digits first, as the number is printed, then rounded.
  char text[40];
  const auto end = std::to_chars(text, text + sizeof text, std::fabs(x), std::chars_format::scientific, 14).ptr;
  const std::string s(text, end);
  std::string mantissa;
  for (char c : s.substr(0, s.find('e')))
    if (IsDigit(c)) mantissa += c;
  const long exponent = std::strtol(s.c_str() + s.find('e') + 1, nullptr, 10);

  std::string whole;  // the rounded whole number's digits, no leading zero
  if (exponent >= 0) {
    const auto n = static_cast<std::size_t>(exponent) + 1;
    if (n >= mantissa.size()) {
      whole = mantissa + std::string(n - mantissa.size(), '0');
    } else {
      whole = mantissa.substr(0, n);
      if (mantissa[n] >= '5') {
        std::size_t k = whole.size();
        while (k > 0 && whole[k - 1] == '9') whole[--k] = '0';
        if (k == 0) whole.insert(whole.begin(), '1'); else ++whole[k - 1];
      }
    }
  } else if (exponent == -1 && mantissa[0] >= '5') {
    whole = "1";
  }

  std::string out = x < 0 ? "-" : "";
  for (std::size_t k = 0; k < whole.size(); ++k) {
    if (k > 0 && (whole.size() - k) % 3 == 0) out += locale.thousandsSeparator;
    out += whole[k];
  }
  return out;
}

std::optional<double> StrictNumber(std::string_view text, const ReportLocale& locale) {
  auto blank = [](char c) { return c == ' ' || c == '\t'; };
  std::size_t i = 0, last = text.size();
  while (i < last && blank(text[i])) ++i;
  while (last > i && blank(text[last - 1])) --last;
  text = text.substr(i, last - i);

  const std::string_view currency = locale.currencySymbol;
  auto takeCurrency = [&](bool front) {
    if (currency.empty() || text.size() < currency.size()) return false;
    if (front ? !text.starts_with(currency) : !text.ends_with(currency)) return false;
    text = front ? text.substr(currency.size()) : text.substr(0, text.size() - currency.size());
    while (!text.empty() && blank(front ? text.front() : text.back()))
      text = front ? text.substr(1) : text.substr(0, text.size() - 1);
    return true;
  };

  std::string number;
  bool currencySeen = takeCurrency(true);
  if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
    if (text[0] == '-') number += '-';
    text = text.substr(1);
  }
  if (!currencySeen) currencySeen = takeCurrency(true);
  if (!currencySeen) takeCurrency(false);

  const std::string_view point = locale.decimalPoint, separator = locale.thousandsSeparator;
  bool digits = false, fraction = false;
  std::size_t k = 0;
  while (k < text.size()) {
    if (IsDigit(text[k])) {
      number += text[k++];
      digits = true;
    } else if (!fraction && !point.empty() && text.substr(k).starts_with(point)) {
      number += '.';
      fraction = true;
      k += point.size();
    } else if (!fraction && digits && !separator.empty() && text.substr(k).starts_with(separator)) {
      k += separator.size();
    } else {
      break;
    }
  }
  if (!digits) return std::nullopt;
  if (k < text.size() && IsExponentMark(text[k])) {
    std::string exponent = "e";
    ++k;
    if (k < text.size() && (text[k] == '+' || text[k] == '-')) exponent += text[k++];
    bool expDigits = false;
    for (; k < text.size() && IsDigit(text[k]); ++k, expDigits = true) exponent += text[k];
    if (!expDigits) return std::nullopt;
    number += exponent;
  }
  if (k != text.size()) return std::nullopt;
  const double v = ParsePlain(number);
  if (!std::isfinite(v)) return std::nullopt;  // an overflow fails the conversion
  return v;
}

}  // namespace cb
