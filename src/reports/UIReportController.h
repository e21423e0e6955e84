// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Writes the report pages of the open Slide Information File into the
// Reports directory beside the program: a summary by category or by
// location, and the sub-reports that its links lead to.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/NumberRules.h"
#include "base/RuntimeError.h"
#include "model/SlideRecord.h"
#include "reports/ReportMaker.h"
#include "reports/ReportPages.h"
#include "reports/SummaryPage.h"

namespace cb {

class UIMainController;

// What showing a report's slide asks of the windows.
class ReportSlideWindows {
 public:
  virtual ~ReportSlideWindows() = default;
  // Unloads the slide window when one is open, so that the slide comes up afresh.
  virtual void UnloadSlideWindow() = 0;
  // Shows record `record` in the slide window; ObjectNotSet when no gallery is open.
  virtual RtError ShowReportSlide(std::int32_t record) = 0;
  // The main window's status bar.
  virtual void SetStatusText(const std::string& text) = 0;
};

class UIReportController {
 public:
  // `mc` gives the program's directory, the open file's path and the
  // template; `slides` is the collection read; failures are described in
  // `errorInfo`. All three must outlive the controller.
  UIReportController(UIMainController& mc, SlideArray& slides, ErrorArray& errorInfo, ReportLocale locale);

  // The font face written into the pages; the viewer sets it first.
  const std::string& ReportFont() const { return reportFont_; }
  void ReportFont(std::string font) { reportFont_ = std::move(font); }

  // Write "Report1.htm", Value totalled by Category (entries: locations) or
  // by Location (entries: categories), and restart the list of report files.
  // False, with errorInfo filled, when the page could not be made or written.
  bool CreateReportByCategory();
  bool CreateReportByLocation();

  // Write the next numbered report file: the slides whose trimmed Category
  // (or Location) is `key`. False, with errorInfo filled, on failure.
  bool CreateSubReportByCategory(const std::string& key);
  bool CreateSubReportByLocation(const std::string& key);

  // The list of report files written since the summary; see ReportPages::Stack.
  std::string ReportStack(StackOp operation, const std::string& fileName);

  // Writes `text` to the Reports directory under the bare name `fileName`,
  // which comes back as the full path. False, with `errors` filled, on failure.
  bool SaveReport(std::string& fileName, const std::string& text, ErrorArray& errors);

  // The first slide whose trimmed PictureFile is `key`; 0 when none.
  std::int32_t GetSlideIndex(const std::string& key) const;

  // Where slides from the pages are shown; the viewer sets it and outlives its use.
  void SlideWindows(ReportSlideWindows* windows) { slideWindows_ = windows; }

  // Show the slide of a sub-report's link `key` over the report, put "Slide: "
  // and its number in the status bar and make it the current image. False,
  // with `errors` filled, when it cannot be shown.
  bool ShowCategorySlide(const std::string& key, ErrorArray& errors);
  bool ShowLocationSlide(const std::string& key, ErrorArray& errors);

  // Follows the link `key` of the page titled `pageTitle`: a summary's link
  // writes a sub-report, a sub-report's link shows its slide. False for any
  // other title, or when that fails (errorInfo filled).
  bool FollowLink(std::string_view pageTitle, const std::string& key);

 private:
  bool CreateReport(ReportKind kind);
  bool CreateSubReport(ReportKind kind, const std::string& key);
  ReportSource Source() const;
  // Runs `make`, turning a failed allocation into error 7.
  template <class Make>
  bool WithinMemory(Make make);
  std::string ReportsDirectory() const;

  UIMainController& mc_;
  SlideArray& slides_;
  ErrorArray& errorInfo_;
  ReportLocale locale_;
  std::string reportFont_;
  ReportPages reportPages_;
  ReportSlideWindows* slideWindows_ = nullptr;
};

}  // namespace cb
