// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/ReportPages.h"

namespace cb {
namespace {

constexpr char kReportPrefix[] = "Report";
constexpr char kReportSuffix[] = ".htm";

}  // namespace

std::string BlankLedDecimal(std::int64_t n) { return n < 0 ? std::to_string(n) : " " + std::to_string(n); }

std::string ReportPages::ItemAtCurrent() const {
  if (current_ < 1 || current_ > UpperBound()) return {};
  return items_[static_cast<std::size_t>(current_)];
}

std::string ReportPages::Stack(StackOp operation, const std::string& fileName) {
  switch (operation) {
    case StackOp::Back:
      if (current_ < 2) return {};
      --current_;
      return ItemAtCurrent();
    case StackOp::Push:
      if (current_ < UpperBound()) {
        ++current_;
      } else {
        if (items_.empty()) items_.emplace_back();  // index 0, unused
        items_.emplace_back();
        current_ = UpperBound();
      }
      items_[static_cast<std::size_t>(current_)] = fileName;
      return fileName;
    case StackOp::Forward:
      if (current_ >= UpperBound()) return {};
      ++current_;
      return ItemAtCurrent();
    case StackOp::CurrentName:
      return kReportPrefix + BlankLedDecimal(current_) + kReportSuffix;
    case StackOp::NextName:
      return kReportPrefix + BlankLedDecimal(static_cast<std::int64_t>(current_) + 1) + kReportSuffix;
    case StackOp::Restart:
      items_.assign(2, std::string());
      items_[1] = fileName;
      current_ = 1;
      return fileName;
    default:
      return {};
  }
}

}  // namespace cb
