// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Backup and restore: a Slide Information File with its undo history, every
// picture it names, its frame and its wallpaper, in one tar.gz with a SHA-256
// manifest, and back into an application directory.

#include <ctime>
#include <string>
#include <vector>

#include "base/Status.h"
#include "pack/JobProgress.h"
#include "pack/Manifest.h"

namespace cb::pack {

struct BackupRequest {
  std::string sifPath;
  std::string galleryDir;  // empty: the gallery beside the file's folder
  std::string archivePath;
};

struct BackupResult {
  std::size_t files = 0;           // files in the archive, the manifest not counted
  std::size_t missing = 0;         // files named but not found
  std::vector<std::string> notes;  // one line per file left out or missing
};

// "Files/My.sif" on 2026-11-25 gives "Files/My-2026-11-25.tar.gz".
std::string DefaultBackupPath(const std::string& sifPath, std::time_t now);

// Writes the archive, each file streamed in blocks; it appears only whole.
// Reports one "File" step per file.
Status MakeBackup(const BackupRequest& request, const JobProgress& progress, BackupResult& result);

struct RestoreEntry {
  std::string name;  // "Gallery/tv.jpg"
  std::string hash;
  std::time_t mtime = 0;
};

// What a restore would do, found by reading the archive twice: for its
// manifest, then each member against it.
struct RestorePlan {
  std::string archivePath;
  std::string appDir;                 // absolute
  std::vector<RestoreEntry> entries;  // in archive order
  Manifest manifest;
  std::vector<std::string> existing;  // entry names whose file exists and would be replaced
};

// Reads and checks every name and hash of the archive against its manifest,
// writing nothing, and stops at the first member the manifest does not
// account for (or a history whose file the archive lacks); it holds no more
// than the manifest names, however many members the archive has. Reports
// "Checking file" steps (count unknown).
Status PlanRestore(const std::string& archivePath, const std::string& appDir, const JobProgress& progress,
                   RestorePlan& plan);

// Writes every file of `plan` beside its target and moves them all into place
// only when all are whole; on failure or cancel nothing is replaced. Then
// each slide file restored has the archive's history alone: old history
// files the archive lacks are removed, and an old history the archive
// carries none for is set aside. Reports one "Restoring file" step per file.
Status CarryOutRestore(const RestorePlan& plan, const JobProgress& progress);

}  // namespace cb::pack
