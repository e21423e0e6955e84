// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/UIReportController.h"

#include <new>
#include <stdexcept>

#include "base/Text.h"
#include "state/UIMainController.h"
#include "storage/DataAccess.h"

namespace cb {
namespace {

constexpr std::string_view kSource = "UIReportController";
constexpr char kSummaryFile[] = "Report1.htm";
constexpr char kSummaryStem[] = "Report";
constexpr char kSummaryTail[] = "1.htm";

}  // namespace

UIReportController::UIReportController(UIMainController& mc, SlideArray& slides, ErrorArray& errorInfo,
                                       ReportLocale locale)
    : mc_(mc), slides_(slides), errorInfo_(errorInfo), locale_(std::move(locale)) {}

std::string UIReportController::ReportsDirectory() const { return mc_.AppPath() + std::string(kReportsFolder); }

ReportSource UIReportController::Source() const {
  return {&slides_, mc_.SlideTemplate(), reportFont_, mc_.SlideInformationFilePath(), &locale_};
}

template <class Make>
bool UIReportController::WithinMemory(Make make) {
  // A page too large for the memory at hand is a failure like any other, told through ErrorInfo.
  try {
    return make();
  } catch (const std::bad_alloc&) {
    return Report(Status(RtError::OutOfMemory, kSource), errorInfo_);
  } catch (const std::length_error&) {
    return Report(Status(RtError::OutOfMemory, kSource), errorInfo_);
  }
}

bool UIReportController::CreateReportByCategory() {
  return WithinMemory([this] { return CreateReport(ReportKind::ByCategory); });
}
bool UIReportController::CreateReportByLocation() {
  return WithinMemory([this] { return CreateReport(ReportKind::ByLocation); });
}

bool UIReportController::CreateReport(ReportKind kind) {
  std::string page;
  if (!Report(MakeSummaryPage(Source(), kind, kSource, page), errorInfo_)) return false;
  ReportStack(StackOp::Restart, ReportsDirectory() + kSummaryStem + kSummaryTail);
  std::string fileName = kSummaryFile;
  return SaveReport(fileName, page, errorInfo_);
}

bool UIReportController::CreateSubReportByCategory(const std::string& key) {
  return WithinMemory([&] { return CreateSubReport(ReportKind::ByCategory, key); });
}
bool UIReportController::CreateSubReportByLocation(const std::string& key) {
  return WithinMemory([&] { return CreateSubReport(ReportKind::ByLocation, key); });
}

bool UIReportController::CreateSubReport(ReportKind kind, const std::string& key) {
  std::string page;
  if (!Report(MakeSubReportPage(Source(), kind, key, kSource, page), errorInfo_)) return false;
  std::string fileName = ReportStack(StackOp::NextName, "");
  ReportStack(StackOp::Push, ReportsDirectory() + fileName);
  return SaveReport(fileName, page, errorInfo_);
}

std::string UIReportController::ReportStack(StackOp operation, const std::string& fileName) {
  return reportPages_.Stack(operation, fileName);
}

bool UIReportController::SaveReport(std::string& fileName, const std::string& text, ErrorArray& errors) {
  fileName = ReportsDirectory() + fileName;
  return Report(DataAccess().SaveReport(ReportsDirectory(), fileName, text), errors);
}

std::int32_t UIReportController::GetSlideIndex(const std::string& key) const {
  for (std::size_t i = 1; i < slides_.size(); ++i)
    if (Trim(slides_[i].Get(Field::PictureFile)) == key) return static_cast<std::int32_t>(i);
  return 0;
}

}  // namespace cb
