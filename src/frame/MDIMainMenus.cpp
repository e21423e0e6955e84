// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's menus and the commands behind them.
#include <QAction>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

#include "dialogs/HelpRoutine.h"
#include "dialogs/dlgWhat.h"
#include "frame/MDIMain.h"
#include "frame/frmAbout.h"
#include "frame/frmLogin.h"
#include "qt/MsgBox.h"
#include "qt/Twips.h"
#include "slide/frmSetSlideTemplate.h"
#include "state/modGlobal.h"
#include "storage/HistorySteps.h"

namespace cb {
namespace {

constexpr char kContentsPage[] = "help001.htm";
constexpr char kWallpaperWhat1[] = "The wallpaper or background image.";
constexpr char kWallpaperWhat2[] = "Use the 'Set Wallpaper' option to change the background.";
constexpr long kWallpaperWhatHeight = 800, kWallpaperWhatWidth = 4000;

// Wiring a menu item: its row in the menu table (MDIMainRules.cpp, and
// GalleryMenuTable.cpp for the gallery's bar) gives the id and the object
// name; its command goes here. The gallery's
// items of the same id arrive here through its CommandChosen signal; a new
// child window declares signals of its own and MDIMain connects them where it
// makes the child (see mnuFileGallery_Click and AddSlideWindow).
struct Handler {
  MenuId item;
  void (MDIMain::*click)();
};

constexpr Handler kHandlers[] = {
    {MenuId::FileNew, &MDIMain::mnuFileNew_Click},
    {MenuId::FileOpen, &MDIMain::mnuFileOpen_Click},
    {MenuId::FileSaveAs, &MDIMain::mnuFileSaveAs_Click},
    {MenuId::FileClaim, &MDIMain::mnuFileClaim_Click},
    {MenuId::FileBackup, &MDIMain::mnuFileBackup_Click},
    {MenuId::FileRestore, &MDIMain::mnuFileRestore_Click},
    {MenuId::FileGallery, &MDIMain::mnuFileGallery_Click},
    {MenuId::FilePassword, &MDIMain::mnuFilePassword_Click},
    {MenuId::FileExit, &MDIMain::mnuFileExit_Click},
    {MenuId::SlidesTemplate, &MDIMain::mnuSlidesTemplate_Click},
    {MenuId::ViewToolbar, &MDIMain::mnuViewToolbar_Click},
    {MenuId::ViewStatusbar, &MDIMain::mnuViewStatusbar_Click},
    {MenuId::WindowVertical, &MDIMain::mnuWindowVertical_Click},
    {MenuId::WindowHorizontal, &MDIMain::mnuWindowHorizontal_Click},
    {MenuId::WindowCascade, &MDIMain::mnuWindowCascade_Click},
    {MenuId::HelpContents, &MDIMain::mnuHelpContents_Click},
    {MenuId::HelpAbout, &MDIMain::mnuHelpAbout_Click},
    {MenuId::Popup1Help, &MDIMain::QuickStart},
    {MenuId::FileWallpaper, &MDIMain::mnuFileWallpaper_Click},
    {MenuId::Popup2SetWallpaper, &MDIMain::mnuFileWallpaper_Click},
    {MenuId::Popup4SetBackground, &MDIMain::SetBackground},
    {MenuId::Popup2What, &MDIMain::mnuPopup2What_Click},
    {MenuId::Popup2Help, &MDIMain::QuickStart},
    {MenuId::EditUndo, &MDIMain::mnuEditUndo_Click},
    {MenuId::EditRedo, &MDIMain::mnuEditRedo_Click},
};

}  // namespace

void MDIMain::CreateMenus() {
  menus_ = BuildMenus(this, MainMenu());
  for (QMenu* m : menus_.bar) {
    menuBar()->addMenu(m);
    InstallMenuF1(*m);
  }
  connect(Menu(MenuId::Window), &QMenu::aboutToShow, this, &MDIMain::FillWindowMenu);
}

void MDIMain::RunCommand(MenuId id) {
  if (const int entry = HistoryEntry(id)) return mnuFileHist_Click(entry);
  for (const auto& h : kHandlers)
    if (h.item == id) return (this->*h.click)();
}

void MDIMain::ConnectMenuHandlers() {
  for (std::size_t k = 0; k < kMenuIdCount; ++k) {
    QAction* a = menus_.items[k];
    if (!a || a->isSeparator()) continue;
    connect(a, &QAction::triggered, this, [this, a, id = static_cast<MenuId>(k)] {
      // A checked item's handler decides from the mark as it stood before the click.
      if (a->isCheckable()) a->setChecked(!a->isChecked());
      RunCommand(id);
    });
  }
}

// The Window menu ends with the list of open children.
void MDIMain::FillWindowMenu() {
  QMenu* menu = Menu(MenuId::Window);
  qDeleteAll(windowList_);
  windowList_.clear();
  const auto children = MdiArea()->subWindowList();
  if (children.isEmpty()) return;
  windowList_.append(menu->addSeparator());
  int n = 0;
  for (QMdiSubWindow* w : children) {
    QAction* a = menu->addAction(QString("&%1 %2").arg(++n).arg(w->windowTitle()));
    a->setCheckable(true);
    a->setChecked(w == MdiArea()->activeSubWindow());
    connect(a, &QAction::triggered, w, [this, w] { MdiArea()->setActiveSubWindow(w); });
    windowList_.append(a);
  }
}

void MDIMain::UpdateHistoryMenu() {
  ModGlobal& g = Globals();
  UIMainController& mc = *g.MainController;
  if (UpdateHistory(g.History, mc.SlideInformationFile())) Report(mc.PutFileHistoryList(g.History), errors_);
  Item(MenuId::Bar4)->setVisible(true);
  Item(MenuId::Bar5)->setVisible(true);
  for (int i = 1; i <= 4; ++i) {
    if (g.History[static_cast<std::size_t>(i)].empty()) continue;
    QAction* a = Item(HistoryItem(i));
    a->setText(QString("%1 %2").arg(i).arg(PathToQ(g.History[static_cast<std::size_t>(i)])));
    a->setVisible(true);
    if (QAction* mirror = GalleryItem(HistoryItem(i))) {
      mirror->setText(a->text());
      mirror->setVisible(true);
      GalleryItem(MenuId::Bar4)->setVisible(true);
      GalleryItem(MenuId::Bar5)->setVisible(true);
    }
  }
}

void MDIMain::mnuHelpContents_Click() { OpenHelp(kContentsPage); }
void MDIMain::QuickStart() { OpenHelp(kQuickStartPage); }

void MDIMain::mnuFilePassword_Click() {
  frmLogin login(frmLogin::kSetPassword);
  login.exec();
}

void MDIMain::mnuFileExit_Click() { close(); }

// The gallery's Set Slide Template. The dialog is the frame's: its OK's New
// File command rebuilds the gallery that opened it.
void MDIMain::mnuSlidesTemplate_Click() {
  frmSetSlideTemplate dialog(this);
  connect(&dialog, &frmSetSlideTemplate::NewFileWanted, this, [this] { NewFile(steps::kSetTemplate); });
  dialog.exec();
}

void MDIMain::mnuHelpAbout_Click() {
  frmAbout about;
  about.exec();
}

void MDIMain::mnuPopup2What_Click() {
  ShowWhat(kWallpaperWhatHeight, kWallpaperWhatWidth, QString(kWallpaperWhat1) + '\n' + kWallpaperWhat2);
}

// The check mark is the bar's only state; the gallery's like-named item follows it.
void MDIMain::ToggleBar(MenuId item, QWidget& bar) {
  QAction* a = Item(item);
  const bool show = !a->isChecked();
  a->setChecked(show);
  if (QAction* mirror = GalleryItem(item)) mirror->setChecked(show);
  bar.setVisible(show);
}

void MDIMain::mnuViewToolbar_Click() { ToggleBar(MenuId::ViewToolbar, *Toolbar1()); }
void MDIMain::mnuViewStatusbar_Click() { ToggleBar(MenuId::ViewStatusbar, *statusBar()); }

}  // namespace cb
