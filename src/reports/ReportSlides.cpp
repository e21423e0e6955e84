// SPDX-License-Identifier: GPL-3.0-or-later
// The links of the pages: from a summary to a sub-report, from a sub-report
// to the slide.
#include "reports/UIReportController.h"
#include "reports/ViewerRules.h"
#include "state/UIMainController.h"

namespace cb {
namespace {
constexpr std::string_view kSource = "UIReportController";
constexpr char kSlideStatus[] = "Slide: ";
}  // namespace

bool UIReportController::ShowCategorySlide(const std::string& key, ErrorArray& errors) {
  if (!slideWindows_) return Report(Status(RtError::ObjectNotSet, kSource), errors);
  slideWindows_->UnloadSlideWindow();
  const std::int32_t index = GetSlideIndex(key);
  // Current before the window comes up: a new slide window takes its caption
  // and tool tip from the current image as it opens and activates.
  mc_.CurrentImageNumber(index);
  if (const RtError e = slideWindows_->ShowReportSlide(index); e != RtError::None)
    return Report(Status(e, kSource), errors);
  slideWindows_->SetStatusText(kSlideStatus + std::to_string(index));
  return true;
}

// The slide of a link is found by its picture file alone, whatever the grouping.
bool UIReportController::ShowLocationSlide(const std::string& key, ErrorArray& errors) {
  return ShowCategorySlide(key, errors);
}

bool UIReportController::FollowLink(std::string_view pageTitle, const std::string& key) {
  switch (LinkActionForTitle(pageTitle)) {
    case LinkAction::SubReportByCategory:
      return CreateSubReportByCategory(key);
    case LinkAction::SubReportByLocation:
      return CreateSubReportByLocation(key);
    case LinkAction::CategorySlide:
      return ShowCategorySlide(key, errorInfo_);
    case LinkAction::LocationSlide:
      return ShowLocationSlide(key, errorInfo_);
    case LinkAction::None:
      break;
  }
  return false;
}

}  // namespace cb
