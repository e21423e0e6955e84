#include "reports/ValueMatrix.h"

#include <cmath>
#include <string_view>
#include <unordered_map>

#include "base/Text.h"
#include "reports/NumberRules.h"

namespace cb {
namespace {

const std::string kEmpty;

using KeyIndex = std::unordered_map<std::string_view, std::int32_t>;

KeyIndex IndexKeys(const KeyList& keys) {
  KeyIndex index;
  index.reserve(keys.size());
  for (std::size_t i = 1; i < keys.size(); ++i) index.emplace(keys[i], static_cast<std::int32_t>(i));
  return index;
}

std::int32_t Find(const KeyIndex& index, const std::string& key) {
  const auto it = index.find(key);
  return it == index.end() ? 0 : it->second;
}

}  // namespace

ValueMatrix::ValueMatrix(std::int32_t groupBound, std::int32_t entryBound)
    : groups_(groupBound),
      entries_(entryBound),
      slot_(static_cast<std::size_t>(groupBound + 1) * static_cast<std::size_t>(entryBound + 1), -1) {}

std::size_t ValueMatrix::Index(std::int32_t group, std::int32_t entry) const {
  return static_cast<std::size_t>(group) * static_cast<std::size_t>(entries_ + 1) + static_cast<std::size_t>(entry);
}

const std::string& ValueMatrix::Cell(std::int32_t group, std::int32_t entry) const {
  if (group < 0 || group > groups_ || entry < 0 || entry > entries_) return kEmpty;
  const std::int32_t s = slot_[Index(group, entry)];
  return s < 0 ? kEmpty : texts_[static_cast<std::size_t>(s)];
}

void ValueMatrix::SetCell(std::int32_t group, std::int32_t entry, std::string text) {
  if (group < 0 || group > groups_ || entry < 0 || entry > entries_) return;
  std::int32_t& s = slot_[Index(group, entry)];
  if (s < 0) {
    s = static_cast<std::int32_t>(texts_.size());
    texts_.push_back(std::move(text));
  } else {
    texts_[static_cast<std::size_t>(s)] = std::move(text);
  }
}

bool operator==(const ValueMatrix& a, const ValueMatrix& b) {
  if (a.groups_ != b.groups_ || a.entries_ != b.entries_) return false;
  for (std::int32_t g = 0; g <= a.groups_; ++g)
    for (std::int32_t e = 0; e <= a.entries_; ++e)
      if (a.Cell(g, e) != b.Cell(g, e)) return false;
  return true;
}

RtError SumValues(const SlideArray& slides, Field groupField, Field entryField, const KeyList& groups,
                  const KeyList& entries, ValueMatrix& matrix) {
  // Each cell sees its slides in record order, as a loop over the cells
  // with the slides innermost would add them; the cells never mix.
  const KeyIndex groupIndex = IndexKeys(groups), entryIndex = IndexKeys(entries);
  for (std::size_t i = 1; i < slides.size(); ++i) {
    const std::int32_t g = Find(groupIndex, Trim(slides[i].Get(groupField)));
    if (g == 0) continue;
    const std::int32_t e = Find(entryIndex, Trim(slides[i].Get(entryField)));
    if (e == 0) continue;
    const double sum = LeadingNumber(Trim(slides[i].Get(Field::Value))) + LeadingNumber(matrix.Cell(g, e));
    if (!std::isfinite(sum)) return RtError::Overflow;
    matrix.SetCell(g, e, NumberText(sum));
  }
  return RtError::None;
}

std::int32_t CountRowEntries(const ValueMatrix& matrix, std::int32_t group) {
  std::int32_t count = 0;
  for (std::int32_t e = 1; e <= matrix.EntryBound(); ++e)
    if (LeadingNumber(matrix.Cell(group, e)) != 0) ++count;
  return count;
}

}  // namespace cb
