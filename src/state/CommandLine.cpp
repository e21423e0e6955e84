// SPDX-License-Identifier: GPL-3.0-or-later
#include "state/CommandLine.h"

namespace cb {

CommandLine ParseCommandLine(std::span<const std::string> args) {
  CommandLine line;
  bool optionsEnd = false;
  for (const std::string& a : args) {
    if (!optionsEnd && (a == "--help" || a == "-h")) return {CommandLine::Kind::Help, {}, {}};
    if (!optionsEnd && (a == "--version" || a == "-v")) return {CommandLine::Kind::Version, {}, {}};
    if (!optionsEnd && a == "--") {
      optionsEnd = true;
    } else if (!optionsEnd && a.size() > 1 && a.front() == '-') {
      line = {CommandLine::Kind::Error, {}, "unknown option \"" + a + "\""};
    } else if (line.kind == CommandLine::Kind::Run && !line.file.empty()) {
      line = {CommandLine::Kind::Error, {}, "one file at a time"};
    } else if (line.kind == CommandLine::Kind::Run) {
      line.file = a;
    }
  }
  return line;
}

std::string UsageText() {
  return "Usage: chattelbook [FILE.sif]\n"
         "Keep a pictorial inventory: a gallery of photos with their details, and\n"
         "reports of their values by category and by location.\n"
         "\n"
         "With FILE.sif, the program opens that file after it has started, as File\n"
         "Open would. When the program already runs on the same data folder, the\n"
         "file goes to it and this start ends.\n"
         "\n"
         "Options:\n"
         "  -h, --help     show this help and exit\n"
         "  -v, --version  show the version and exit\n";
}

std::string VersionText() { return std::string("chattelbook ") + CHATTELBOOK_VERSION + "\n"; }

}  // namespace cb
