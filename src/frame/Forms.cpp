// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/Forms.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

#include "dialogs/HelpRoutine.h"
#include "dialogs/frmDirectory.h"
#include "dialogs/frmLoading.h"
#include "frame/MDIMain.h"
#include "frame/frmSplash.h"

namespace cb {
namespace {

template <typename Form>
QPointer<Form>& Slot() {
  static QPointer<Form> form;
  return form;
}

template <typename Form>
Form& Instance() {
  auto& slot = Slot<Form>();
  if (!slot) slot = new Form();
  return *slot;
}

template <typename Form>
void Unload() {
  if (auto& slot = Slot<Form>()) delete slot.data();
}

}  // namespace

MDIMain& TheMDIMain() { return Instance<MDIMain>(); }

frmSplash* OpenSplash() { return Slot<frmSplash>().data(); }
void SetOpenSplash(frmSplash* splash) { Slot<frmSplash>() = splash; }

void UnloadForms() {
  UnloadHelp();
  Unload<frmSplash>();
  UnloadLoading();
  UnloadDirectory();
  Unload<MDIMain>();
}

}  // namespace cb
