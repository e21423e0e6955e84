// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The real file system behind Env::Default(); tests derive from it to put a
// failure at one step.

#include "storage/Env.h"

namespace cb {

class DiskEnv : public Env {
 public:
  RtError OpenRecords(const std::string& path, std::size_t recordLength, OpenMode mode,
                      std::unique_ptr<RecordFile>& file) override;
  std::string EntryName(const std::string& path) override;
  RtError ReadWhole(const std::string& path, std::string& bytes) override;
  std::string ResolveLinks(const std::string& path) override;
  RtError NewFileBeside(const std::string& target, unsigned newMode, std::string& name,
                        std::unique_ptr<WritableFile>& file) override;
  bool FolderRefusesSave(const std::string& path) override;
  RtError Rename(const std::string& from, const std::string& to) override;
  void Remove(const std::string& path) override;
  RtError MakeDirectory(const std::string& dir, unsigned mode) override;
  RtError NewWritableFile(const std::string& path, unsigned newMode, std::unique_ptr<WritableFile>& file) override;
  RtError CopyFile(const std::string& from, const std::string& to) override;
  RtError ListDirectory(const std::string& dir, std::vector<DirEntry>& entries) override;
  EntryKind KindOf(const std::string& path) override;
  RtError CopyTree(const std::string& from, const std::string& to) override;
  RtError MakeUniqueDirectory(const std::string& prefix, unsigned mode, std::string& made) override;
  RtError MakeLink(const std::string& target, const std::string& link) override;
  void RemoveTree(const std::string& path) override;
  // Size, times of change to the nanosecond, inode and device, links followed.
  std::string Stamp(const std::string& path) override;
};

// The mode a newly made file gets: 0666 less the umask.
unsigned NewFileMode();

// Where a whole-file save of `path` lands: the file at the end of its links
// (the links stay), with the mode the file has, or a new file's mode.
// `plain` is false when what stands there is a device, a pipe or a socket,
// which a rename would replace by a plain file.
struct SaveTarget {
  std::string path;
  unsigned mode = 0;
  bool plain = true;
};
SaveTarget SaveTargetOf(const std::string& path);

// Makes the private file a save writes before renaming it over `target`:
// "DIR/.NAME.save-" and six random characters, with `mode` and, where
// permitted, the owner of an existing `target`. Its descriptor, or -1 with
// errno set.
int MakeTempBeside(const std::string& target, unsigned mode, std::string& name);

// Removes what killed saves of `target` left beside it: files named as
// MakeTempBeside names them, ours and older than `fresh`.
void RemoveStaleTemps(const std::string& target, const std::string& fresh);

}  // namespace cb
