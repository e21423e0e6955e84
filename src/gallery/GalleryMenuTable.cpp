#include "gallery/GalleryMenuTable.h"

namespace cb {

using S = ItemState;

namespace {

// The gallery's File menu has New and Save As live and its own Gallery off.
constexpr MenuItemSpec kGalleryFile[] = {
    {"mnuFile", "&File", 0, S::Normal},
    {"mnuFileNew", "&New", 1, S::Normal},
    {"mnuFileOpen", "&Open", 1, S::Normal},
    {"mnuBar1", "-", 1, S::Normal},
    {"mnuFileSaveAs", "&Save As", 1, S::Normal},
    {"mnuBar2", "-", 1, S::Normal},
    {"mnuFileGallery", "&Gallery", 1, S::Off},
    {"mnuFileWallpaper", "&Set Wallpaper", 1, S::Normal},
    {"mnuBar3", "-", 1, S::Normal},
    {"mnuFilePassword", "&Password", 1, S::Normal},
};

constexpr MenuItemSpec kGallerySlidesAndWindow[] = {
    {"mnuSlides", "&Slides", 0, S::Normal},
    {"mnuSlidesAdd", "&Add Slide", 1, S::Normal},
    {"mnuSlidesModify", "&Modify Slide Collection", 1, S::Normal},
    {"mnuSlidesTemplate", "&Set Slide Template", 1, S::Normal},
    {"mnuWindow", "&Window", 0, S::Normal},
    {"mnuWindowTileV", "&Tile Vertically", 1, S::Normal},
    {"mnuWindowTileH", "T&ile Horizontally", 1, S::Normal},
    {"mnuWindowCascade", "&Cascade", 1, S::Normal},
};

constexpr MenuItemSpec kGalleryPopups[] = {
    {"mnuPopup1", "&Popup1", 0, S::Hidden},
    {"mnuPopup1Delete", "&Remove Slide", 1, S::Normal},
    {"mnuPopup1What", "&What's this?", 1, S::Normal},
    {"mnuBar7", "-", 1, S::Normal},
    {"mnuPopup1Help", "&Help", 1, S::Normal},
    {"mnuPopup3", "&Popup3", 0, S::Hidden},
    {"mnuPopupReset", "&Reset", 1, S::Normal},
    {"mnuPopup3What", "&What's this?", 1, S::Normal},
    {"mnuBar9", "-", 1, S::Normal},
    {"mnuPopup3Help", "&Help", 1, S::Normal},
    {"mnuPopup4", "&Popup4", 0, S::Hidden},
    {"mnuPopup4SetBackground", "&Set Background", 1, S::Normal},
    {"mnuPopup4What", "&What's this?", 1, S::Normal},
    {"mnuBar10", "-", 1, S::Normal},
    {"mnuPopup4Help", "&Help", 1, S::Normal},
};

}  // namespace

const std::vector<MenuItemSpec>& GalleryMenu() {
  static const std::vector<MenuItemSpec> menu =
      JoinMenus({kGalleryFile, kHistoryItems, kViewMenu, kGallerySlidesAndWindow, kHelpMenu, kGalleryPopups,
                 kWallpaperPopup});
  return menu;
}

const std::array<WhatNote, 3> kGalleryWhatNotes{{
    {"mnuPopup1What", 1000, 4700,
     "Slide: slides contain the images that you want to view. "
     "You can add or delete slides using the Slides "
     "menu option. Click on the slide and press F1 for more information."},
    {"mnuPopup3What", 1300, 3900,
     "Expanded version of a gallery slide. "
     "Click on the slide to zoom in or click the "
     "'Edit' button to edit the slide's details. "
     "Click on the slide and press F1 for more details."},
    {"mnuPopup4What", 300, 4000, "Slide background image or frame image."},
}};

}  // namespace cb
