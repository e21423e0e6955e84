// SPDX-License-Identifier: GPL-3.0-or-later
#include "Claim.h"

#include <QDate>
#include <QLocale>

#include <filesystem>

#include "Report.h"
#include "pack/ClaimContent.h"
#include "pack/ClaimPdf.h"
#include "qt/SystemLocale.h"

namespace cb::sif {

using namespace pack;

int RunClaim(const QStringList& args, const CommandIo& io) {
  QCommandLineParser p;
  const QCommandLineOption gallery(QString("gallery"), "the directory of the pictures", "DIR");
  const QCommandLineOption by(QString("by"), "category or location", "GROUPING");
  const QCommandLineOption page(QString("page"), "a4 or letter", "SIZE");
  const QCommandLineOption output({"o", "output"}, "the PDF to write", "CLAIM.pdf");
  p.addOptions({gallery, by, page, output});
  int status = kExitOk;
  if (!ParseOne(p, args, io, status)) return status;
  if (p.value(output).isEmpty()) return UsageError(io, "claim needs -o CLAIM.pdf");
  ReportKind kind = ReportKind::ByCategory;
  if (p.value(by) == "location")
    kind = ReportKind::ByLocation;
  else if (p.isSet(by) && p.value(by) != "category")
    return UsageError(io, "--by takes category or location");
  ClaimPdfOptions options;
  options.page = LocalePageSize();
  if (p.value(page) == "a4")
    options.page = QPageSize::A4;
  else if (p.value(page) == "letter")
    options.page = QPageSize::Letter;
  else if (p.isSet(page))
    return UsageError(io, "--page takes a4 or letter");

  const std::string path = p.positionalArguments()[0].toStdString();
  const std::string galleryDir = p.isSet(gallery) ? p.value(gallery).toStdString() : DefaultGalleryDir(path);
  std::error_code ec;
  if (!std::filesystem::is_directory(galleryDir, ec)) return DataError(io, galleryDir + ": not a directory");
  SifDocument doc;
  std::string message;
  if (!ReadSif(path, doc, message)) return DataError(io, message);

  const ClaimContent content = MakeClaimContent(doc, path, galleryDir, kind, SystemReportLocale());
  options.dateText = QLocale::system().toString(QDate::currentDate(), QLocale::LongFormat);
  if (!WriteClaimPdf(content, options, p.value(output), message)) return DataError(io, message);
  for (const auto& s : content.slides)
    if (!s.pictureFound)
      io.err << "slide " << s.number << ": "
             << (s.picture.empty() ? std::string("no picture named") : "picture \"" + s.picture + "\" is missing")
             << ", marked in the claim\n";
  return kExitOk;
}

}  // namespace cb::sif
