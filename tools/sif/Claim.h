// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// chattelbook-sif claim: the insurance claim pack of a Slide Information File.

#include <QStringList>

#include "CommandIo.h"

namespace cb::sif {

// `args[0]` names the command; the rest are its arguments.
int RunClaim(const QStringList& args, const CommandIo& io);

}  // namespace cb::sif
