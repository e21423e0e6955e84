// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/WindowHelp.h"

#include <array>

namespace cb {
namespace {

constexpr bool kCloses = true, kStays = false;
constexpr char kNoHelp[] = "";
constexpr char kFileMenuPage[] = "help003.htm";
// The gallery's own menus, Slides and Edit, its find bar and the windows they open.
constexpr char kGalleryMenuPage[] = "help009.htm";

// A window's own row stands for the window and every control without a row
// of its own. The dialogs close, so a caller waiting on one finds it
// cancelled; the main working windows stay.
constexpr std::array<WindowHelp, 34> kRows{{
    {"frmCommonDialog", "", kQuickStartPage, kCloses},
    {"frmDirectory", "", kQuickStartPage, kCloses},
    {"dlgRemoveSlide", "", kQuickStartPage, kCloses},
    {"frmLogin", "", "help004.htm", kCloses},
    {"frmModifySlide", "", kGalleryMenuPage, kCloses},
    {"frmEditSlide", "", "help011.htm", kCloses},
    {"frmEditSlideRE", "", "help011.htm", kCloses},
    {"frmEditSlideVEH", "", "help011.htm", kCloses},
    {"frmSelectReport", "", "help012.htm", kCloses},
    {"frmReport", "", "help012.htm", kCloses},
    {"frmBackground", "", "help014.htm", kCloses},
    {"frmSetSlideTemplate", "", "help015.htm", kCloses},
    {"frmClaimPack", "", kFileMenuPage, kCloses},
    {"frmRemovedSlides", "", kGalleryMenuPage, kCloses},
    {"frmSlide", "", kGalleryMenuPage, kStays},
    {"frmGallery", "", "help011.htm", kStays},
    {"frmHelp", "", kQuickStartPage, kStays},  // read only at load: an open viewer keeps its page
    // Controls that differ from their window. The editors' read-only boxes
    // have no F1, nor has the car yard's category.
    {"frmEditSlide", "txtSlideNumber", kNoHelp, kStays},
    {"frmEditSlide", "txtFilename", kNoHelp, kStays},
    {"frmEditSlideRE", "txtSlideNumber", kNoHelp, kStays},
    {"frmEditSlideRE", "txtFilename", kNoHelp, kStays},
    {"frmEditSlideVEH", "txtSlideNumber", kNoHelp, kStays},
    {"frmEditSlideVEH", "txtFilename", kNoHelp, kStays},
    {"frmEditSlideVEH", "cboCategory", kNoHelp, kStays},
    {"frmEditSlideVEH", "cboLocation", "help011.htm", kStays},
    {"frmReport", "Help", "help012.htm", kStays},  // the viewer's toolbar button
    {"frmGallery", "FindBar", kGalleryMenuPage, kStays},
    // Menu items with F1 of their own, in either menu bar.
    {kMenuHelpRows, "mnuFileClaim", kFileMenuPage, kStays},
    {kMenuHelpRows, "mnuFileBackup", kFileMenuPage, kStays},
    {kMenuHelpRows, "mnuFileRestore", kFileMenuPage, kStays},
    {kMenuHelpRows, "mnuEditUndo", kGalleryMenuPage, kStays},
    {kMenuHelpRows, "mnuEditRedo", kGalleryMenuPage, kStays},
    {kMenuHelpRows, "mnuEditFind", kGalleryMenuPage, kStays},
    {kMenuHelpRows, "mnuSlidesRemoved", kGalleryMenuPage, kStays},
}};

}  // namespace

std::span<const WindowHelp> WindowHelpTable() { return kRows; }

const WindowHelp* FindWindowHelp(std::string_view window, std::string_view control) {
  const WindowHelp* own = nullptr;
  for (const WindowHelp& row : kRows) {
    if (row.window != window) continue;
    if (!control.empty() && row.control == control) return &row;
    if (row.control.empty()) own = &row;
  }
  return own;
}

}  // namespace cb
