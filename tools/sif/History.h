// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// chattelbook-sif history, undo and redo: the undo history kept beside a
// Slide Information File, listed or taken one step back or forward.

#include <QStringList>

#include "CommandIo.h"

namespace cb::sif {

int RunHistory(const QStringList& args, const CommandIo& io);
int RunUndo(const QStringList& args, const CommandIo& io);
int RunRedo(const QStringList& args, const CommandIo& io);

}  // namespace cb::sif
