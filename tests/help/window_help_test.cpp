#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "help/UIHelpController.h"
#include "model/WindowHelp.h"
#include "support/TempDir.h"

namespace cb {
namespace {

TEST(WindowHelp, EveryPageNamedIsOneTheProgramWrites) {
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
