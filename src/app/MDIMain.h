#pragma once
// The frame window: a multiple-document parent whose children are the
// gallery, slide windows, reports and help. Its background is the wallpaper.

#include <QHash>
#include <QImage>
#include <QMainWindow>
#include <QMdiArea>
#include <QPointer>

#include "app/MDIMainRules.h"
#include "base/RuntimeError.h"
#include "gallery/frmGallery.h"

class QLabel;
class QMenu;
class QAction;
class QToolBar;

namespace cb {

class frmGallery;

// The client area, painting the wallpaper centred on the background.
class WallpaperArea : public QMdiArea {
  Q_OBJECT
 public:
  using QMdiArea::QMdiArea;
  void SetPicture(QImage picture);
  const QImage& Picture() const { return picture_; }

 protected:
  void paintEvent(QPaintEvent* e) override;

 private:
  QImage picture_;
};

class MDIMain : public QMainWindow {
  Q_OBJECT
 public:
  MDIMain();
  ~MDIMain() override;

  WallpaperArea* MdiArea() const { return area_; }
  // A menu item by name, "mnuFileHist(2)" for an element of an array; null if none.
  QAction* Item(const QString& name) const { return items_.value(name); }
  QMenu* Menu(const QString& name) const { return menus_.value(name); }
  // A toolbar button by key.
  QAction* Button(const QString& key) const { return buttons_.value(key); }
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
  frmGallery* fGallery() const { return gallery_; }
  // Unloads the gallery and builds it afresh on the first page.
  void RebuildGallery();
  // What the gallery's unload leaves behind: Edit off, the Window commands off.
  void GalleryUnloaded();
  // The toolbar as the gallery's and the slide window's activations set it.
  void SetGalleryToolbar();
  void SetSlideToolbar();
  void fGallery_SettingsChanged();

  void mnuFileGallery_Click();
  void mnuWindowVertical_Click() { Arrange(Arrangement::TileVertical); }
  void mnuWindowHorizontal_Click() { Arrange(Arrangement::TileHorizontal); }
  void mnuWindowCascade_Click() { Arrange(Arrangement::Cascade); }
  void mnuFileHist_Click(int index);
  void mnuHelpContents_Click();
  void SetBackground();
  void mnuFileNew_Click();
  void mnuFileOpen_Click();
  void mnuFileSaveAs_Click();
  void mnuFileWallpaper_Click();
  void mnuFilePassword_Click();
  void mnuFileExit_Click();
  void mnuViewToolbar_Click();
  void mnuViewStatusbar_Click();
  void mnuHelpAbout_Click();
  void mnuPopup2What_Click();
  void Toolbar1_ButtonClick(const QString& key);

  // Lays the children out as the Window commands do.
  void Arrange(Arrangement a);

  ErrorArray& Errors() { return errors_; }

 protected:
  void changeEvent(QEvent* e) override;
  void closeEvent(QCloseEvent* e) override;
  bool eventFilter(QObject* watched, QEvent* e) override;

 private:
  void CreateMenus();
  void CreateToolBar();
  void CreateStatusBar();
  void ConnectMenuHandlers();
  void FillWindowMenu();
  void ToggleBar(const QString& item, QWidget& bar);
  void MDIForm_Load();
  void EditSlide();
  void PressZoom();
  void PressUnzoom();
  void ArrangeNext();
  void CaptionGallery();
  void OpenFile(const std::string& path);
  void SubWindowActivated(class QMdiSubWindow* sub);
  void SetMenuBar(const QList<QMenu*>& menus);
  // The like-named item of the gallery's menu, when the gallery is open.
  QAction* GalleryItem(const QString& name) const;

  WallpaperArea* area_;
  QToolBar* toolbar_ = nullptr;
  QLabel* simpleText_ = nullptr;
  QHash<QString, QAction*> items_;
  QHash<QString, QMenu*> menus_;
  QHash<QString, QAction*> buttons_;
  QList<QAction*> windowList_;
  QList<QMenu*> ownBar_;
  QPointer<frmGallery> gallery_;
  int windowCounter_ = 0;
  bool lastRightButton_ = false;  // recorded as the window always did; nothing reads it
  ErrorArray errors_;
};

}  // namespace cb
