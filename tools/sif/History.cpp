// SPDX-License-Identifier: GPL-3.0-or-later
#include "History.h"

#include <ctime>

#include "pack/ClaimContent.h"
#include "pack/SifFile.h"
#include "storage/DataAccess.h"
#include "storage/KeptPictures.h"
#include "storage/RemovedSlides.h"
#include "storage/SlideFileLock.h"
#include "storage/SlideHistory.h"

namespace cb::sif {
namespace {

std::string SetAsideMessage(const std::string& path) {
  return "the undo history of " + path + " does not fit the file: it was changed elsewhere; the history was set aside";
}

// The history of the file named on the line, read and checked; false when the
// caller must return `status`.
bool OpenHistory(const QStringList& args, const CommandIo& io, std::string& path, int& status) {
  QCommandLineParser p;
  if (!ParseOne(p, args, io, status)) return false;
  path = p.positionalArguments()[0].toStdString();
  if (Env::Default().KindOf(path) != EntryKind::File) {
    status = DataError(io, path + ": no such file");
    return false;
  }
  return true;
}

std::string Utc(std::int64_t seconds) {
  const std::time_t t = static_cast<std::time_t>(seconds);
  std::tm tm{};
  gmtime_r(&t, &tm);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &tm);
  return text;
}

// Undo (`back`) or Redo one step, with the lock the program holds on its
// file, and as the program does: the pictures the step copied over go back
// into the gallery beside the file's folder, and the bin hears of it.
int Step(const QStringList& args, const CommandIo& io, bool back) {
  std::string path;
  int status = kExitOk;
  if (!OpenHistory(args, io, path, status)) return status;
  SlideFileLock lock;
  if (!lock.TryAcquire(path)) return DataError(io, OpenInProgramMessage(path));
  SlideHistory history(Env::Default(), path);
  if (history.Open() == SlideHistory::Fit::SetAside) return DataError(io, SetAsideMessage(path));
  const auto name = back ? history.UndoName() : history.RedoName();
  if (!name) return DataError(io, path + (back ? ": nothing to undo" : ": nothing to redo"));
  const std::int32_t number = back ? history.Done() : history.Done() + 1;
  pack::SifDocument before, after;
  std::string message;
  const bool read = pack::ReadSif(path, before, message);
  if (Status s = DataAccess().StepHistory(path, history, back); !s.ok())
    return DataError(io, path + ": " + std::string(s.description()));
  KeptPictures(Env::Default(), path).PutBack(number, back, pack::DefaultGalleryDir(path) + "/");
  if (read && pack::ReadSif(path, after, message))
    BinStep(Env::Default(), path, *name, back ? StepWay::Undone : StepWay::Redone, before.Slides, after.Slides,
            static_cast<std::int64_t>(std::time(nullptr)));
  io.out << (back ? "Undone: " : "Redone: ") << *name << "\n";
  return kExitOk;
}

}  // namespace

int RunHistory(const QStringList& args, const CommandIo& io) {
  std::string path;
  int status = kExitOk;
  if (!OpenHistory(args, io, path, status)) return status;
  SlideHistory history(Env::Default(), path);
  if (history.Open() == SlideHistory::Fit::SetAside) return DataError(io, SetAsideMessage(path));
  const std::int32_t done = history.Done();
  for (const HistoryStepInfo& step : history.Steps()) {
    io.out << (step.number <= done ? "  " : "* ") << step.number << "  " << Utc(step.time) << "  " << step.name << "  ("
           << step.slidesTouched << (step.slidesTouched == 1 ? " slide)" : " slides)") << "\n";
  }
  return kExitOk;
}

int RunUndo(const QStringList& args, const CommandIo& io) { return Step(args, io, true); }

int RunRedo(const QStringList& args, const CommandIo& io) { return Step(args, io, false); }

}  // namespace cb::sif
