#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "help/UIHelpController.h"
#include "model/WindowHelp.h"
#include "support/TempDir.h"

namespace cb {
namespace {

struct Ask {
  const char* window;
  const char* control;  // "" for the window itself
  const char* page;     // "": F1 there does nothing
  bool closes;
};

// Which page F1 gives in each window (its own or a control), and whether the window closes.
const Ask kAsks[] = {
    {"frmCommonDialog", "txtFilename", "help002.htm", true},
    {"frmDirectory", "Dir1", "help002.htm", true},
    {"dlgRemoveSlide", "", "help002.htm", true},
    {"frmLogin", "txtConfirmPassword", "help004.htm", true},
    {"frmModifySlide", "lstAvailable", "help009.htm", true},
    {"frmEditSlide", "cboCategory", "help011.htm", true},
    {"frmEditSlideRE", "txtValue", "help011.htm", true},
    {"frmEditSlideVEH", "txtMake", "help011.htm", true},
    {"frmEditSlideVEH", "cboLocation", "help011.htm", false},  // the one control that stays open
    {"frmEditSlideVEH", "cboCategory", "", false},
    {"frmEditSlideRE", "txtFilename", "", false},  // a read-only box
    {"frmSelectReport", "optLocation", "help012.htm", true},
    {"frmReport", "", "help012.htm", true},
    {"frmReport", "Help", "help012.htm", false},  // the toolbar's button only opens the viewer
    {"frmBackground", "Picture1", "help014.htm", true},
    {"frmSetSlideTemplate", "optVEH", "help015.htm", true},
    {"frmSlide", "", "help009.htm", false},
    {"frmGallery", "Picture1", "help011.htm", false},
    {"frmHelp", "WebBrowser1", "help002.htm", false},
    {"MDIMain", "", "", false},  // the frame itself has no page
    {"frmAbout", "cmdOK", "", false},
    {"frmEditSlide", "cboLocation", "help011.htm", true},  // the exception is VEH's alone
};

class WindowHelpRows : public ::testing::TestWithParam<Ask> {};

TEST_P(WindowHelpRows, PageAndRoutine) {
  const Ask& a = GetParam();
  const WindowHelp* row = FindWindowHelp(a.window, a.control);
  EXPECT_EQ(row ? row->page : "", a.page);
  if (*a.page) {
    EXPECT_EQ(row->closes, a.closes);
  }
}

std::string AskName(const ::testing::TestParamInfo<Ask>& row) {
  return std::string(row.param.window) + "_" + (*row.param.control ? row.param.control : "window");
}

INSTANTIATE_TEST_SUITE_P(Rows, WindowHelpRows, ::testing::ValuesIn(kAsks), AskName);

TEST(WindowHelpTable, EveryPageNamedIsOneTheProgramWrites) {
  testing::TempDir app;
  std::filesystem::create_directories(app / "Help");
  ASSERT_TRUE(UIHelpController(app.str()).GenerateHelp());
  std::set<std::string_view> windows;
  for (const WindowHelp& row : WindowHelpTable()) {
    if (!row.page.empty()) {
      EXPECT_TRUE(std::filesystem::is_regular_file(app / ("Help/" + std::string(row.page)))) << row.page;
    }
    // A window's own row stands once, and the rows of its controls differ from it.
    if (row.control.empty()) {
      EXPECT_TRUE(windows.insert(row.window).second) << row.window;
    } else if (const WindowHelp* own = FindWindowHelp(row.window)) {
      EXPECT_TRUE(own->page != row.page || own->closes != row.closes) << row.window << " " << row.control;
    }
  }
}

}  // namespace
}  // namespace cb
