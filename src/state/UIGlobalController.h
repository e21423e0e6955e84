// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Operations shared by the windows that work on the collection.

#include <cstdint>
#include <string>
#include <vector>

#include "base/Text.h"
#include "model/SlideRecord.h"
#include "storage/Env.h"

namespace cb {

class UIMainController;

class UIGlobalController {
 public:
  // Pictures are copied and listed through `env`.
  explicit UIGlobalController(Env& env = Env::Default()) : env_(&env) {}

  // Appends a slide naming the picture at `fullPath` (a UTF-8 path; its name cut to the
  // field) and copies the picture into the gallery directory unless it is
  // already there; a picture of the same name there is overwritten. An empty
  // collection first starts again from a blank header. False when the copy fails; the
  // appended record stays.
  bool AddSlide(const std::string& fullPath, UIMainController& mc, SlideArray& slides) const;
  // The same without resetting an empty collection: what the Add Slide command does.
  bool AppendSlide(const std::string& fullPath, UIMainController& mc, SlideArray& slides) const;
  // AppendSlide for each picture in order; one whose copy fails takes its
  // record back with it. The pictures not taken.
  std::vector<std::string> AppendSlides(const std::vector<std::string>& fullPaths, UIMainController& mc,
                                        SlideArray& slides) const;

  // Removes the slide in cell `index` of the page on show (record Base +
  // index - 1); a number past the end removes the last slide all the same.
  // False, removing nothing, when that record number is below 1.
  bool DeleteSlide(std::int32_t index, UIMainController& mc, SlideArray& slides) const;
  // The same for record `p` itself.
  bool RemoveRecord(std::int32_t p, UIMainController& mc, SlideArray& slides) const;

  // Removes the first slide whose picture is `fileName` (exact). The last
  // slide goes when none matches, and the result is then false.
  bool DeleteSlideMSC(const std::string& fileName, UIMainController& mc, SlideArray& slides) const;

  // The ".jpg" files of `path` (a directory ending in "/"), case ignored, in
  // the listing's order, into files[1..n] (files[0] unused); returns n. With
  // `addPath` each name carries `path` in front, and the scan runs one step
  // past its end: a bare `path` and an empty element follow the names, and
  // the count reads 0.
  std::int32_t LoadDirectory(const std::string& path, std::vector<std::string>& files, bool addPath) const;

 private:
  Env* env_;  // a pointer, so that the controller can be assigned
};

}  // namespace cb
