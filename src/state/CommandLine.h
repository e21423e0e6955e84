// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The program's command line: one slide file to open, or --help, or --version.

#include <span>
#include <string>

namespace cb {

struct CommandLine {
  enum class Kind { Run, Help, Version, Error } kind = Kind::Run;
  std::string file;     // the file to open; empty for none
  std::string message;  // what is wrong, for Kind::Error
};

// `args` without the program's name. Qt's own options are gone by the time
// the program reads its line; before that, only Help and Version count.
CommandLine ParseCommandLine(std::span<const std::string> args);

// What --help prints, in the form help2man reads.
std::string UsageText();

// What --version prints.
std::string VersionText();

}  // namespace cb
