// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The page of a sub-report: the slides of one category or one location,
// each with a link that the report viewer turns into the slide.

#include <string>

#include "base/NumberRules.h"
#include "base/RuntimeError.h"
#include "model/SlideRecord.h"
#include "reports/SummaryPage.h"

namespace cb {

// The slides 1..n of `slides` whose trimmed `keyField` equals `key` exactly,
// in record order, from element 1 (element 0 is an empty record). Only
// Category, PictureFile, Location, Serial and SlideText are copied, trimmed
// and padded again; Value becomes NumberText(LeadingNumber(trimmed Value)),
// cut to the field. `error` becomes Overflow when a Value is beyond a double.
SlideArray SelectSlides(const SlideArray& slides, Field keyField, const std::string& key, RtError& error);

struct SubReportPageInput {
  ReportKind kind = ReportKind::ByCategory;
  const SlideArray* subset = nullptr;  // from SelectSlides
  std::string key;                     // as the link gave it
  std::string groupLabel;
  std::string font;
  std::string filePath;
  const ReportLocale* locale = nullptr;  // for the serial numbers
};

// The whole page as one line, without a line end; nothing in it is escaped.
std::string WriteSubReportPage(const SubReportPageInput& in);

}  // namespace cb
