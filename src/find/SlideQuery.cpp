// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/SlideQuery.h"

#include <array>
#include <cmath>
#include <limits>
#include <optional>

#include "base/Cp1252.h"
#include "base/NumberRules.h"
#include "base/Text.h"
#include "find/Fold.h"

namespace cb {
namespace {

// A query character without a Windows-1252 code: folded text never holds it.
constexpr char kNoCode = '\x01';
constexpr double kInfinity = std::numeric_limits<double>::infinity();

constexpr bool IsBlank(char c) { return c == ' ' || c == '\t'; }
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

struct FieldName {
  std::string_view name;
  FindField field;
};
constexpr std::array<FieldName, 8> kFieldNames{{
    {"text", FindField::Text},
    {"category", FindField::Category},
    {"location", FindField::Location},
    {"make", FindField::Make},
    {"model", FindField::Model},
    {"serial", FindField::Serial},
    {"file", FindField::File},
    {"value", FindField::Value},
}};

std::optional<FindField> FieldNamed(std::string_view name) {
  for (const FieldName& f : kFieldNames)
    if (SameName(f.name, name)) return f.field;
  return std::nullopt;
}

// The bytes of the UTF-8 character at `i`: its lead and the continuation bytes that follow.
std::size_t CharLength(std::string_view s, std::size_t i) {
  const auto lead = static_cast<unsigned char>(s[i]);
  const std::size_t wanted = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  std::size_t n = 1;
  while (n < wanted && i + n < s.size() && (static_cast<unsigned char>(s[i + n]) & 0xC0) == 0x80) ++n;
  return n;
}

// UTF-8 query text folded as the slides' text is.
std::string FoldQuery(std::string_view utf8) {
  std::string out;
  for (std::size_t i = 0; i < utf8.size();) {
    const std::size_t n = CharLength(utf8, i);
    const std::optional<std::string> code = Utf8ToCp1252(utf8.substr(i, n));
    if (code)
      AppendFolded(out, *code);
    else
      out += kNoCode;
    i += n;
  }
  return out;
}

// The whole of `s` as a number LeadingNumber reads to its end, or nothing.
std::optional<double> WholeNumber(std::string_view s) {
  std::size_t i = 0;
  if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
  bool digits = false, point = false;
  for (; i < s.size() && (IsDigit(s[i]) || (s[i] == '.' && !point)); ++i) {
    point = point || s[i] == '.';
    digits = digits || s[i] != '.';
  }
  if (!digits) return std::nullopt;
  if (i < s.size() && std::string_view("EeDd").find(s[i]) != std::string_view::npos) {
    std::size_t j = i + 1;
    if (j < s.size() && (s[j] == '+' || s[j] == '-')) ++j;
    const std::size_t expDigits = j;
    while (j < s.size() && IsDigit(s[j])) ++j;
    if (j == expDigits) return std::nullopt;
    i = j;
  }
  const double v = LeadingNumber(s);
  if (i != s.size() || !std::isfinite(v)) return std::nullopt;
  return v;
}

// value>N, value>=N, value<N, value<=N. Nothing when `token` is no comparison;
// a comparison with no number is broken.
struct Comparison {
  bool broken = false;
  ValueTerm term;
};
std::optional<Comparison> ReadComparison(std::string_view token) {
  constexpr std::string_view kValue = "value";
  if (token.size() <= kValue.size() || !SameName(token.substr(0, kValue.size()), kValue)) return std::nullopt;
  std::string_view rest = token.substr(kValue.size());
  const char op = rest[0];
  if (op != '<' && op != '>') return std::nullopt;
  const bool orEqual = rest.size() > 1 && rest[1] == '=';
  const std::optional<double> n = WholeNumber(rest.substr(orEqual ? 2 : 1));
  if (!n) return Comparison{true, {}};
  ValueTerm t;
  if (op == '>') {
    t = {*n, kInfinity, !orEqual, false};
  } else {
    t = {-kInfinity, *n, false, !orEqual};
  }
  return Comparison{false, t};
}

// value:A..B, both ends included. Nothing when `text` holds no "..".
std::optional<Comparison> ReadRange(std::string_view text) {
  const auto dots = text.find("..");
  if (dots == std::string_view::npos) return std::nullopt;
  const std::optional<double> low = WholeNumber(text.substr(0, dots));
  const std::optional<double> high = WholeNumber(text.substr(dots + 2));
  if (!low || !high) return Comparison{true, {}};
  return Comparison{false, {*low, *high, false, false}};
}

class Parser {
 public:
  explicit Parser(std::string_view q) : q_(q) {}

  SlideQuery Run() {
    while (SkipBlanks()) Part();
    return std::move(out_);
  }

 private:
  bool SkipBlanks() {
    while (i_ < q_.size() && IsBlank(q_[i_])) ++i_;
    return i_ < q_.size();
  }

  std::size_t TokenEnd(std::size_t from) const {
    while (from < q_.size() && !IsBlank(q_[from])) ++from;
    return from;
  }

  // The closing quote of the one at `open`, or the end of the query when
  // there is none: then the rest is read as words and parsing ends.
  std::size_t CloseOf(std::size_t start, std::size_t open, bool negated) {
    const auto close = q_.find('"', open + 1);
    if (close != std::string_view::npos) return close;
    Broken(start, negated);
    i_ = q_.size();
    return std::string_view::npos;
  }

  void Part() {
    const std::size_t start = i_;
    const bool negated = q_[i_] == '-' && i_ + 1 < q_.size() && !IsBlank(q_[i_ + 1]);
    if (negated) ++i_;
    if (q_[i_] == '"') {
      const std::size_t close = CloseOf(start, i_, negated);
      if (close == std::string_view::npos) return;
      Text(q_.substr(i_ + 1, close - i_ - 1), FindField::Any, negated);
      i_ = close + 1;
      return;
    }
    const std::size_t end = TokenEnd(i_);
    const std::string_view token = q_.substr(i_, end - i_);
    if (const auto c = ReadComparison(token)) return Value(*c, start, end, negated);
    const auto colon = token.find(':');
    if (colon == std::string_view::npos) {
      Text(token, FindField::Any, negated);
      i_ = end;
      return;
    }
    const std::optional<FindField> field = FieldNamed(token.substr(0, colon));
    const std::size_t at = i_ + colon + 1;
    std::string_view text = q_.substr(at, end - at);
    i_ = end;
    if (at < q_.size() && q_[at] == '"') {
      const std::size_t close = CloseOf(start, at, negated);
      if (close == std::string_view::npos) return;
      text = q_.substr(at + 1, close - at - 1);
      i_ = close + 1;
    } else if (field == FindField::Value) {
      if (const auto range = ReadRange(text)) return Value(*range, start, end, negated);
    }
    if (!field || text.empty()) return Broken(start, i_, negated);
    Text(text, *field, negated);
  }

  void Text(std::string_view utf8, FindField field, bool negated) {
    std::string folded = FoldQuery(utf8);
    if (!folded.empty()) out_.texts.push_back({std::move(folded), field, negated});
  }

  void Value(const Comparison& c, std::size_t start, std::size_t end, bool negated) {
    i_ = end;
    if (c.broken) return Broken(start, end, negated);
    out_.values.push_back(c.term);
    out_.values.back().negated = negated;
  }

  // The part [start, end) as plain words, its quotes dropped; a "-" in front
  // still excludes the first of them.
  void Broken(std::size_t start, std::size_t end, bool negated) {
    const std::string_view part = q_.substr(start, end - start);
    out_.readAsWords.emplace_back(part);
    std::string plain;
    for (const char c : part.substr(negated ? 1 : 0))
      if (c != '"') plain += c;
    const std::string_view words = plain;
    bool first = true;
    for (std::size_t w = 0; w < words.size();) {
      while (w < words.size() && IsBlank(words[w])) ++w;
      std::size_t e = w;
      while (e < words.size() && !IsBlank(words[e])) ++e;
      if (e > w) Text(words.substr(w, e - w), FindField::Any, negated && first);
      first = first && e == w;
      w = e;
    }
  }
  void Broken(std::size_t start, bool negated) { Broken(start, q_.size(), negated); }

  std::string_view q_;
  std::size_t i_ = 0;
  SlideQuery out_;
};

// `n` with its digits grouped in threes by ",".
std::string Grouped(std::size_t n) {
  std::string digits = std::to_string(n), out;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) out += ',';
    out += digits[i];
  }
  return out;
}

// A plain decimal of up to 15 digits, most values, read without LeadingNumber's
// allocation: digits and ten's power are exact doubles, so their quotient is
// the correctly rounded number that LeadingNumber gives too.
std::optional<double> PlainDecimal(std::string_view s) {
  constexpr std::array<double, 16> kTens{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                         1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  std::size_t i = 0;
  const bool negative = !s.empty() && s[0] == '-';
  if (!s.empty() && (s[0] == '-' || s[0] == '+')) ++i;
  std::uint64_t digits = 0;
  std::size_t count = 0, fraction = 0;
  bool point = false;
  for (; i < s.size(); ++i) {
    if (IsDigit(s[i])) {
      digits = digits * 10 + static_cast<std::uint64_t>(s[i] - '0');
      ++count;
      fraction += point ? 1 : 0;
    } else if (s[i] == '.' && !point) {
      point = true;
    } else {
      return std::nullopt;
    }
  }
  if (count == 0 || count > 15) return std::nullopt;
  const double v = static_cast<double>(digits) / kTens[fraction];
  return negative ? -v : v;
}

}  // namespace

SlideQuery ParseQuery(std::string_view utf8) { return Parser(utf8).Run(); }

std::string FoldCp1252(std::string_view bytes) {
  std::string out;
  AppendFolded(out, bytes);
  return out;
}

bool ValueNumber(std::string_view field, double& out) {
  field = TrimField(field);
  if (const std::optional<double> v = PlainDecimal(field)) {
    out = *v;
    return true;
  }
  // LeadingNumber's own walk to its first digit: blanks, a sign, blanks and a point between.
  const auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\n'; };
  std::size_t i = 0;
  while (i < field.size() && blank(field[i])) ++i;
  if (i < field.size() && (field[i] == '+' || field[i] == '-')) ++i;
  bool point = false;
  for (; i < field.size(); ++i) {
    if (IsDigit(field[i])) {
      const double v = LeadingNumber(field);
      if (!std::isfinite(v)) return false;
      out = v;
      return true;
    }
    if (field[i] == '.' && !point)
      point = true;
    else if (!blank(field[i]))
      return false;
  }
  return false;
}

std::string FoundText(std::size_t found, std::size_t total, const SlideQuery& query) {
  std::string text = found == 0 ? "No slides match" : Grouped(found) + " of " + Grouped(total) + " slides";
  if (query.readAsWords.empty()) return text;
  text += " (";
  for (std::size_t i = 0; i < query.readAsWords.size(); ++i) text += (i ? " " : "") + query.readAsWords[i];
  return text + " read as words)";
}

}  // namespace cb
