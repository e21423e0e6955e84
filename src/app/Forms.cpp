#include "app/Forms.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

#include "app/MDIMain.h"
#include "dialogs/frmLoading.h"
#include "app/frmSplash.h"
#include "dialogs/HelpRoutine.h"
#include "dialogs/frmDirectory.h"

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
frmLoading& TheLoading() { return Instance<frmLoading>(); }

void UnloadLoading() { Unload<frmLoading>(); }

frmSplash* OpenSplash() { return Slot<frmSplash>().data(); }
void SetOpenSplash(frmSplash* splash) { Slot<frmSplash>() = splash; }

QWidget* FindOpenForm(const QString& name) {
  for (QWidget* w : QApplication::allWidgets())
    if (w->objectName() == name) return w;
  return nullptr;
}

void UnloadForms() {
  UnloadHelp();
  Unload<frmSplash>();
  Unload<frmLoading>();
  UnloadDirectory();
  Unload<MDIMain>();
}

}  // namespace cb
