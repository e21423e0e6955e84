// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The report pages as text, made from the slides alone: nothing is written
// here. The program's report controller and the command-line companion save
// what these return.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/NumberRules.h"
#include "base/Status.h"
#include "model/SlideRecord.h"
#include "reports/SummaryPage.h"

namespace cb {

// The word for the second grouping under `slideTemplate`: 1 "Location",
// 2 "Suburb", 3 "Year"; nothing for any other template.
std::optional<std::string_view> GroupLabel(std::int32_t slideTemplate);

// What every page of one collection is made from.
struct ReportSource {
  const SlideArray* slides = nullptr;  // element 0 the header, 1..n the slides
  std::int32_t slideTemplate = 1;      // a template without a label makes empty pages
  std::string font;                    // face of every font tag
  std::string filePath;                // the open file, before "?" in links
  const ReportLocale* locale = nullptr;
};

// The summary page, Value totalled by category (entries: locations) or by
// location (entries: categories), without a line end. Fails, naming
// `source`, when the slides cannot be counted or a sum leaves a double.
Status MakeSummaryPage(const ReportSource& in, ReportKind kind, std::string_view source, std::string& page);

// The sub-report page of the slides whose trimmed Category (or Location) is
// `key`, without a line end. Fails when a Value is beyond a double.
Status MakeSubReportPage(const ReportSource& in, ReportKind kind, const std::string& key, std::string_view source,
                         std::string& page);

}  // namespace cb
