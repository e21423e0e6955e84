// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What becomes of files dropped on the program: JPEG pictures become slides,
// a slide file opens, anything else is told back to the user.

#include <span>
#include <string>
#include <vector>

namespace cb {

struct SortedDrop {
  std::vector<std::string> pictures;    // JPEGs, in the order dropped
  std::vector<std::string> slideFiles;  // .sif files, in the order dropped
  std::vector<std::string> others;      // neither
};

// Sorts by the name's extension, in any case: ".jpg" and ".jpeg" are
// pictures, ".sif" slide files.
SortedDrop SortDrop(std::span<const std::string> paths);

// The message naming the files a drop did not take: one name per line.
std::string NotTakenText(std::span<const std::string> paths);

}  // namespace cb
