// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The only class that touches the data files. It knows nothing of the
// program: callers hand it the paths and the header's settings as values.
// Stateless: a new instance serves one call. See doc/sif-format.md for the
// Slide Information File and doc/small-files.md for the others.

#include <cstdint>
#include <string>
#include <string_view>

#include "base/Status.h"
#include "model/SlideRecord.h"
#include "storage/Env.h"
#include "storage/SifReader.h"
#include "storage/SlideHistory.h"
#include "storage/SmallFiles.h"

namespace cb {

// The header's five settings, as a load stores them and a save writes them.
struct SifSettings {
  std::int32_t NumberOfRecords = 0;  // a save counts the slides instead
  std::string BackgroundImage;
  std::string Wallpaper;
  std::int32_t SlideTemplate = 0;
  std::string ReportFont;
};

// Where a load looks for its file.
struct SifPaths {
  std::string Chosen;    // the path the user chose
  std::string FileName;  // the name that path must find, exactly
  std::string ReadFrom;  // the file read: the installation's files directory
};

// The reports directory after the application directory.
inline constexpr std::string_view kReportsFolder = "/Reports/";
// What a saved report page ends in.
inline constexpr std::string_view kReportLineEnd = "\r\n";

class DataAccess {
 public:
  explicit DataAccess(Env& env = Env::Default()) : env_(env) {}

  // Rewrites every record of the file at `path` from a scrambled copy of
  // `slides` (element 0 is the header) and `settings`. The file keeps its
  // length: records behind the last slide stay. The file is replaced in one
  // step (see ReplaceFile): a failure or a crash leaves it as it was.
  Status SaveSettings(const std::string& path, const SifSettings& settings, const SlideArray& slides);

  // The same, kept in `history` as the step `step` (see SlideHistory::Record)
  // when the file was there before and its bytes change.
  Status SaveSettings(const std::string& path, const SifSettings& settings, const SlideArray& slides,
                      SlideHistory& history, std::string_view step, bool amend = false);

  // Undoes (`back`) or redoes one step of `history` on the file at `path`:
  // its bytes read, the step applied to them, the file replaced.
  Status StepHistory(const std::string& path, SlideHistory& history, bool back);

  // Reads paths.ReadFrom after checking that paths.Chosen finds
  // paths.FileName exactly; a missing ReadFrom is created empty. Replaces `slides` on success and leaves them
  // unchanged on failure. The settings are stored one by one as the load
  // meets them, so a failure keeps those stored before it.
  Status LoadSettings(const SifPaths& paths, SifSettings& settings, SlideArray& slides);

  // The password shared by every installation of this user, in "dprpz.dat"
  // under PasswordDirectory(): one 8-byte scrambled record. A missing file
  // is created empty; an empty or blank record means no password. Like every
  // write here, a put replaces the file in one step.
  Status PutPassword(const std::string& password);
  Status GetPassword(std::string& password);

  // The file history, "fhistlst.dat" in `appPath`, one line of quoted
  // strings. A read that fails leaves the entries read so far filled.
  Status GetFileHistoryList(const std::string& appPath, FileHistory& history);
  Status PutFileHistoryList(const std::string& appPath, const FileHistory& history);

  // Writes `text` and kReportLineEnd to `fileName` (a full path), replacing it,
  // and makes `reportsDirectory` when it is missing.
  Status SaveReport(const std::string& reportsDirectory, const std::string& fileName, const std::string& text);

 private:
  Status Save(const std::string& path, const SifSettings& settings, const SlideArray& slides, SlideHistory* history,
              std::string_view step, bool amend);
  // Writes `bytes` as the whole file at `path`, replaced in one step.
  Status SaveBytes(const std::string& path, std::string_view bytes);
  Env& env_;
};

}  // namespace cb
