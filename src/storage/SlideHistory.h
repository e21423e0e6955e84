// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The undo history of a slide file, kept beside it in a hidden folder named
// from the file (".MyFiles.sif.history"): one small file per step and a
// cursor. A step holds what changed between two versions of the file's
// bytes (the records before and after, not the whole file, unless the whole
// file changed) and the hashes of both versions, so that undo and redo give
// those versions back byte for byte, and a file changed elsewhere is noticed
// instead of being "undone" into something it never was.
//
// Every write is made to last before the slide file is written: a crash at
// any moment leaves a history that fits the file, or one a step away from
// it, which Open repairs, or one that is set aside; never one that undoes
// into a wrong file.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Status.h"
#include "storage/Env.h"

namespace cb {

struct HistoryStepInfo {
  std::int32_t number = 0;         // from 1, counting every step the file ever had
  std::int64_t time = 0;           // seconds since 1970, UTC, when it was recorded
  std::string name;                // "Edit Slide", "Remove Slide", ...
  std::int32_t slidesTouched = 0;  // records changed, added or removed
};

class SlideHistory {
 public:
  // At least this many steps are kept, up to kKeptBytes of them; the oldest go first.
  static constexpr std::int32_t kKeptSteps = 1000;
  static constexpr std::int64_t kKeptBytes = 64ll << 20;

  // Reads nothing: Open does, before anything else.
  SlideHistory(Env& env, std::string sifPath);

  // The history folder of `sifPath`: ".NAME.history" in the file's folder.
  static std::string FolderOf(const std::string& sifPath);
  // Moves a history folder aside, kept: to "FOLDER.set-aside", or ".set-aside.2"
  // when that is taken, and so on. A missing folder stays missing.
  static void SetAsideFolder(Env& env, const std::string& folder);
  // The file in the folder that only says what this machine last wrote.
  static constexpr std::string_view kStampFile = "stamp";

  enum class Fit {
    Fits,      // the history is that of the file as it is on disk (or there is none)
    SetAside,  // the file was changed elsewhere: the history was moved aside, kept, and is empty now
  };
  // Reads the history and checks it against the file on disk: by the stamp
  // remembered after the last write when it still holds, else by hashing the
  // file. A history one step off (a crash between the history's write and
  // the file's) is put right.
  Fit Open();

  // Records step `name` from `before` to `after`, the file's whole bytes, and
  // makes it last; the caller writes `after` to the file next. Steps that
  // could have been redone are dropped, and the oldest beyond the limits.
  // With `amend`, the step replaces the last one, keeping its "before": the
  // missing-file protocol's removals in one load make one step (InvalidCall
  // while steps after the cursor could be redone). A `before` that is not the
  // history's last version (the file changed elsewhere) sets the history
  // aside, and a new one starts with this step; no step when nothing changed.
  Status Record(std::string_view name, std::string_view before, std::string_view after, bool amend = false);

  // The names of the steps Undo and Redo would apply; nothing when there is none.
  std::optional<std::string> UndoName() const;
  std::optional<std::string> RedoName() const;

  // Given the file's bytes now, the bytes before the step at the cursor; the
  // cursor moves back and lasts, and the caller writes `before` to the file.
  // Fails, changing nothing, when `current` is not what the history expects.
  // `current` may view all of `before` itself: the step is then made in
  // place, with no second copy of the file.
  Status Undo(std::string_view current, std::string& before);
  // The same forward.
  Status Redo(std::string_view current, std::string& after);

  // After the caller has written the file: remembers its stamp, so that the
  // next Open needs no hash.
  void Written();

  // Counts `bytes` kept elsewhere in the folder for step `step` (pictures
  // it copied over) towards the limit, which may drop the oldest steps.
  Status AddBytes(std::int32_t step, std::uint64_t bytes);

  // The steps kept, oldest first, and how many of them are done (the cursor:
  // the number of the last step done, steps numbered up to it are done).
  std::vector<HistoryStepInfo> Steps() const;
  std::int32_t Done() const;

 private:
  std::string StampPath() const;
  // What the cursor file keeps of a step, so that Open, the names and the
  // limits need no step file.
  struct Kept {
    HistoryStepInfo info;
    std::uint64_t bytes = 0;      // of its step file
    std::uint64_t afterHash = 0;  // of the file after it
  };
  struct StepFile;

  std::uint64_t HashAt(std::int32_t n) const;  // H(n): the file's hash once step n is done
  Kept& At(std::int32_t n) { return kept_[static_cast<std::size_t>(n - first_)]; }
  const Kept& At(std::int32_t n) const { return kept_[static_cast<std::size_t>(n - first_)]; }
  std::string StepPath(std::int32_t n) const;
  void Reset();
  void SetAside();
  void RemoveStep(std::int32_t n);  // its file and whatever was kept with it
  bool ReadCursor();
  Status WriteCursor();
  bool ReadStep(std::int32_t n, StepFile& step) const;
  Status WriteStep(std::int32_t n, const StepFile& step, std::uint64_t& bytes);
  Status Move(bool back, std::string_view current, std::string& result);
  Status Append(std::string_view name, std::string_view before, std::uint64_t beforeHash,
                const std::vector<std::uint64_t>& beforeRecords, std::string_view after);
  Status Amend(std::string_view name, std::string_view before, std::uint64_t beforeHash,
               const std::vector<std::uint64_t>& beforeRecords, std::string_view after);
  Status Commit();  // drops the oldest beyond the limits, writes the cursor, then removes their files
  bool StampedHash(std::uint64_t& hash) const;
  bool FitTo(std::uint64_t hash);
  void RemoveStrays();

  Env& env_;
  std::string sifPath_;
  std::string folder_;
  // first kept step, last step, and the last one done (first - 1 when none)
  std::int32_t first_ = 1, last_ = 0, cursor_ = 0;
  std::uint64_t firstBeforeHash_ = 0;  // H(first - 1)
  std::vector<Kept> kept_;             // steps first..last
};

}  // namespace cb
