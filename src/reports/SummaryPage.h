#pragma once
// The page of a summary report: Value totalled by group and entry, with a
// link on each group that the report viewer turns into a sub-report.

#include <string>
#include <string_view>

#include "base/NumberRules.h"
#include "model/Categories.h"
#include "reports/ValueMatrix.h"

namespace cb {

// The head of every report page, up to its title.
inline constexpr std::string_view kReportPageHead =
    "<html>"
    "<head>"
    "<meta http-equiv='Content-Language' content='en-us'>"
    "<meta http-equiv='Content-Type' content='text/html; charset=windows-1252'>"
    "<meta name='GENERATOR' content='Microsoft FrontPage 4.0'>"
    "<meta name='ProgId' content='FrontPage.Editor.Document'>";

// Which field groups a report: by category the entries are locations, by
// location the entries are categories.
enum class ReportKind { ByCategory, ByLocation };

struct SummaryPageInput {
  ReportKind kind = ReportKind::ByCategory;
  const ValueMatrix* matrix = nullptr;  // (group, entry), summed
  const KeyList* groups = nullptr;
  const KeyList* entries = nullptr;
  std::string groupLabel;  // "Location", "Suburb" or "Year"
  std::string font;        // face of every font tag
  std::string filePath;    // the open Slide Information File, before "?" in links
  std::string dateText;    // the date cell
  const ReportLocale* locale = nullptr;
};

// The whole page as one line, without a line end; nothing in it is escaped.
std::string WriteSummaryPage(const SummaryPageInput& in);

}  // namespace cb
