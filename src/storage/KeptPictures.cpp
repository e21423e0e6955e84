// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/KeptPictures.h"

#include <cstdio>

#include "storage/SlideHistory.h"

namespace cb {
namespace {

constexpr unsigned kFolderMode = 0777;
constexpr unsigned kFileMode = 0666;

}  // namespace

KeptPictures::KeptPictures(Env& env, const std::string& sifPath)
    : env_(env), folder_(SlideHistory::FolderOf(sifPath)) {}

std::string KeptPictures::Name(std::int32_t step, std::size_t k, bool replaced) const {
  char name[48];
  // Pending pictures are step 0, which no step ever is.
  std::snprintf(name, sizeof name, "/%08d-%zu.%s", static_cast<int>(step), k, replaced ? "old" : "new");
  return folder_ + name;
}

std::string KeptPictures::ListOf(std::int32_t step) const {
  char name[32];
  std::snprintf(name, sizeof name, "/%08d.pictures", static_cast<int>(step));
  return folder_ + name;
}

void KeptPictures::Keep(const std::string& galleryPath, const std::string& comingFrom) {
  if (env_.KindOf(galleryPath) != EntryKind::File || env_.MakeDirectory(folder_, kFolderMode) != RtError::None) return;
  const std::size_t k = pending_.size();
  if (env_.CopyFile(galleryPath, Name(0, k, true)) != RtError::None ||
      env_.CopyFile(comingFrom, Name(0, k, false)) != RtError::None)
    return;
  pending_.push_back(galleryPath.substr(galleryPath.rfind('/') + 1));
}

void KeptPictures::Attach(std::int32_t step) {
  if (pending_.empty()) return;
  std::string list;
  for (std::size_t k = 0; k < pending_.size(); ++k) {
    for (const bool replaced : {true, false}) {
      if (step == 0) {
        env_.Remove(Name(0, k, replaced));
        continue;
      }
      env_.Rename(Name(0, k, replaced), Name(step, k, replaced));
    }
    list += pending_[k] + "\n";
  }
  // The list names the pictures in the order of their copies.
  if (step != 0) ReplaceFile(env_, ListOf(step), list, kFileMode);
  pending_.clear();
}

void KeptPictures::PutBack(std::int32_t step, bool replaced, const std::string& galleryDir) {
  std::string list;
  if (env_.ReadWhole(ListOf(step), list) != RtError::None) return;
  std::size_t k = 0;
  for (std::size_t at = 0, end; (end = list.find('\n', at)) != std::string::npos; at = end + 1, ++k)
    env_.CopyFile(Name(step, k, replaced), galleryDir + list.substr(at, end - at));
}

}  // namespace cb
