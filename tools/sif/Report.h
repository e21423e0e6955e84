// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The report pages of a Slide Information File, made by the program's own
// page functions and handed back as bytes.

#include <optional>
#include <string>

#include "base/NumberRules.h"
#include "pack/SifFile.h"
#include "reports/SummaryPage.h"

namespace cb::sif {

struct ReportRequest {
  ReportKind kind = ReportKind::ByCategory;
  std::optional<std::string> key;   // Windows-1252; asks for the sub-report of this group
  std::optional<std::string> font;  // Windows-1252; the file's report font when unset
  std::string filePath;             // Windows-1252; what the page's links name before "?"
};

// The page the program writes for `doc`, line end included. The template
// applies as the report chooser leaves it: one outside 1 to 3 counts as 1.
// False, with `message` filled, when the page cannot be made.
bool MakeReport(const ReportRequest& request, const pack::SifDocument& doc, const ReportLocale& locale, std::string& page,
                std::string& message);

// UTF-8 text from the command line as the file's Windows-1252, or nothing
// with `message` filled when a character has no place there.
std::optional<std::string> Utf8ToFileText(const std::string& utf8, std::string& message);

}  // namespace cb::sif
