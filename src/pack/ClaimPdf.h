// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The claim pack as a PDF: real text, each picture scaled down and stored
// as JPEG. Needs a QGuiApplication (fonts).

#include <QPageSize>
#include <QString>

#include <string>

#include "base/Status.h"
#include "pack/ClaimContent.h"
#include "pack/JobProgress.h"

namespace cb::pack {

struct ClaimPdfOptions {
  QPageSize::PageSizeId page = QPageSize::A4;
  QString dateText;  // the cover's date, in the system's words
};

// Writes `content` to `path`: a cover, the totals by group, then the slides
// in record order, five or so to a page, with a "Picture" step as each slide
// is drawn. The file appears only when whole; a cancel leaves nothing.
Status WriteClaimPdf(const ClaimContent& content, const ClaimPdfOptions& options, const std::string& path,
                     const JobProgress& progress);

}  // namespace cb::pack
