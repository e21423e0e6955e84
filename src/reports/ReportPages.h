#pragma once
// The report files written since the last summary report. It numbers the
// files of the drill-down: "Report1.htm", then "Report 2.htm", "Report 3.htm".

#include <cstdint>
#include <string>
#include <vector>

namespace cb {

class ReportPages {
 public:
  // The list operations by number:
  //  -1 back: Current - 1 when it is 2 or more; the item there, else "".
  //   0 push: Current + 1 when below the end, else one more item; stores
  //     `fileName` at Current and returns it.
  //   1 forward: Current + 1 when below the end; the item there, else "".
  //   7 "Report" + blank-led Current + ".htm"; 8 the same for Current + 1.
  //   9 restart: `fileName` becomes the only item, Current 1; returns it.
  // Any other operation returns "" and changes nothing.
  std::string Stack(std::int32_t operation, const std::string& fileName);

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
