// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What an insurance claim pack says, as text: the cover's facts, the totals
// by group and each slide's block. The PDF writer only lays it out.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/NumberRules.h"
#include "find/SlideQuery.h"
#include "pack/SifFile.h"
#include "reports/SummaryPage.h"

namespace cb::pack {

struct ClaimField {
  std::string label;  // the template's label, "Serial #", "Regn #", ...
  std::string value;  // UTF-8, padding dropped
};

struct ClaimSlide {
  std::int32_t number = 0;  // record number, from 1
  std::string text;         // slide text, UTF-8
  std::string picture;      // the file name the slide names, UTF-8; may be empty
  std::string picturePath;  // where it was looked for; empty without a usable name
  bool pictureFound = false;
  std::vector<ClaimField> fields;
};

struct ClaimGroup {
  std::string key;    // UTF-8
  std::int32_t slides = 0;
  std::string total;  // "#,###" as the summary report shows it
};

struct ClaimContent {
  std::string fileName;      // bare name of the file, UTF-8
  std::string templateName;  // "Home Security", ...
  std::int32_t slideCount = 0;
  std::string grandTotal;    // the summary report's grand total; "0" where the report leaves it blank
  std::string groupWord;     // "Category", "Location", "Suburb" or "Year"
  std::string locationWord;  // the template's word for Location
  std::vector<ClaimGroup> groups;
  std::int32_t ungrouped = 0;  // slides that no summary counts: no category or no location
  std::vector<ClaimSlide> slides;
};

// The claim of `doc`, read from `filePath`, grouped by `kind`, with pictures
// looked up in `galleryDir`. Totals follow the summary report, values are
// shown as its sub-report shows them, amounts with `locale`'s separator.
// With a find query in `where` (UTF-8), the count, totals and blocks are
// those of the matching slides alone, each under its record number.
ClaimContent MakeClaimContent(const SifDocument& doc, const std::string& filePath, const std::string& galleryDir,
                              ReportKind kind, const ReportLocale& locale, std::string_view where = {});

// The gallery beside the file's own folder: "Files/x.sif" has "Gallery/".
std::string DefaultGalleryDir(const std::string& filePath);

}  // namespace cb::pack
