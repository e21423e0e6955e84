// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <numeric>

#include "find/FindBytes.h"
#include "find/Fold.h"
#include "find/SlideQuery.h"

namespace cb {
namespace {

// The fields of a slide in the index, in the order of FindField after Any.
constexpr std::array<Field, 8> kIndexed{Field::SlideText, Field::Category, Field::Location,    Field::Make,
                                        Field::Model,     Field::Serial,   Field::PictureFile, Field::Value};
constexpr std::size_t kFieldsPerSlide = kIndexed.size();

// While fewer than one slide in this many is a candidate, a term is looked
// for in each candidate's span (measured: faster even at a fifth of the
// slides); else in one scan over the runs of candidates.
constexpr std::size_t kFewCandidates = 2;

// The index's field of a term, or -1 for any field.
int FieldIndex(FindField f) { return static_cast<int>(f) - 1; }

// A value without a number, NaN, fails every comparison.
bool Within(double v, const ValueTerm& t) {
  return (t.lowOpen ? v > t.low : v >= t.low) && (t.highOpen ? v < t.high : v <= t.high);
}

}  // namespace

SlideIndex::SlideIndex(const SlideArray& slides)
    : count_(slides.empty() ? 0 : static_cast<std::int32_t>(slides.size() - 1)) {
  const auto n = static_cast<std::size_t>(count_);
  fieldStart_.reserve(n * kFieldsPerSlide + 1);
  values_.reserve(n);
  // Room for every field folded whole to two bytes a byte; only what is
  // written is ever touched, and the text keeps that alone.
  std::size_t most = 0;
  for (const Field f : kIndexed) most += 2 * LayoutOf(f).width + 1;
  const std::unique_ptr<char[]> folded(new char[n * most]);
  char* out = folded.get();
  for (std::size_t s = 1; s <= n; ++s) {
    const char* const record = slides[s].bytes().data();
    for (const Field f : kIndexed) {
      fieldStart_.push_back(static_cast<std::uint32_t>(out - folded.get()));
      const FieldLayout& at = LayoutOf(f);
      out = FoldField({record + at.offset, at.width}, out);
      *out++ = '\0';
    }
    double v = 0;
    values_.push_back(ValueNumber(slides[s].View(Field::Value), v) ? v : std::numeric_limits<double>::quiet_NaN());
  }
  fieldStart_.push_back(static_cast<std::uint32_t>(out - folded.get()));
  text_.assign(folded.get(), out);
}

std::size_t SlideIndex::MemoryBytes() const {
  return sizeof(*this) + text_.capacity() + fieldStart_.capacity() * sizeof(std::uint32_t) +
         values_.capacity() * sizeof(double);
}

void SlideIndex::Collect(std::int32_t first, std::int32_t last, const TextTerm& term,
                         std::vector<std::int32_t>& out) const {
  const char* const base = text_.data();
  const char* p = base + Start(first);
  const char* const end = base + Start(last);
  const int k = FieldIndex(term.field);
  std::int32_t s = first;
  while (const char* hit = FindBytes(p, end, term.folded)) {
    const auto at = static_cast<std::uint32_t>(hit - base);
    while (Start(s + 1) <= at) ++s;  // hits only move forward
    p = base + Start(s + 1);
    if (k >= 0 && at < Start(s, k)) {
      p = base + Start(s, k);  // an earlier field: look again from the one wanted
    } else if (k < 0 || at < Start(s, k + 1)) {
      out.push_back(s);
    }
  }
}

bool SlideIndex::Holds(std::int32_t s, const TextTerm& term) const {
  const int k = FieldIndex(term.field);
  const char* const base = text_.data();
  const std::uint32_t from = k < 0 ? Start(s) : Start(s, k);
  const std::uint32_t to = k < 0 ? Start(s + 1) : Start(s, k + 1);
  return FindBytes(base + from, base + to, term.folded) != nullptr;
}

std::vector<std::int32_t> SlideIndex::Keep(const std::vector<std::int32_t>& slides, const TextTerm& term) const {
  std::vector<std::int32_t> kept;
  if (slides.size() * kFewCandidates < static_cast<std::size_t>(count_)) {
    for (const std::int32_t s : slides)
      if (Holds(s, term) != term.negated) kept.push_back(s);
    return kept;
  }
  std::vector<std::int32_t> holding;
  for (std::size_t i = 0; i < slides.size();) {
    std::size_t j = i + 1;
    while (j < slides.size() && slides[j] == slides[j - 1] + 1) ++j;
    Collect(slides[i], slides[j - 1] + 1, term, holding);
    i = j;
  }
  if (!term.negated) return holding;
  std::set_difference(slides.begin(), slides.end(), holding.begin(), holding.end(), std::back_inserter(kept));
  return kept;
}

std::vector<std::int32_t> SlideIndex::Find(const SlideQuery& query) const {
  // The longest word first: it is likely the rarest, and the others then look at its slides only.
  std::vector<const TextTerm*> texts;
  for (const TextTerm& t : query.texts) texts.push_back(&t);
  std::stable_sort(texts.begin(), texts.end(), [](const TextTerm* a, const TextTerm* b) {
    if (a->negated != b->negated) return b->negated;
    return a->folded.size() > b->folded.size();
  });
  std::vector<std::int32_t> slides;
  auto next = texts.begin();
  if (next != texts.end() && !(*next)->negated) {
    Collect(0, count_, **next++, slides);
  } else {
    slides.resize(static_cast<std::size_t>(count_));
    std::iota(slides.begin(), slides.end(), 0);
  }
  for (; next != texts.end() && !(*next)->negated; ++next) slides = Keep(slides, **next);
  for (const ValueTerm& t : query.values)
    std::erase_if(slides, [&](std::int32_t s) { return Within(values_[static_cast<std::size_t>(s)], t) == t.negated; });
  for (; next != texts.end(); ++next) slides = Keep(slides, **next);
  for (std::int32_t& s : slides) ++s;  // record numbers
  return slides;
}

SlideArray MatchingSlides(const SlideArray& slides, const SlideQuery& query, std::vector<std::int32_t>& numbers) {
  numbers = SlideIndex(slides).Find(query);
  SlideArray matching;
  matching.reserve(numbers.size() + 1);
  matching.push_back(slides.at(0));
  for (const std::int32_t n : numbers) matching.push_back(slides[static_cast<std::size_t>(n)]);
  return matching;
}

}  // namespace cb
