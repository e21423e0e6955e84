// The main window's menus and the commands behind them.
#include <QAction>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

#include "app/Forms.h"
#include "app/MDIMain.h"
#include "app/MDIMainMenuBuilder.h"
#include "app/frmAbout.h"
#include "app/frmLogin.h"
#include "app/modGlobal.h"
#include "dialogs/HelpRoutine.h"
#include "qt/MsgBox.h"
#include "qt/Twips.h"
#include "dialogs/dlgWhat.h"

namespace cb {
namespace {

constexpr char kContentsPage[] = "help001.htm";
constexpr char kWallpaperWhat1[] = "The wallpaper or background image.";
constexpr char kWallpaperWhat2[] = "Use the 'Set Wallpaper' option to change the background.";
constexpr long kWallpaperWhatHeight = 800, kWallpaperWhatWidth = 4000;

struct Handler {
  const char* item;
  void (MDIMain::*click)();
};

constexpr Handler kHandlers[] = {
    {"mnuFileNew", &MDIMain::mnuFileNew_Click},
    {"mnuFileOpen", &MDIMain::mnuFileOpen_Click},
    {"mnuFileSaveAs", &MDIMain::mnuFileSaveAs_Click},
    {"mnuFileGallery", &MDIMain::mnuFileGallery_Click},
    {"mnuFileWallpaper", &MDIMain::mnuFileWallpaper_Click},
    {"mnuFilePassword", &MDIMain::mnuFilePassword_Click},
    {"mnuFileExit", &MDIMain::mnuFileExit_Click},
    {"mnuViewToolbar", &MDIMain::mnuViewToolbar_Click},
    {"mnuViewStatusbar", &MDIMain::mnuViewStatusbar_Click},
    {"mnuHelpContents", &MDIMain::mnuHelpContents_Click},
    {"mnuHelpAbout", &MDIMain::mnuHelpAbout_Click},
    {"mnuPopup2SetWallpaper", &MDIMain::mnuFileWallpaper_Click},
    {"mnuPopup2What", &MDIMain::mnuPopup2What_Click},
};

}  // namespace

void MDIMain::CreateMenus() {
  BuiltMenus built = BuildMenus(this, MainMenu());
  items_ = built.items;
  menus_ = built.menus;
  ownBar_ = built.bar;
  for (QMenu* m : ownBar_) menuBar()->addMenu(m);
  connect(menus_["mnuWindow"], &QMenu::aboutToShow, this, &MDIMain::FillWindowMenu);
}

void MDIMain::ConnectMenuHandlers() {
  for (const auto& h : kHandlers) {
    QAction* a = items_[h.item];
    connect(a, &QAction::triggered, this, [this, a, click = h.click] {
      // A checked item's handler decides from the mark as it stood before the click.
      if (a->isCheckable()) a->setChecked(!a->isChecked());
      (this->*click)();
    });
  }
  for (int i = 1; i <= 4; ++i)
    connect(items_[QString("mnuFileHist(%1)").arg(i)], &QAction::triggered, this, [this, i] { mnuFileHist_Click(i); });
  connect(items_["mnuWindowVertical"], &QAction::triggered, this, [this] { Arrange(Arrangement::TileVertical); });
  connect(items_["mnuWindowHorizontal"], &QAction::triggered, this, [this] { Arrange(Arrangement::TileHorizontal); });
  connect(items_["mnuWindowCascade"], &QAction::triggered, this, [this] { Arrange(Arrangement::Cascade); });
  connect(items_["mnuPopup1Help"], &QAction::triggered, this, [] { OpenHelp(kQuickStartPage); });
  connect(items_["mnuPopup2Help"], &QAction::triggered, this, [] { OpenHelp(kQuickStartPage); });
}

// The Window menu ends with the list of open children.
void MDIMain::FillWindowMenu() {
  QMenu* menu = menus_["mnuWindow"];
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
  if (UpdateHistory(g.History, mc.SlideInformationFile())) mc.PutFileHistoryList(g.History, errors_);
  items_["mnuBar4"]->setVisible(true);
  items_["mnuBar5"]->setVisible(true);
  for (int i = 1; i <= 4; ++i) {
    if (g.History[static_cast<std::size_t>(i)].empty()) continue;
    QAction* a = items_[QString("mnuFileHist(%1)").arg(i)];
    a->setText(QString("%1 %2").arg(i).arg(PathToQ(g.History[static_cast<std::size_t>(i)])));
    a->setVisible(true);
    if (QAction* mirror = GalleryItem(a->objectName() + QString("(%1)").arg(i))) {
      mirror->setText(a->text());
      mirror->setVisible(true);
      GalleryItem("mnuBar4")->setVisible(true);
      GalleryItem("mnuBar5")->setVisible(true);
    }
  }
}

void MDIMain::mnuFileWallpaper_Click() {
  // Set Wallpaper arrives with the background chooser.
}

void MDIMain::SetBackground() {
  // The frame chooser opens here once it lands.
}

void MDIMain::mnuHelpContents_Click() { OpenHelp(kContentsPage); }

void MDIMain::mnuFilePassword_Click() {
  frmLogin login(frmLogin::kSetPassword);
  login.exec();
}

void MDIMain::mnuFileExit_Click() { close(); }

void MDIMain::mnuHelpAbout_Click() {
  frmAbout about;
  about.exec();
}

void MDIMain::mnuPopup2What_Click() {
  ShowWhat(kWallpaperWhatHeight, kWallpaperWhatWidth, QString(kWallpaperWhat1) + '\n' + kWallpaperWhat2);
}

// The check mark is the bar's only state; the gallery's like-named item follows it.
void MDIMain::ToggleBar(const QString& item, QWidget& bar) {
  QAction* a = items_[item];
  const bool show = !a->isChecked();
  a->setChecked(show);
  if (QAction* mirror = GalleryItem(item)) mirror->setChecked(show);
  bar.setVisible(show);
}

void MDIMain::mnuViewToolbar_Click() { ToggleBar("mnuViewToolbar", *Toolbar1()); }
void MDIMain::mnuViewStatusbar_Click() { ToggleBar("mnuViewStatusbar", *statusBar()); }

}  // namespace cb
