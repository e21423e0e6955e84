// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Text.h"

#include "base/Words.h"

#include <cmath>
#include <limits>

namespace cb {

bool SameName(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (Lower(a[i]) != Lower(b[i])) return false;
  return true;
}

std::string Trim(std::string_view s) {
  const auto first = s.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  const auto last = s.find_last_not_of(' ');
  return std::string(s.substr(first, last - first + 1));
}

std::string RTrim(std::string_view s) { return std::string(RTrimView(s)); }

// A word at a time: fixed-width fields are mostly padding.
std::string_view RTrimView(std::string_view s) {
  using namespace words;
  std::size_t n = s.size();
  while (n >= kSize && Load(s.data() + n - kSize) == Repeated(' ')) n -= kSize;
  while (n > 0 && s[n - 1] == ' ') --n;
  return s.substr(0, n);
}

std::string StripAtNul(std::string_view s) {
  return std::string(s.substr(0, s.find('\0')));
}

void EnsureTrailingBackslash(std::string& path) {
  path = RTrim(path);
  if (path.empty() || (path.back() != '/' && path.back() != '\\')) path += '/';
}

double LeadingDigitsValue(std::string_view s) {
  double v = 0;
  for (char c : s) {
    if (c < '0' || c > '9') break;
    v = v * 10 + (c - '0');
  }
  return v;
}

LongResult ToLong(double v) {
  const double r = std::nearbyint(v);  // the default rounding mode is half to even
  if (!(r >= std::numeric_limits<std::int32_t>::min() && r <= std::numeric_limits<std::int32_t>::max()))
    return {0, RtError::Overflow};
  return {static_cast<std::int32_t>(r), RtError::None};
}

LongResult TextToLong(std::string_view s) {
  const std::string t = Trim(s);
  std::size_t i = 0;
  bool negative = false;
  if (i < t.size() && (t[i] == '+' || t[i] == '-')) negative = t[i++] == '-';
  double v = 0;
  bool digits = false;
  for (; i < t.size() && t[i] >= '0' && t[i] <= '9'; ++i, digits = true) v = v * 10 + (t[i] - '0');
  if (i < t.size() && t[i] == '.') {
    double scale = 0.1;
    for (++i; i < t.size() && t[i] >= '0' && t[i] <= '9'; ++i, digits = true, scale /= 10)
      v += (t[i] - '0') * scale;
  }
  if (!digits || i != t.size()) return {0, RtError::TypeMismatch};
  return ToLong(negative ? -v : v);
}

}  // namespace cb
