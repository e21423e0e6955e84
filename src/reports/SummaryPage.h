// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The page of a summary report: Value totalled by group and entry, with a
// link on each group that the report viewer turns into a sub-report.

#include <string>

#include "base/NumberRules.h"
#include "model/Categories.h"
#include "reports/ValueMatrix.h"

namespace cb {

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
