// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The frame window: a multiple-document parent whose children are the
// gallery, slide windows, reports and help. Its background is the wallpaper.

#include <QImage>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPixmap>
#include <QPointer>
#include <string_view>

#include "base/RuntimeError.h"
#include "qt/MenuBuilder.h"
#include "state/MDIMainRules.h"

class QLabel;
class QMenu;
class QAction;
class QToolBar;

namespace cb {

class frmBackground;
class frmGallery;
class frmSlide;
struct SlideRequest;
enum class ReportKind;

// The client area, painting the wallpaper from the top left at its natural
// size, repeated to fill the area.
class WallpaperArea : public QMdiArea {
  Q_OBJECT
 public:
  using QMdiArea::QMdiArea;
  void SetPicture(QImage picture);
  const QImage& Picture() const { return picture_; }
  bool HasPicture() const { return !picture_.isNull(); }

 protected:
  void paintEvent(QPaintEvent* e) override;

 private:
  QImage picture_;
  QPixmap tile_;
};

// Children tell the main window what happened through their signals, which
// it connects when it makes them (mnuFileGallery_Click, AddSlideWindow).
class MDIMain : public QMainWindow {
  Q_OBJECT
 public:
  MDIMain();
  ~MDIMain() override;

  WallpaperArea* MdiArea() const { return area_; }
  // A menu item or menu of the main window's own bar, by id.
  QAction* Item(MenuId id) const { return menus_.Item(id); }
  QMenu* Menu(MenuId id) const { return menus_.Menu(id); }
  QAction* Button(ToolbarButton b) const { return buttons_[static_cast<std::size_t>(b)]; }
  QToolBar* Toolbar1() const { return toolbar_; }
  QStatusBar* StatusBar1() const { return statusBar(); }

  // The status bar's simple text.
  void SetStatusText(const QString& text);
  QString StatusText() const;

  // The toolbar refresh: which buttons are live, and one of Zoom and Unzoom pressed.
  void MDIForm_Activate();
  // Puts the open file first in the history and shows the history in the menus.
  void UpdateHistoryMenu();

  // The open gallery, or null.
  frmGallery* fGallery() const;
  // Unloads the gallery and builds it afresh on the first page.
  void RebuildGallery();
  // A report viewer on the open file, as the chooser's OK makes it.
  void OpenReport(ReportKind kind, const std::string& font);

  // The command of a menu item of either bar; the gallery's items arrive here too.
  void RunCommand(MenuId id);
  // A file named on the command line or handed over by a later start: opened
  // as File Open opens it; one that cannot be read is told as a failed load.
  void OpenFromOutside(const std::string& path);
  // A later start's file (empty for none): the window comes forward and the
  // file opens once no modal dialog is up.
  void TakeHandedFile(const std::string& path);
  // The question before a file is written over.
  static bool OverwriteConfirmed(const QString& name, const char* title);
  void Toolbar1_ButtonClick(ToolbarButton b);

  // The commands behind the menu items and buttons (the tables in MDIMainMenus.cpp and MDIMain.cpp).
  void mnuFileGallery_Click();
  // The gallery's Edit menu: the file as it was before the last change, or
  // after the change last undone; the gallery is made anew on it.
  void mnuEditUndo_Click();
  void mnuEditRedo_Click();
  void mnuFileHist_Click(int index);
  // Shows the frame chooser modally; a new frame saves and rebuilds the gallery.
  void SetBackground();
  void fBackground_BackgroundChanged();
  // The open frame chooser, or null.
  frmBackground* fBackground() const;
  // The wallpaper command: through the open dialog, shown at once, its bare name saved.
  void mnuFileWallpaper_Click();
  void mnuFileNew_Click();
  // File New; writing over an existing file is the step `step` of its history.
  void NewFile(std::string_view step);
  void mnuFileOpen_Click();
  void mnuFileSaveAs_Click();
  void mnuFileClaim_Click();
  void mnuFileBackup_Click();
  void mnuFileRestore_Click();
  void mnuFilePassword_Click();
  void mnuFileExit_Click();
  void mnuViewToolbar_Click();
  void mnuViewStatusbar_Click();
  void mnuSlidesTemplate_Click();
  void mnuWindowVertical_Click() { Arrange(Arrangement::TileVertical); }
  void mnuWindowHorizontal_Click() { Arrange(Arrangement::TileHorizontal); }
  void mnuWindowCascade_Click() { Arrange(Arrangement::Cascade); }
  void mnuHelpContents_Click();
  void mnuHelpAbout_Click();
  void mnuPopup2What_Click();
  void QuickStart();

  // Lays the children out as the Window commands do.
  void Arrange(Arrangement a);

 protected:
  void changeEvent(QEvent* e) override;
  void closeEvent(QCloseEvent* e) override;
  bool eventFilter(QObject* watched, QEvent* e) override;
  // A slide file dropped anywhere on the window opens; pictures are the gallery's.
  void dragEnterEvent(QDragEnterEvent* e) override;
  void dropEvent(QDropEvent* e) override;

 private:
  // Undo (`back`) or Redo, told in a message when it cannot be done.
  void StepHistory(bool back);
  void CreateMenus();
  void CreateToolBar();
  void CreateStatusBar();
  void ConnectMenuHandlers();
  void FillWindowMenu();
  void ToggleBar(MenuId item, QWidget& bar);
  void MDIForm_Load();
  void EditSlide();
  void ArrangeNext();
  void PressZoom() { ApplyToolbar(ToolbarEvent::ZoomPressed); }
  void PressUnzoom() { ApplyToolbar(ToolbarEvent::UnzoomPressed); }
  void ShowSelectReport();
  void CaptionGallery();
  void OpenFile(const std::string& path);
  void SubWindowActivated(class QMdiSubWindow* sub);
  void SetMenuBar(const QList<QMenu*>& menus);
  void ApplyToolbar(ToolbarEvent event);
  // What the gallery's unload leaves behind: Edit off, the Window commands off.
  void GalleryUnloaded();
  // A slide window the gallery made: into the client area, filling it.
  // Opens the slide window on the gallery's request, or brings the open one to it.
  void ShowSlide(const SlideRequest& request);
  void AddSlideWindow(frmSlide* slide);
  // A click on the slide: flips Zoom and Unzoom as the click rule says and zooms that way.
  void SlideClicked(frmSlide* slide);
  void EnableWindowCommands(bool on);


  // The like-purposed item of the gallery's menu, when the gallery is open.
  QAction* GalleryItem(MenuId id) const;

  WallpaperArea* area_;
  QToolBar* toolbar_ = nullptr;
  QLabel* simpleText_ = nullptr;
  BuiltMenus menus_;
  std::array<QAction*, kToolbarButtonCount> buttons_{};
  QList<QAction*> windowList_;
  QPointer<frmGallery> gallery_;
  QPointer<QMdiSubWindow> activeChild_;  // the child whose activation ran last
  QPointer<frmBackground> background_;
  int windowCounter_ = 0;
  ErrorArray errors_;
};

}  // namespace cb
