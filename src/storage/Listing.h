// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The file and folder lists the program shows, read through an Env; the
// windows read the disk with Env::Default(). Matching and order follow
// base/FileListing.h.

#include <string>
#include <vector>

#include "storage/Env.h"

namespace cb {

// The regular files of `dir` that fit `pattern`, in LessIgnoreCase order.
// Hidden (dot) files and directories are left out; empty when `dir` cannot be read.
std::vector<std::string> ListFiles(Env& env, const std::string& dir, const std::string& pattern);

// The sub-directories of `dir` without the hidden ones, in LessIgnoreCase order.
std::vector<std::string> ListDirectories(Env& env, const std::string& dir);

}  // namespace cb
