#pragma once
// The file dialog as the file commands run it: one dialog at a time, kept
// loaded after a cancel until the next command replaces it.

#include <QString>
#include <QStringList>

namespace cb {

class frmCommonDialog;

// Makes a new dialog (replacing the last), sets its title, folder, pattern
// and file types, and shows it modally. The dialog stays loaded.
frmCommonDialog& RunCommonDialog(const QString& title, const QString& folder, const QString& pattern,
                                 const QStringList& types);

// Unloads the dialog of the last command.
void UnloadCommonDialog();

}  // namespace cb
