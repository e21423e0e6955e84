// SPDX-License-Identifier: GPL-3.0-or-later
// What dresses the program: the frame behind every gallery slide and the
// wallpaper behind the main window's children.
#include <QImage>
#include <QMenu>
#include <QTimer>

#include "dialogs/frmCommonDialog.h"
#include "frame/MDIMain.h"
#include "gallery/frmBackground.h"
#include "qt/LoadPicture.h"
#include "qt/Twips.h"
#include "state/modGlobal.h"
#include "storage/HistorySteps.h"

namespace cb {
namespace {

constexpr char kWallpaperTitle[] = "Open Wallpaper";
constexpr char kWallpaperFolder[] = "/Wallpaper/";

}  // namespace

frmBackground* MDIMain::fBackground() const { return background_; }

void MDIMain::SetBackground() {
  frmBackground chooser;
  background_ = &chooser;
  connect(&chooser, &frmBackground::BackgroundChanged, this, &MDIMain::fBackground_BackgroundChanged);
  connect(&chooser, &frmBackground::SamplesLoaded, this,
          [this] { Menu(MenuId::Window)->menuAction()->setEnabled(true); });
  chooser.exec();
}

void MDIMain::fBackground_BackgroundChanged() {
  // A failed save still shows the new frame.
  Report(Globals().MainController->SaveSettings(steps::kChangeBackground), errors_);
  // The chooser may have come from the gallery's own popup, which is still
  // handling its click: the gallery goes once that is over.
  QTimer::singleShot(0, this, &MDIMain::RebuildGallery);
}

void MDIMain::mnuFileWallpaper_Click() {
  UIMainController& mc = *Globals().MainController;
  frmCommonDialog& d = RunCommonDialog(kWallpaperTitle, PathToQ(mc.AppPath() + kWallpaperFolder), kWallpaperPattern,
                                       {kWallpaperType, kAllFilesType});
  const QString name = d.FileListBox1->FileName();
  if (name.isEmpty() || d.Cancelled) return;
  // A picture that will not load leaves the old one on show; its name is stored all the same.
  QImage picture;
  if (LoadPicture(d.FileListBox1->Path() + "/" + name, picture) == RtError::None) area_->SetPicture(std::move(picture));
  // Only the bare name is kept: the next start looks for it in the wallpaper folder.
  mc.Wallpaper(FromQ(name));
  Report(mc.SaveSettings(steps::kSetWallpaper), errors_);
  UnloadCommonDialog();
}

}  // namespace cb
