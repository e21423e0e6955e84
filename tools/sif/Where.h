// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// --where QUERY: show, export and claim keep to the slides a find query
// matches, read as the gallery's find bar reads it.

#include <QCommandLineOption>
#include <QCommandLineParser>

#include "CommandIo.h"
#include "find/SlideQuery.h"

namespace cb::sif {

QCommandLineOption WhereOption();

// The query of --where, empty without one. False, with `status` a usage
// error, when --where is given twice. The parts read as plain words are
// named on `io.err`, and the command goes on.
bool WhereQuery(const QCommandLineParser& p, const CommandIo& io, SlideQuery& query, int& status);

}  // namespace cb::sif
