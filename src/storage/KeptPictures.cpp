// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/KeptPictures.h"

#include <algorithm>
#include <cstdio>
#include <memory>

#include "storage/SlideHistory.h"

namespace cb {
namespace {

constexpr unsigned kFolderMode = 0777;
constexpr unsigned kFileMode = 0666;

}  // namespace

KeptPictures::KeptPictures(Env& env, const std::string& sifPath)
    : env_(env), folder_(SlideHistory::FolderOf(sifPath)) {}

std::string KeptPictures::Name(const std::string& folder, std::int32_t step, std::size_t k, bool replaced) {
  char name[48];
  // Pending pictures are step 0, which no step ever is.
  std::snprintf(name, sizeof name, "/%08d-%zu.%s", static_cast<int>(step), k, replaced ? "old" : "new");
  return folder + name;
}

std::string KeptPictures::ListOf(const std::string& folder, std::int32_t step) {
  char name[32];
  std::snprintf(name, sizeof name, "/%08d.pictures", static_cast<int>(step));
  return folder + name;
}

std::vector<std::string> KeptPictures::Listed(Env& env, const std::string& folder, std::int32_t step) {
  std::string list;
  std::vector<std::string> names;
  if (env.ReadWhole(ListOf(folder, step), list) != RtError::None) return names;
  for (std::size_t at = 0, end; (end = list.find('\n', at)) != std::string::npos; at = end + 1)
    names.push_back(list.substr(at, end - at));
  return names;
}

void KeptPictures::Keep(const std::string& galleryPath, const std::string& comingFrom) {
  if (env_.KindOf(galleryPath) != EntryKind::File || env_.MakeDirectory(folder_, kFolderMode) != RtError::None) return;
  const std::size_t k = pending_.size();
  if (env_.CopyFile(galleryPath, Name(folder_, 0, k, true)) != RtError::None ||
      env_.CopyFile(comingFrom, Name(folder_, 0, k, false)) != RtError::None)
    return;
  pending_.push_back(galleryPath.substr(galleryPath.rfind('/') + 1));
}

std::uint64_t KeptPictures::Attach(std::int32_t step) {
  std::uint64_t bytes = 0;
  if (pending_.empty()) return bytes;
  std::string list;
  for (std::size_t k = 0; k < pending_.size(); ++k) {
    for (const bool replaced : {true, false}) {
      const std::string pending = Name(folder_, 0, k, replaced);
      if (step == 0) {
        env_.Remove(pending);
        continue;
      }
      std::unique_ptr<RecordFile> copy;
      if (env_.OpenRecords(pending, 1, OpenMode::Read, copy) == RtError::None)
        bytes += static_cast<std::uint64_t>(std::max(copy->Size(), 0LL));
      env_.Rename(pending, Name(folder_, step, k, replaced));
    }
    list += pending_[k] + "\n";
  }
  // The list names the pictures in the order of their copies.
  if (step != 0) ReplaceFile(env_, ListOf(folder_, step), list, kFileMode);
  pending_.clear();
  return bytes;
}

void KeptPictures::PutBack(std::int32_t step, bool replaced, const std::string& galleryDir) {
  const std::vector<std::string> names = Listed(env_, folder_, step);
  for (std::size_t k = 0; k < names.size(); ++k) env_.CopyFile(Name(folder_, step, k, replaced), galleryDir + names[k]);
}

void KeptPictures::Forget(Env& env, const std::string& folder, std::int32_t step) {
  const std::size_t count = Listed(env, folder, step).size();
  for (std::size_t k = 0; k < count; ++k)
    for (const bool replaced : {true, false}) env.Remove(Name(folder, step, k, replaced));
  env.Remove(ListOf(folder, step));
}

}  // namespace cb
