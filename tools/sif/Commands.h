// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The command line of chattelbook-sif: show, export, import, report, check.

#include <QStringList>

#include <iosfwd>

namespace cb::sif {

// Exit statuses.
inline constexpr int kExitOk = 0;
inline constexpr int kExitData = 1;   // a problem with the data or a file
inline constexpr int kExitUsage = 2;  // bad usage; the usage text went to `err`

// Runs one command line; `args[0]` is the program's name. Results go to
// `out` or to the file of -o, messages to `err`; import reads "-" from `in`.
int RunSif(const QStringList& args, std::ostream& out, std::ostream& err, std::istream& in);

}  // namespace cb::sif
