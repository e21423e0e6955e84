// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The insurance claim pack of a Slide Information File, from the file to the
// PDF: what chattelbook-sif claim and the program's File menu both make.

#include <QPageSize>

#include <string>
#include <vector>

#include "base/Status.h"
#include "pack/JobProgress.h"
#include "reports/SummaryPage.h"

namespace cb::pack {

struct ClaimRequest {
  std::string sifPath;
  std::string galleryDir;  // empty: the gallery beside the file's folder
  ReportKind kind = ReportKind::ByCategory;
  QPageSize::PageSizeId page = QPageSize::A4;
  std::string pdfPath;
  std::string where{};  // a find query (UTF-8); empty: every slide
};

// Letter where the system's locale measures in inches, else A4.
QPageSize::PageSizeId LocalePageSize();

// "Files/My.sif" gives "Files/My-claim.pdf".
std::string DefaultClaimPath(const std::string& sifPath);

// Writes the claim pack; the PDF appears only whole. Reports one "Picture"
// step per slide as its block is drawn, and "Picture 1" now and then while
// a large file is laid out before it. `notes` gets a line per slide whose
// picture is missing ("slide 3: picture \"tv.jpg\" is missing, marked in
// the claim").
Status MakeClaimPack(const ClaimRequest& request, const JobProgress& progress, std::vector<std::string>& notes);

}  // namespace cb::pack
