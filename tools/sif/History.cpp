// SPDX-License-Identifier: GPL-3.0-or-later
#include "History.h"

#include <ctime>

#include "storage/DataAccess.h"
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

// Undo (`back`) or Redo one step, with the lock the program holds on its file.
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
  if (Status s = DataAccess().StepHistory(path, history, back); !s.ok())
    return DataError(io, path + ": " + std::string(s.description()));
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
