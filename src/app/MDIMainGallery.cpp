// The main window around its gallery: building it, its menu bar standing in
// for the main one, and the toolbar as its children set it.
#include <QAction>
#include <QMdiSubWindow>
#include <QMenuBar>

#include "app/Forms.h"
#include "app/MDIMain.h"
#include "app/modGlobal.h"
#include "gallery/frmGallery.h"
#include "slide/frmSlide.h"

namespace cb {

void MDIMain::mnuFileGallery_Click() {
  if (FindOpenForm("frmGallery")) return;
  gallery_ = new frmGallery();
  QMdiSubWindow* sub = area_->addSubWindow(gallery_);
  sub->setAttribute(Qt::WA_DeleteOnClose);
  connect(gallery_, &frmGallery::SettingsChanged, this, &MDIMain::fGallery_SettingsChanged);
  for (const char* item : {"mnuWindowCascade", "mnuWindowHorizontal", "mnuWindowVertical"})
    items_[item]->setEnabled(true);
  gallery_->Create();
  sub->move(0, 0);
  sub->show();
}

void MDIMain::RebuildGallery() {
  if (gallery_) {
    gallery_->close();
    delete gallery_->parentWidget();  // gone at once, so the Gallery command makes a new one
  }
  mnuFileGallery_Click();
}

void MDIMain::fGallery_SettingsChanged() {
  Globals().MainController->SaveSettings(errors_);
  RebuildGallery();
}

void MDIMain::GalleryUnloaded() {
  buttons_["Edit"]->setEnabled(false);
  for (const char* item : {"mnuWindowCascade", "mnuWindowHorizontal", "mnuWindowVertical"})
    items_[item]->setEnabled(false);
  SetMenuBar(ownBar_);
}

QAction* MDIMain::GalleryItem(const QString& name) const { return gallery_ ? gallery_->Item(name) : nullptr; }

void MDIMain::SetMenuBar(const QList<QMenu*>& menus) {
  if (menuBar()->actions().size() == menus.size() && menuBar()->actions().value(0) == menus.value(0)->menuAction())
    return;
  menuBar()->clear();
  for (QMenu* m : menus) menuBar()->addMenu(m);
}

void MDIMain::SubWindowActivated(QMdiSubWindow* sub) {
  QWidget* child = sub ? sub->widget() : nullptr;
  if (auto* gallery = qobject_cast<frmGallery*>(child)) {
    SetMenuBar(gallery->MenuBarMenus());
    gallery->Form_Activate();
  } else {
    SetMenuBar(ownBar_);
    if (auto* slide = qobject_cast<frmSlide*>(child)) slide->Form_Activate();
  }
}

void MDIMain::SetGalleryToolbar() {
  const bool several = area_->subWindowList().size() > 1;
  buttons_["New"]->setEnabled(true);
  buttons_["Open"]->setEnabled(true);
  if (several) buttons_["Window"]->setEnabled(true);
  buttons_["Zoom"]->setEnabled(false);
  buttons_["Zoom"]->setChecked(true);
  buttons_["Unzoom"]->setEnabled(false);
  buttons_["Unzoom"]->setChecked(false);
  buttons_["Edit"]->setEnabled(false);
  buttons_["Back"]->setEnabled(true);
  buttons_["Report"]->setEnabled(true);
}

void MDIMain::SetSlideToolbar() {
  buttons_["New"]->setEnabled(false);
  buttons_["Open"]->setEnabled(false);
  if (area_->subWindowList().size() > 1) buttons_["Window"]->setEnabled(true);
  for (const char* key : {"Report", "Zoom", "Unzoom", "Edit"}) buttons_[key]->setEnabled(true);
  buttons_["Zoom"]->setChecked(true);
  buttons_["Unzoom"]->setChecked(false);
  buttons_["Back"]->setEnabled(false);
}

}  // namespace cb
