// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/ValueMatrix.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <unordered_map>

#include "base/NumberRules.h"
#include "base/Text.h"

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
    : groups_(groupBound), entries_(entryBound), written_(static_cast<std::size_t>(std::max(groupBound, 0)) + 1) {}

const std::string& ValueMatrix::Cell(std::int32_t group, std::int32_t entry) const {
  if (!Inside(group, entry)) return kEmpty;
  const auto it = cells_.find(Key(group, entry));
  return it == cells_.end() ? kEmpty : it->second;
}

void ValueMatrix::SetCell(std::int32_t group, std::int32_t entry, std::string text) {
  if (!Inside(group, entry)) return;
  const auto [it, added] = cells_.try_emplace(Key(group, entry));
  if (added) written_[static_cast<std::size_t>(group)].push_back(entry);
  it->second = std::move(text);
}

std::vector<std::int32_t> ValueMatrix::WrittenEntries(std::int32_t group) const {
  if (group < 0 || group > groups_) return {};
  std::vector<std::int32_t> entries = written_[static_cast<std::size_t>(group)];
  std::ranges::sort(entries);
  return entries;
}

bool operator==(const ValueMatrix& a, const ValueMatrix& b) {
  if (a.groups_ != b.groups_ || a.entries_ != b.entries_) return false;
  const auto within = [](const ValueMatrix& x, const ValueMatrix& y) {
    for (const auto& [key, text] : x.cells_)
      if (y.Cell(static_cast<std::int32_t>(key >> 32), static_cast<std::int32_t>(key & 0xFFFFFFFFu)) != text)
        return false;
    return true;
  };
  return within(a, b) && within(b, a);
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
  for (const std::int32_t e : matrix.WrittenEntries(group))
    if (LeadingNumber(matrix.Cell(group, e)) != 0) ++count;
  return count;
}

}  // namespace cb
