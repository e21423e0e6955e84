// SPDX-License-Identifier: GPL-3.0-or-later
#include "Claim.h"

#include "Where.h"
#include "pack/ClaimPack.h"

namespace cb::sif {

int RunClaim(const QStringList& args, const CommandIo& io) {
  QCommandLineParser p;
  const QCommandLineOption gallery(QString("gallery"), "the directory of the pictures", "DIR");
  const QCommandLineOption by(QString("by"), "category or location", "GROUPING");
  const QCommandLineOption page(QString("page"), "a4 or letter", "SIZE");
  const QCommandLineOption output({"o", "output"}, "the PDF to write", "CLAIM.pdf");
  p.addOptions({gallery, by, page, output, WhereOption()});
  int status = kExitOk;
  if (!ParseOne(p, args, io, status)) return status;
  if (p.value(output).isEmpty()) return UsageError(io, "claim needs -o CLAIM.pdf");
  pack::ClaimRequest request;
  if (p.value(by) == "location")
    request.kind = ReportKind::ByLocation;
  else if (p.isSet(by) && p.value(by) != "category")
    return UsageError(io, "--by takes category or location");
  request.page = pack::LocalePageSize();
  if (p.value(page) == "a4")
    request.page = QPageSize::A4;
  else if (p.value(page) == "letter")
    request.page = QPageSize::Letter;
  else if (p.isSet(page))
    return UsageError(io, "--page takes a4 or letter");
  SlideQuery query;  // read again by the claim itself
  if (!WhereQuery(p, io, query, status)) return status;

  request.sifPath = p.positionalArguments()[0].toStdString();
  request.galleryDir = p.value(gallery).toStdString();
  request.pdfPath = p.value(output).toStdString();
  request.where = p.value(WhereOption()).toStdString();
  std::vector<std::string> notes;
  if (const Status made = pack::MakeClaimPack(request, pack::Unwatched, notes); !made.ok())
    return DataError(io, made.description());
  for (const auto& n : notes) io.err << n << "\n";
  return kExitOk;
}

}  // namespace cb::sif
