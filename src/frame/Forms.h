// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The default instances of the windows, created on first reference, and the
// search of the open forms by name.

#include <QString>

class QWidget;

namespace cb {

class MDIMain;
class frmSplash;

// The default instance, created (and loaded) at the first call.
MDIMain& TheMDIMain();

// The open splash, or null once it is unloaded.
frmSplash* OpenSplash();
void SetOpenSplash(frmSplash* splash);

// Closes and deletes every default instance; the next reference makes new ones.
void UnloadForms();

}  // namespace cb
