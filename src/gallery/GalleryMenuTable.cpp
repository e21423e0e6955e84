// SPDX-License-Identifier: GPL-3.0-or-later
#include "gallery/GalleryMenuTable.h"

#include <algorithm>

namespace cb {

using S = ItemState;
using M = MenuId;

namespace {

// The gallery's File menu has New, Save As and what works on the open file
// live, and its own Gallery off.
constexpr MenuItemRow kGalleryFile[] = {
    {M::File, "mnuFile", "&File", 0, S::Normal},
    {M::FileNew, "mnuFileNew", "&New", 1, S::Normal},
    {M::FileOpen, "mnuFileOpen", "&Open", 1, S::Normal},
    {M::Bar1, "mnuBar1", "-", 1, S::Normal},
    {M::FileSaveAs, "mnuFileSaveAs", "&Save As", 1, S::Normal},
    {M::Bar2, "mnuBar2", "-", 1, S::Normal},
    {M::FileClaim, "mnuFileClaim", "&Claim Pack...", 1, S::Normal},
    {M::FileBackup, "mnuFileBackup", "&Back Up...", 1, S::Normal},
    {M::FileRestore, "mnuFileRestore", "&Restore...", 1, S::Normal},
    {M::FileGallery, "mnuFileGallery", "&Gallery", 1, S::Off},
    {M::FileWallpaper, "mnuFileWallpaper", "&Set Wallpaper", 1, S::Normal},
    {M::Bar3, "mnuBar3", "-", 1, S::Normal},
    {M::FilePassword, "mnuFilePassword", "&Password", 1, S::Normal},
};

constexpr MenuItemRow kGalleryEdit[] = {
    {M::Edit, "mnuEdit", "&Edit", 0, S::Normal},
    {M::EditUndo, "mnuEditUndo", "&Undo", 1, S::Normal, "Ctrl+Z"},
    {M::EditRedo, "mnuEditRedo", "&Redo", 1, S::Normal, "Ctrl+Shift+Z; Ctrl+Y"},
    {M::Bar11, "mnuBar11", "-", 1, S::Normal},
    {M::EditFind, "mnuEditFind", "&Find...", 1, S::Normal, "Ctrl+F"},
};

constexpr MenuItemRow kGallerySlidesAndWindow[] = {
    {M::Slides, "mnuSlides", "&Slides", 0, S::Normal},
    {M::SlidesAdd, "mnuSlidesAdd", "&Add Slide", 1, S::Normal},
    {M::SlidesModify, "mnuSlidesModify", "&Modify Slide Collection", 1, S::Normal},
    {M::SlidesTemplate, "mnuSlidesTemplate", "&Set Slide Template", 1, S::Normal},
    {M::SlidesRemoved, "mnuSlidesRemoved", "&Removed Slides...", 1, S::Normal},
    {M::Window, "mnuWindow", "&Window", 0, S::Normal},
    {M::WindowVertical, "mnuWindowTileV", "&Tile Vertically", 1, S::Normal},
    {M::WindowHorizontal, "mnuWindowTileH", "T&ile Horizontally", 1, S::Normal},
    {M::WindowCascade, "mnuWindowCascade", "&Cascade", 1, S::Normal},
};

constexpr MenuItemRow kGalleryPopups[] = {
    {M::Popup1, "mnuPopup1", "&Popup1", 0, S::Hidden},
    {M::Popup1Delete, "mnuPopup1Delete", "&Remove Slide", 1, S::Normal},
    {M::Popup1What, "mnuPopup1What", "&What's this?", 1, S::Normal},
    {M::Bar7, "mnuBar7", "-", 1, S::Normal},
    {M::Popup1Help, "mnuPopup1Help", "&Help", 1, S::Normal},
    {M::Popup3, "mnuPopup3", "&Popup3", 0, S::Hidden},
    {M::Popup3Reset, "mnuPopupReset", "&Reset", 1, S::Normal},
    {M::Popup3What, "mnuPopup3What", "&What's this?", 1, S::Normal},
    {M::Bar9, "mnuBar9", "-", 1, S::Normal},
    {M::Popup3Help, "mnuPopup3Help", "&Help", 1, S::Normal},
    {M::Popup4, "mnuPopup4", "&Popup4", 0, S::Hidden},
    {M::Popup4SetBackground, "mnuPopup4SetBackground", "&Set Background", 1, S::Normal},
    {M::Popup4What, "mnuPopup4What", "&What's this?", 1, S::Normal},
    {M::Bar10, "mnuBar10", "-", 1, S::Normal},
    {M::Popup4Help, "mnuPopup4Help", "&Help", 1, S::Normal},
};

}  // namespace

const std::vector<MenuItemRow>& GalleryMenu() {
  static const std::vector<MenuItemRow> menu =
      JoinMenus({kGalleryFile, kHistoryItems, kGalleryEdit, kViewMenu, kGallerySlidesAndWindow, kHelpMenu,
                 kGalleryPopups, kWallpaperPopup});
  return menu;
}

std::string StepCaption(MenuId item, const std::optional<std::string>& step) {
  const auto& menu = GalleryMenu();
  const auto row = std::find_if(menu.begin(), menu.end(), [item](const MenuItemRow& r) { return r.id == item; });
  const std::string caption = row == menu.end() ? std::string() : std::string(row->caption);
  return step ? caption + " " + *step : caption;
}

const std::array<WhatNote, 3> kGalleryWhatNotes{{
    {M::Popup1What, 1000, 4700,
     "Slide: slides contain the images that you want to view. "
     "You can add or delete slides using the Slides "
     "menu option. Click on the slide and press F1 for more information."},
    {M::Popup3What, 1300, 3900,
     "Expanded version of a gallery slide. "
     "Click on the slide to zoom in or click the "
     "'Edit' button to edit the slide's details. "
     "Click on the slide and press F1 for more details."},
    {M::Popup4What, 300, 4000, "Slide background image or frame image."},
}};

}  // namespace cb
