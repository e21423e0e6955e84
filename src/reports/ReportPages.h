// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The report files written since the last summary report. It numbers the
// files of the drill-down: "Report1.htm", then "Report 2.htm", "Report 3.htm".

#include <cstdint>
#include <string>
#include <vector>

namespace cb {

// The list operations, by the numbers they have always had.
enum class StackOp : std::int32_t {
  Back = -1,        // Current - 1 when it is 2 or more; the item there, else ""
  Push = 0,         // Current + 1 when below the end, else one more item;
                    // stores `fileName` at Current and returns it
  Forward = 1,      // Current + 1 when below the end; the item there, else ""
  CurrentName = 7,  // "Report" + blank-led Current + ".htm"
  NextName = 8,     // the same for Current + 1
  Restart = 9,      // `fileName` becomes the only item, Current 1; returns it
};

class ReportPages {
 public:
  // Runs `operation`; any number outside StackOp returns "" and changes nothing.
  std::string Stack(StackOp operation, const std::string& fileName);

  std::int32_t Current() const { return current_; }
  // The items from index 1; index 0 is unused. Empty before the first use.
  const std::vector<std::string>& Items() const { return items_; }

 private:
  std::int32_t UpperBound() const { return items_.empty() ? 0 : static_cast<std::int32_t>(items_.size()) - 1; }
  std::string ItemAtCurrent() const;

  std::vector<std::string> items_;
  std::int32_t current_ = 0;
};

// `n` as a number prints beside text: a blank where the sign of a negative
// number would stand, so 2 gives " 2" and -2 gives "-2".
std::string BlankLedDecimal(std::int64_t n);

}  // namespace cb
