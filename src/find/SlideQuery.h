// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Finding slides by what they say. One query language serves the gallery's
// find bar and the command line's --where:
//   garage drill        every word occurs in some field of the slide
//   "power drill"       a phrase, spaces and all
//   -tools              the slide does not contain the word
//   location:garage     the word in that field only (text, category,
//                       location, make, model, serial, file, value; any case)
//   value>500 value<=100 value:100..500
//                       the value's leading number compared (ends included)
// Matching folds case and accents over the file's Windows-1252 text, so
// "cafe" finds "Café", "strasse" "Straße" and "aeon" "Æon". A part that
// cannot be read (an unclosed quote, value>abc, an unknown field) is taken
// as plain words, and the query remembers it so the user can be told.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/SlideRecord.h"

namespace cb {

// Where a text term looks.
enum class FindField { Any, Text, Category, Location, Make, Model, Serial, File, Value };

struct TextTerm {
  std::string folded;  // folded Windows-1252 bytes, never empty
  FindField field = FindField::Any;
  bool negated = false;
};

// A comparison of the value's leading number: low <= v <= high, each end
// open or closed. A slide whose value holds no number never matches one.
struct ValueTerm {
  double low = 0;
  double high = 0;
  bool lowOpen = false;   // v > low rather than v >= low
  bool highOpen = false;  // v < high rather than v <= high
  bool negated = false;
};

struct SlideQuery {
  std::vector<TextTerm> texts;
  std::vector<ValueTerm> values;
  // The parts taken as plain words, as typed (UTF-8), in the order typed.
  std::vector<std::string> readAsWords;
  // No term at all: every slide matches.
  bool Empty() const { return texts.empty() && values.empty(); }
};

// Reads a query typed in UTF-8. Never fails: what it cannot read becomes words.
SlideQuery ParseQuery(std::string_view utf8);

// Windows-1252 text folded for matching: lower case, accents dropped, and
// the letters that fold to two ("ß", "æ", "œ") spelt out.
std::string FoldCp1252(std::string_view bytes);

// The value's leading number as the editor reads it, or nothing when the
// field holds no number at all.
bool ValueNumber(std::string_view field, double& out);

// The slides of a collection folded once, so that each keystroke's query is
// a scan of this text and not of the records.
class SlideIndex {
 public:
  SlideIndex() = default;
  // Records 1..n of `slides` (element 0 is the header).
  explicit SlideIndex(const SlideArray& slides);

  // The record numbers of the slides that match, ascending; all of them
  // for an empty query.
  std::vector<std::int32_t> Find(const SlideQuery& query) const;
  std::int32_t Count() const { return count_; }
  // What the index holds in memory, in bytes.
  std::size_t MemoryBytes() const;
  // The folded text itself, for measuring a plain scan against.
  std::string_view FoldedText() const { return text_; }

 private:
  // Where slide `s` (from 0) begins in text_, or its field `k` (0 = Text).
  std::uint32_t Start(std::int32_t s, int k = 0) const {
    return fieldStart_[8 * static_cast<std::size_t>(s) + static_cast<std::size_t>(k)];
  }
  // Appends the slides among [first, last) that hold `term`, ascending.
  void Collect(std::int32_t first, std::int32_t last, const TextTerm& term, std::vector<std::int32_t>& out) const;
  bool Holds(std::int32_t s, const TextTerm& term) const;
  // Those of `slides` that hold `term`, or that do not when it is negated.
  std::vector<std::int32_t> Keep(const std::vector<std::int32_t>& slides, const TextTerm& term) const;

  std::int32_t count_ = 0;
  std::string text_;                       // per slide its fields, folded, each followed by '\0'
  std::vector<std::uint32_t> fieldStart_;  // 8 per slide, then one past the end
  std::vector<double> values_;             // NaN where the value holds no number
};

// The header record of `slides`, then the slides `query` matches in file
// order; `numbers` gets their record numbers.
SlideArray MatchingSlides(const SlideArray& slides, const SlideQuery& query, std::vector<std::int32_t>& numbers);

// The find bar's count: "37 of 1,204 slides", or "No slides match"; with
// " (value>abc read as words)" after it when parts were read as words.
std::string FoundText(std::size_t found, std::size_t total, const SlideQuery& query);

}  // namespace cb
