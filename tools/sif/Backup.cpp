// SPDX-License-Identifier: GPL-3.0-or-later
#include "Backup.h"

#include "pack/Backup.h"

namespace cb::sif {

int RunBackup(const QStringList& args, const CommandIo& io) {
  QCommandLineParser p;
  const QCommandLineOption gallery(QString("gallery"), "the directory of the pictures", "DIR");
  const QCommandLineOption output({"o", "output"}, "the archive to write", "ARCHIVE.tar.gz");
  p.addOptions({gallery, output});
  int status = kExitOk;
  if (!ParseOne(p, args, io, status)) return status;
  const pack::BackupRequest request{p.positionalArguments()[0].toStdString(), p.value(gallery).toStdString(),
                                    p.value(output).toStdString()};
  if (request.archivePath.empty()) return UsageError(io, "backup needs -o ARCHIVE.tar.gz");

  pack::BackupResult result;
  if (const Status made = pack::MakeBackup(request, pack::Unwatched, result); !made.ok())
    return DataError(io, made.description());
  for (const auto& n : result.notes) io.err << "chattelbook-sif: " << n << "\n";
  io.out << result.files << " files backed up into " << request.archivePath;
  if (result.missing > 0) io.out << ", " << result.missing << " missing";
  io.out << "\n";
  return kExitOk;
}

}  // namespace cb::sif
