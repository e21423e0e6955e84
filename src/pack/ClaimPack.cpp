// SPDX-License-Identifier: GPL-3.0-or-later
#include "pack/ClaimPack.h"

#include <QDate>
#include <QLocale>

#include <filesystem>

#include "pack/ClaimContent.h"
#include "pack/ClaimPdf.h"
#include "pack/SifFile.h"
#include "qt/SystemLocale.h"

namespace cb::pack {

namespace fs = std::filesystem;

QPageSize::PageSizeId LocalePageSize() {
  return QLocale::system().measurementSystem() == QLocale::ImperialUSSystem ? QPageSize::Letter : QPageSize::A4;
}

std::string DefaultClaimPath(const std::string& sifPath) {
  const fs::path path(sifPath);
  return (path.parent_path() / (path.stem().string() + "-claim.pdf")).string();
}

Status MakeClaimPack(const ClaimRequest& request, const JobProgress& progress, std::vector<std::string>& notes) {
  const std::string galleryDir = request.galleryDir.empty() ? DefaultGalleryDir(request.sifPath) : request.galleryDir;
  std::error_code ec;
  if (!fs::is_directory(galleryDir, ec)) return Status::Described(galleryDir + ": not a directory");
  SifDocument doc;
  std::string message;
  if (!ReadSif(request.sifPath, doc, message)) return Status::Described(message);

  const ClaimContent content =
      MakeClaimContent(doc, request.sifPath, galleryDir, request.kind, SystemReportLocale(), request.where);
  const ClaimPdfOptions options{request.page, QLocale::system().toString(QDate::currentDate(), QLocale::LongFormat)};
  if (Status written = WriteClaimPdf(content, options, request.pdfPath, progress); !written.ok()) return written;
  for (const auto& s : content.slides)
    if (!s.pictureFound)
      notes.push_back("slide " + std::to_string(s.number) + ": " +
                      (s.picture.empty() ? std::string("no picture named") : "picture \"" + s.picture + "\" is missing") +
                      ", marked in the claim");
  return {};
}

}  // namespace cb::pack
