// SPDX-License-Identifier: GPL-3.0-or-later
#include "gallery/UIModifySlideController.h"

#include <algorithm>

#include "base/Cp1252.h"

namespace cb {

void UIModifySlideController::UpdateChanges(std::int16_t index, const std::string& fileName) {
  const auto found = std::ranges::find(changes_, fileName, &ChangeRow::fileName);
  if (found != changes_.end())
    changes_.erase(found);
  else
    changes_.push_back({std::to_string(index), fileName});
}

void UIModifySlideController::MoveSelected(NameList& from, NameList& to, const std::vector<std::int16_t>& picked) {
  for (const std::int16_t i : picked) {
    to.push_back(from.at(static_cast<std::size_t>(i)));
    UpdateChanges(i, to.back());
  }
  // Each removal moves the later names up by one.
  for (std::size_t m = 0; m < picked.size(); ++m)
    from.erase(from.begin() + (picked[m] - static_cast<std::ptrdiff_t>(m)));
}

void UIModifySlideController::MoveAll(NameList& from, NameList& to) {
  for (std::size_t i = 0; i < from.size(); ++i) {
    to.push_back(from[i]);
    UpdateChanges(static_cast<std::int16_t>(i), from[i]);
  }
  from.clear();
}

void UIModifySlideController::ExcludeDuplicates(bool exclude, NameList& available, const NameList& selected,
                                                const std::vector<std::string>& files) {
  if (!exclude) {
    available.assign(files.begin() + (files.empty() ? 0 : 1), files.end());
    return;
  }
  for (const std::string& name : selected)
    if (const auto it = std::ranges::find(available, name); it != available.end()) available.erase(it);
}

bool UIModifySlideController::DeleteSlide(const std::string& fileName, UIMainController& mc, SlideArray& slides) const {
  // The records hold the name in the files' code page.
  return global_.DeleteSlideMSC(Utf8ToCp1252Lossy(fileName), mc, slides);
}

void UIModifySlideController::ApplyChanges(const std::string& sourceDirectory, const NameList& selected,
                                           UIMainController& mc, SlideArray& slides,
                                           const std::function<void(const AppliedRow&)>& step) const {
  // Kept across rows on purpose: after the first name found in the
  // collection, every later row is an addition, a removed name included.
  bool found = false;
  const auto rows = static_cast<std::int32_t>(changes_.size());
  for (std::int32_t r = 1; r <= rows; ++r) {
    const std::string& name = GetItem(r);
    if (!found) found = std::ranges::find(selected, name) != selected.end();
    const bool done = found ? AddSlide(sourceDirectory + "/" + name, mc, slides) : DeleteSlide(name, mc, slides);
    if (step) step({r, found, done});
  }
}

}  // namespace cb
