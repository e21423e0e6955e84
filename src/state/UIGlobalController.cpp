// SPDX-License-Identifier: GPL-3.0-or-later
#include "state/UIGlobalController.h"

#include <algorithm>

#include "base/Cp1252.h"
#include "state/UIMainController.h"
#include "storage/Listing.h"

namespace cb {
namespace {

std::string Upper(std::string s) {
  std::ranges::transform(s, s.begin(), [](char c) { return (c >= 'a' && c <= 'z') ? char(c - 'a' + 'A') : c; });
  return s;
}

// Copies each record from p + 1 on over the one before it; p is a slide,
// never the header before the first.
void ShiftDown(std::int32_t p, SlideArray& slides) {
  const auto n = static_cast<std::int32_t>(slides.size()) - 1;
  for (auto k = static_cast<std::size_t>(p); k + 1 <= static_cast<std::size_t>(n); ++k) slides[k] = slides[k + 1];
}

// Drops the last element; the header alone cannot shrink.
bool Shrink(UIMainController& mc, SlideArray& slides) {
  if (slides.size() < 2) return false;
  slides.pop_back();
  mc.NumberOfRecords(static_cast<std::int32_t>(slides.size()) - 1);
  return true;
}

}  // namespace

bool UIGlobalController::AddSlide(const std::string& fullPath, UIMainController& mc, SlideArray& slides) const {
  // A fresh header: nothing of an earlier file survives into the next save.
  if (mc.NumberOfRecords() == 0) slides.assign(1, SlideRecord());
  return AppendSlide(fullPath, mc, slides);
}

bool UIGlobalController::AppendSlide(const std::string& fullPath, UIMainController& mc, SlideArray& slides) const {
  slides.emplace_back();
  mc.NumberOfRecords(static_cast<std::int32_t>(slides.size()) - 1);
  const auto slash = fullPath.rfind('/');
  SlideRecord& r = slides.back();
  // The record keeps the name in the files' code page; the disk keeps the system's.
  r.Set(Field::PictureFile, Utf8ToCp1252Lossy(Trim(slash == std::string::npos ? fullPath : fullPath.substr(slash + 1))));
  const std::string destination = mc.AppPath() + mc.GetGalleryDirectory() + Cp1252ToUtf8(Trim(r.Get(Field::PictureFile)));
  if (Upper(fullPath) == Upper(destination)) return true;
  mc.KeepOverwrittenPicture(destination, fullPath);
  return env_->CopyFile(fullPath, destination) == RtError::None;
}

std::vector<std::string> UIGlobalController::AppendSlides(const std::vector<std::string>& fullPaths,
                                                         UIMainController& mc, SlideArray& slides) const {
  std::vector<std::string> refused;
  for (const std::string& path : fullPaths)
    if (!AppendSlide(path, mc, slides)) {
      Shrink(mc, slides);
      refused.push_back(path);
    }
  return refused;
}

bool UIGlobalController::DeleteSlide(std::int32_t index, UIMainController& mc, SlideArray& slides) const {
  return RemoveRecord(mc.CurrentlyActiveBase() + index - 1, mc, slides);
}

bool UIGlobalController::RemoveRecord(std::int32_t p, UIMainController& mc, SlideArray& slides) const {
  // Below the first slide lies the header, which no removal may overwrite.
  if (p < 1) return false;
  if (p <= static_cast<std::int32_t>(slides.size()) - 1) ShiftDown(p, slides);
  return Shrink(mc, slides);
}

bool UIGlobalController::DeleteSlideMSC(const std::string& fileName, UIMainController& mc, SlideArray& slides) const {
  const auto n = static_cast<std::int32_t>(slides.size()) - 1;
  bool found = false;
  for (std::int32_t k = 1; k <= n && !found; ++k)
    if (Trim(slides[static_cast<std::size_t>(k)].Get(Field::PictureFile)) == fileName) {
      ShiftDown(k, slides);
      found = true;
    }
  return Shrink(mc, slides) && found;
}

std::int32_t UIGlobalController::LoadDirectory(const std::string& path, std::vector<std::string>& files,
                                               bool addPath) const {
  files.assign(1, std::string());
  for (const std::string& name : ListFiles(*env_, path, "*.jpg")) files.push_back(addPath ? path + name : name);
  if (!addPath) return static_cast<std::int32_t>(files.size()) - 1;
  // The exhausted search still yields the prefix, and the call after it fails.
  files.push_back(path);
  files.emplace_back();
  return 0;
}

}  // namespace cb
