// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The modal folder chooser of the collection editor. It is one instance for
// the whole run: after OK it stays loaded and hidden, so the next use opens
// on the folder chosen last; Cancel, Help, F1 and the window's close unload
// it, and the next use opens on the gallery directory again.

#include "dialogs/frmCommonDialog.h"

namespace cb {

class frmDirectory : public FolderDialog {
  Q_OBJECT
 public:
  frmDirectory();

  // The folder chosen, without a trailing "/"; empty when none was.
  QString SelectedPath;

  void cmdOK_Click() override;
  void cmdCancel_Click() override;

  // Every way out but OK unloads the dialog and empties SelectedPath.
  void reject() override;

 protected:
  void showEvent(QShowEvent* e) override;

 private:
  void Form_Load();

  bool loaded_ = false;
};
// The one instance, made at the first call.
frmDirectory& TheDirectory();
// Deletes the instance; the next call makes a new one.
void UnloadDirectory();

}  // namespace cb
