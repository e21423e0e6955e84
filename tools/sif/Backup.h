// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// chattelbook-sif backup and restore: a Slide Information File with every
// picture it names, its frame and its wallpaper, in one tar.gz with a
// SHA-256 manifest, and back into an application directory.

#include <QStringList>

#include "CommandIo.h"

namespace cb::sif {

// backup FILE.sif [--gallery DIR] -o ARCHIVE.tar.gz. Pictures come from DIR
// (else Gallery/ beside the file's folder), the frame and the wallpaper from
// Background/ and Wallpaper/ beside DIR. Missing files go to stderr and into
// the manifest and do not stop the backup; the archive appears only whole.
int RunBackup(const QStringList& args, const CommandIo& io);

// restore ARCHIVE.tar.gz --to APPDIR [--force]. Reads the whole archive and
// checks every name and hash before it writes anything; an existing file is
// replaced only with --force.
int RunRestore(const QStringList& args, const CommandIo& io);

}  // namespace cb::sif
