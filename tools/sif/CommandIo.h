// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What a command of chattelbook-sif writes to: its two streams and the usage
// text shown with a usage error.

#include <QCommandLineParser>
#include <QStringList>

#include <ostream>
#include <string>
#include <string_view>

#include "Commands.h"

namespace cb::sif {

struct CommandIo {
  std::ostream& out;
  std::ostream& err;
  std::string_view usage;
};

inline int UsageError(const CommandIo& io, const std::string& problem) {
  io.err << "chattelbook-sif: " << problem << "\n\n" << io.usage;
  return kExitUsage;
}

inline int DataError(const CommandIo& io, std::string_view message) {
  io.err << "chattelbook-sif: " << message << "\n";
  return kExitData;
}

// Parses a command's arguments with one positional argument; false when the
// caller must return `status` (usage error, or --help answered).
inline bool ParseOne(QCommandLineParser& p, const QStringList& args, const CommandIo& io, int& status) {
  p.addHelpOption();
  if (!p.parse(args)) {
    status = UsageError(io, p.errorText().toStdString());
    return false;
  }
  if (p.isSet("help")) {
    io.out << io.usage;
    status = kExitOk;
    return false;
  }
  if (p.positionalArguments().size() != 1) {
    status = UsageError(io, p.positionalArguments().isEmpty() ? "a file is missing" : "too many files");
    return false;
  }
  return true;
}

}  // namespace cb::sif
