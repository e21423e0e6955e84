// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The logic behind the collection editor: the table of changes the user
// builds by moving names between the directory's pictures and the
// collection's slides, and applying that table to the collection.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "state/UIGlobalController.h"

namespace cb {

// One pending change: a name moved across and the list index it had.
struct ChangeRow {
  std::string index;  // decimal
  std::string fileName;
};

// A list as the editor shows it, from index 0.
using NameList = std::vector<std::string>;

// What applying one row did.
struct AppliedRow {
  std::int32_t row;  // 1-based
  bool added;        // an addition (else a removal)
  bool done;         // false when the add or removal failed
};

class UIModifySlideController {
 public:
  // Row r of the table is GetChanges()[r - 1]; names are file names in the
  // file system's bytes.
  const std::vector<ChangeRow>& GetChanges() const { return changes_; }
  const std::string& GetItem(std::int32_t row) const { return changes_.at(static_cast<std::size_t>(row - 1)).fileName; }

  // Toggles `fileName`: the first row holding it goes, else a row is added.
  void UpdateChanges(std::int16_t index, const std::string& fileName);

  // Moves the names at `picked` (ascending list indexes) from `from` to the
  // end of `to`, toggling each in the table under its old index.
  void MoveSelected(NameList& from, NameList& to, const std::vector<std::int16_t>& picked);
  // Moves every name of `from` to the end of `to`, toggling each.
  void MoveAll(NameList& from, NameList& to);

  // With `exclude`, removes from `available` the first exact match of each
  // name of `selected`; without, refills `available` from `files` (element 1 on).
  static void ExcludeDuplicates(bool exclude, NameList& available, const NameList& selected,
                                const std::vector<std::string>& files);

  // The ".jpg" files of `path` (ending in "/"); see UIGlobalController::LoadDirectory.
  std::int32_t LoadDirectory(const std::string& path, std::vector<std::string>& files, bool addPath) const {
    return global_.LoadDirectory(path, files, addPath);
  }

  bool AddSlide(const std::string& fullPath, UIMainController& mc, SlideArray& slides) const {
    return global_.AddSlide(fullPath, mc, slides);
  }
  // `fileName` as the file system spells it; compared with the records' field.
  bool DeleteSlide(const std::string& fileName, UIMainController& mc, SlideArray& slides) const;

  // Applies every row of the table to `slides`: a row whose name stands in
  // `selected` makes it and every later row an addition from
  // `sourceDirectory` (a found name is never forgotten), the rows before it
  // are removals. `step` hears of each row as it is done. Leaves the table as
  // it is, so a second call applies it again.
  void ApplyChanges(const std::string& sourceDirectory, const NameList& selected, UIMainController& mc,
                    SlideArray& slides, const std::function<void(const AppliedRow&)>& step) const;

 private:
  UIGlobalController global_;
  std::vector<ChangeRow> changes_;
};

}  // namespace cb
