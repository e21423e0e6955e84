// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The summed values of a summary report: one text per (group key, entry
// key) pair, both counted from 1 as in the key lists.

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/RuntimeError.h"
#include "model/Categories.h"
#include "model/SlideRecord.h"

namespace cb {

class ValueMatrix {
 public:
  ValueMatrix() = default;
  // Cells (0..groupBound, 0..entryBound), all empty; row and column 0 stay
  // unused. Only written cells take memory, so a collection of distinct
  // pairs needs room for as many cells as it has slides, not groups times entries.
  ValueMatrix(std::int32_t groupBound, std::int32_t entryBound);

  std::int32_t GroupBound() const { return groups_; }
  std::int32_t EntryBound() const { return entries_; }

  // The cell's text: empty, or a decimal text written by the sum step.
  const std::string& Cell(std::int32_t group, std::int32_t entry) const;
  void SetCell(std::int32_t group, std::int32_t entry, std::string text);
  // The entries of `group` whose cell was written, in ascending order; every
  // other cell of the row is empty.
  std::vector<std::int32_t> WrittenEntries(std::int32_t group) const;

  friend bool operator==(const ValueMatrix& a, const ValueMatrix& b);

 private:
  static std::uint64_t Key(std::int32_t group, std::int32_t entry) {
    return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(group)) << 32) | static_cast<std::uint32_t>(entry);
  }
  bool Inside(std::int32_t group, std::int32_t entry) const {
    return group >= 0 && group <= groups_ && entry >= 0 && entry <= entries_;
  }

  std::int32_t groups_ = 0;
  std::int32_t entries_ = 0;
  std::unordered_map<std::uint64_t, std::string> cells_;
  // The written entries of each group, in the order they were first written.
  std::vector<std::vector<std::int32_t>> written_;
};

// The sum step: each slide whose trimmed `groupField` is groups[g] and whose
// trimmed `entryField` is entries[e] adds its Value to cell (g, e), as
// NumberText(LeadingNumber(trimmed Value) + LeadingNumber(cell)), in record
// order. One pass over the slides; the keys must be distinct. Returns
// Overflow, leaving the matrix part-summed, when a sum leaves the range of a double.
RtError SumValues(const SlideArray& slides, Field groupField, Field entryField, const KeyList& groups,
                  const KeyList& entries, ValueMatrix& matrix);

// The number of entries 1..EntryBound of `group` whose cell reads as a number other than 0.
std::int32_t CountRowEntries(const ValueMatrix& matrix, std::int32_t group);

}  // namespace cb
