// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Pictures of the gallery folder that a step copied over (Add Slide and
// Modify Slide Collection replace a picture of the same name without a
// word), kept in the slide file's history folder together with the ones
// that replaced them, so that undo and redo put either back.

#include <cstdint>
#include <string>
#include <vector>

#include "storage/Env.h"

namespace cb {

class KeptPictures {
 public:
  KeptPictures(Env& env, const std::string& sifPath);

  // Before the picture at `galleryPath` is copied over from `comingFrom`:
  // both are kept, waiting for the step the save makes.
  void Keep(const std::string& galleryPath, const std::string& comingFrom);
  // The pictures kept since belong to step `step`; with 0 (no step was
  // made) they go. Gives the bytes they take, for the history's limit.
  std::uint64_t Attach(std::int32_t step);
  // Copies the pictures of step `step` back into `galleryDir` (ending in
  // "/"): those it replaced when `replaced`, else those it brought.
  void PutBack(std::int32_t step, bool replaced, const std::string& galleryDir);

  // Removes the pictures kept with step `step` of the history in `folder`,
  // when the history drops that step.
  static void Forget(Env& env, const std::string& folder, std::int32_t step);

 private:
  // The copy `k` of step `step`, and the list of the step's pictures.
  static std::string Name(const std::string& folder, std::int32_t step, std::size_t k, bool replaced);
  static std::string ListOf(const std::string& folder, std::int32_t step);
  // The names the list of step `step` holds, in the order of their copies.
  static std::vector<std::string> Listed(Env& env, const std::string& folder, std::int32_t step);

  Env& env_;
  std::string folder_;
  std::vector<std::string> pending_;  // the pictures' names in the gallery folder
};

}  // namespace cb
