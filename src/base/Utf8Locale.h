// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// File names are UTF-8 bytes to Qt and to the pictures' records, whatever the
// environment says. Under a C locale (no LANG: cron, systemd units, many
// containers) libarchive would convert them through ASCII, fail, and crash.

namespace cb {

// Switches the character type of the C locale to UTF-8 when it is not
// already; the rest of the locale (dates, numbers) stays as the user set it.
// Call once, after the Qt application object is made.
void UseUtf8CharacterType();

}  // namespace cb
