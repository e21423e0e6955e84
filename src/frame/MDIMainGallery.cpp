// SPDX-License-Identifier: GPL-3.0-or-later
// The main window around its gallery: building it, its menu bar standing in
// for the main one, its slide windows, and the toolbar as its children set it.
#include <QAction>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>

#include "frame/MDIMain.h"
#include "gallery/frmGallery.h"
#include "gallery/frmModifySlide.h"
#include "qt/MsgBox.h"
#include "qt/OpenForms.h"
#include "qt/StretchImage.h"
#include "qt/Twips.h"
#include "reports/frmReport.h"
#include "slide/Zoom.h"
#include "slide/frmEditSlide.h"
#include "slide/frmSlide.h"
#include "state/modGlobal.h"

namespace cb {

frmGallery* MDIMain::fGallery() const { return gallery_; }

void MDIMain::EnableWindowCommands(bool on) {
  for (MenuId item : {MenuId::WindowCascade, MenuId::WindowHorizontal, MenuId::WindowVertical})
    Item(item)->setEnabled(on);
}

void MDIMain::mnuFileGallery_Click() {
  if (FindOpenForm("frmGallery")) return;
  gallery_ = new frmGallery();
  QMdiSubWindow* sub = area_->addSubWindow(gallery_);
  sub->setAttribute(Qt::WA_DeleteOnClose);
  // Queued, as below: New, Open and the history replace the gallery whose menu
  // is still handling the click.
  connect(gallery_, &frmGallery::CommandChosen, this, &MDIMain::RunCommand, Qt::QueuedConnection);
  connect(gallery_, &frmGallery::StatusTextChanged, this, &MDIMain::SetStatusText);
  connect(gallery_, &frmGallery::Activated, this, [this] {
    UpdateHistoryMenu();
    ApplyToolbar(ToolbarEvent::GalleryActivated);
  });
  connect(gallery_, &frmGallery::PageLoaded, this, [this] { Menu(MenuId::Window)->menuAction()->setEnabled(true); });
  // Queued: the menu or popup whose command changed the collection belongs to
  // the gallery and is still handling its click.
  connect(gallery_, &frmGallery::CollectionChanged, this, &MDIMain::RebuildGallery, Qt::QueuedConnection);
  connect(gallery_, &frmGallery::SlideWanted, this, &MDIMain::ShowSlide);
  connect(gallery_, &frmGallery::EditSlideWanted, this, [](std::int32_t slideTemplate) {
    if (auto* open = qobject_cast<frmSlide*>(FindOpenForm("frmSlide"))) open->ShowEditSlide(slideTemplate);
  });
  connect(gallery_, &frmGallery::SlideResetWanted, this, [] {
    if (auto* open = qobject_cast<frmSlide*>(FindOpenForm("frmSlide"))) open->Reset();
  });
  connect(gallery_, &frmGallery::CollectionEditorOpened, this, [this](frmModifySlide* editor) {
    connect(editor, &frmModifySlide::CollectionChanged, this, [this, editor] {
      RebuildGallery();
      if (gallery_) gallery_->parentWidget()->setWindowState(editor->GalleryWindowState);
    });
  });
  connect(gallery_, &frmGallery::Unloaded, this, &MDIMain::GalleryUnloaded);
  // Undo and Redo answer their keys in the slide window too.
  addActions({gallery_->Item(MenuId::EditUndo), gallery_->Item(MenuId::EditRedo)});
  EnableWindowCommands(true);
  gallery_->Create();
  sub->move(0, 0);
  sub->show();
  if (Globals().MainController->TakeHistoryNotice())
    SetStatusText("The undo history was set aside: the file was changed elsewhere.");
}

void MDIMain::mnuEditUndo_Click() { StepHistory(true); }

void MDIMain::mnuEditRedo_Click() { StepHistory(false); }

void MDIMain::StepHistory(bool back) {
  UIMainController& mc = *Globals().MainController;
  if (!(back ? mc.UndoName() : mc.RedoName())) return;
  if (const Status done = back ? mc.Undo() : mc.Redo(); !Report(done, errors_))
    MsgBox(Utf8ToQ(std::string(done.description())), vbOKOnly | vbExclamation, back ? "Undo" : "Redo");
  RebuildGallery();
}

void MDIMain::RebuildGallery() {
  if (gallery_) {
    gallery_->close();
    delete gallery_->parentWidget();  // gone at once, so the Gallery command makes a new one
  }
  mnuFileGallery_Click();
}

void MDIMain::GalleryUnloaded() {
  ApplyToolbar(ToolbarEvent::GalleryUnloaded);
  EnableWindowCommands(false);
  SetMenuBar(menus_.bar);
}

QAction* MDIMain::GalleryItem(MenuId id) const { return gallery_ ? gallery_->Item(id) : nullptr; }

void MDIMain::ShowSlide(const SlideRequest& request) {
  auto* slide = qobject_cast<frmSlide*>(FindOpenForm("frmSlide"));
  if (slide) {
    slide->Take(request, false);
  } else {
    slide = new frmSlide();
    slide->Take(request, true);
    connect(slide, &frmSlide::PopupWanted, gallery_, &frmGallery::ShowSlidePopup);
    AddSlideWindow(slide);
  }
  if (!request.accessibleName.isEmpty()) slide->Image1->setAccessibleName(request.accessibleName);
  if (gallery_) gallery_->fSlide = slide;
}

void MDIMain::AddSlideWindow(frmSlide* slide) {
  connect(slide, &frmSlide::Activated, this, [this] { ApplyToolbar(ToolbarEvent::SlideActivated); });
  connect(slide, &frmSlide::Clicked, this, [this, slide] { SlideClicked(slide); });
  connect(slide, &frmSlide::EditorOpened, this, [this](frmEditSlide* editor) {
    connect(editor, &frmEditSlide::StatusTextChanged, this, &MDIMain::SetStatusText);
    connect(editor, &QDialog::accepted, this, [this] {
      if (gallery_) gallery_->SlideEdited();
    });
  });
  QMdiSubWindow* sub = area_->addSubWindow(slide);
  sub->setAttribute(Qt::WA_DeleteOnClose);
  sub->setGeometry(area_->viewport()->rect());
  sub->show();
}

void MDIMain::SlideClicked(frmSlide* slide) {
  QAction* zoom = Button(ToolbarButton::Zoom);
  QAction* unzoom = Button(ToolbarButton::Unzoom);
  const ZoomButtons pressed = ButtonsForClick({zoom->isChecked() ? 1 : 0, unzoom->isChecked() ? 1 : 0});
  zoom->setChecked(pressed.zoom == 1);
  unzoom->setChecked(pressed.unzoom == 1);
  slide->Zoom(ZoomingIn(pressed));
}

void MDIMain::SetMenuBar(const QList<QMenu*>& menus) {
  if (menuBar()->actions().size() == menus.size() && menuBar()->actions().value(0) == menus.value(0)->menuAction())
    return;
  menuBar()->clear();
  for (QMenu* m : menus) menuBar()->addMenu(m);
}

void MDIMain::SubWindowActivated(QMdiSubWindow* sub) {
  // The frame losing and regaining focus (a message box, a dialog) makes the
  // toolkit deactivate and reactivate the same child; that is no activation.
  if (!sub && !area_->subWindowList().isEmpty()) return;
  if (sub && sub == activeChild_) return;
  activeChild_ = sub;
  QWidget* child = sub ? sub->widget() : nullptr;
  if (auto* gallery = qobject_cast<frmGallery*>(child)) {
    SetMenuBar(gallery->MenuBarMenus());
    gallery->Form_Activate();
  } else {
    SetMenuBar(menus_.bar);
    if (auto* slide = qobject_cast<frmSlide*>(child)) slide->Form_Activate();
    if (auto* report = qobject_cast<frmReport*>(child)) report->Form_Activate();
  }
}

}  // namespace cb
