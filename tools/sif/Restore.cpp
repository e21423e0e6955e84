// SPDX-License-Identifier: GPL-3.0-or-later
#include <memory>
#include <vector>

#include "Backup.h"
#include "pack/Backup.h"
#include "storage/SlideFileLock.h"

namespace cb::sif {

int RunRestore(const QStringList& args, const CommandIo& io) {
  QCommandLineParser p;
  const QCommandLineOption to(QString("to"), "the application directory to restore into", "APPDIR");
  const QCommandLineOption force(QString("force"), "replace existing files");
  p.addOptions({to, force});
  int status = kExitOk;
  if (!ParseOne(p, args, io, status)) return status;
  if (p.value(to).isEmpty()) return UsageError(io, "restore needs --to APPDIR");

  const auto nothingWritten = [&io](const Status& failed) {
    return DataError(io, std::string(failed.description()) + "; nothing was written");
  };
  pack::RestorePlan plan;
  const std::string archive = p.positionalArguments()[0].toStdString();
  if (const Status planned = pack::PlanRestore(archive, p.value(to).toStdString(), pack::Unwatched, plan);
      !planned.ok())
    return nothingWritten(planned);
  if (!plan.existing.empty() && !p.isSet(force)) {
    std::string list;
    for (const auto& n : plan.existing) list += "\n  " + n;
    return DataError(io, "these files exist in " + plan.appDir + "; give --force to replace them" + list +
                             "\nnothing was written");
  }
  // The slide files it would write must not be open in the program.
  std::vector<std::unique_ptr<SlideFileLock>> locks;
  for (const auto& e : plan.entries) {
    if (!e.name.starts_with("Files/") || pack::HistoryOwner(e.name)) continue;
    const std::string target = plan.appDir + "/" + e.name;
    locks.push_back(std::make_unique<SlideFileLock>());
    if (!locks.back()->TryAcquire(target)) return DataError(io, OpenInProgramMessage(target));
  }
  if (const Status restored = pack::CarryOutRestore(plan, pack::Unwatched); !restored.ok())
    return nothingWritten(restored);
  for (const auto& m : plan.manifest.missing)
    io.err << "chattelbook-sif: " << m << " was missing when the backup was made\n";
  io.out << plan.entries.size() << " files restored under " << plan.appDir << "\n";
  return kExitOk;
}

}  // namespace cb::sif
