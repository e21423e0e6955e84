// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The claim pack as a PDF: real text, each picture scaled down and stored
// as JPEG. Needs a QGuiApplication (fonts).

#include <QPageSize>
#include <QString>

#include <string>

#include "pack/ClaimContent.h"

namespace cb::pack {

struct ClaimPdfOptions {
  QPageSize::PageSizeId page = QPageSize::A4;
  QString dateText;  // the cover's date, in the system's words
};

// Letter where the system's locale measures in inches, else A4.
QPageSize::PageSizeId LocalePageSize();

// Writes `content` to `path`: a cover, the totals by group, then the slides
// in record order, five or so to a page. The file appears only when whole.
// False, with `message` filled, when it cannot be written.
bool WriteClaimPdf(const ClaimContent& content, const ClaimPdfOptions& options, const QString& path,
                   std::string& message);

}  // namespace cb::pack
