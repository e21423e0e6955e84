// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>

#include "help/HelpViewerRules.h"
#include "help/UIHelpController.h"
#include "model/WindowHelp.h"
#include "storage/Env.h"
#include "support/TempDir.h"

namespace cb {
namespace {

using testing::ReadFile;
namespace fs = std::filesystem;

class HelpPages : public ::testing::Test {
 protected:
  void SetUp() override {
    fs::create_directories(app / "Help");
    ASSERT_TRUE(UIHelpController(app.str()).GenerateHelp());
  }
  std::string Page(const std::string& file) const { return ReadFile(app / ("Help/" + file)); }
  testing::TempDir app;
};

// Fifteen pages, each one line under the banner, and every link leads to
// one of them through the program's directory.
TEST_F(HelpPages, FifteenOneLinePagesLinkedThroughTheProgramDirectory) {
  std::vector<std::string> files;
  for (const auto& e : fs::directory_iterator(app / "Help")) files.push_back(e.path().filename().string());
  std::sort(files.begin(), files.end());
  ASSERT_EQ(files.size(), 15u);
  const std::string head =
      "<html><head><meta http-equiv='Content-Language' content='en-us'>"
      "<meta http-equiv='Content-Type' content='text/html; charset=windows-1252'>"
      "<meta name='GENERATOR' content='Microsoft FrontPage 5.0'>"
      "<meta name='ProgId' content='FrontPage.Editor.Document'><title>";
  const std::string banner =
      "</title></head><body><table border='0' width='100%' cellspacing='0' cellpadding='0'><tr>"
      "    <td width='100%' bgcolor='#FFFF00'>"
      "    <p align='center'><b><font face='Verdana' size='5'>Chattelbook Help</font></b></td>  </tr></table>";
  const std::regex href("<a href='" + app.str() + "/help/(help\\d\\d\\d\\.htm)'>");
  int links = 0;
  for (const std::string& file : files) {
    SCOPED_TRACE(file);
    const std::string page = Page(file);
    EXPECT_TRUE(page.starts_with(head));
    EXPECT_EQ(page.substr(page.find("</title>"), banner.size()), banner);
    EXPECT_TRUE(page.ends_with("</body></html>\r\n"));
    EXPECT_EQ(page.find('\n'), page.size() - 1);
    for (std::sregex_iterator it(page.begin(), page.end(), href), end; it != end; ++it, ++links)
      EXPECT_TRUE(std::binary_search(files.begin(), files.end(), (*it)[1].str())) << (*it)[1];
  }
  EXPECT_EQ(links, 30);
}

TEST_F(HelpPages, QuotedPassagesStandAsWritten) {
  const std::pair<const char*, std::string> quotes[] = {
      {"help002.htm",
       "Chattelbook allows you to establish a pictorial inventory of your property and possessions.&nbsp; In "
       "addition it enables you to save important details about each inventory item such as serial number, make, "
       "model etc."},
      {"help002.htm", "&#39;HomeSecurity.sif&#39;, &#39;CarYard.sif&#39; and &#39;RealEstate.sif&#39;"},
      {"help004.htm", "Setting the password to a blank field will cancel password protection."},
      {"help006.htm", "receive a reply addressing any problem within 48 hours (usually 24 hours).</font></p>"},
      {"help011.htm",
       "/help/help015.htm'>templates</a> available with Chattelbook v1.01; Home Security, Real "
       "Estate and Car Yard.</font></p>"},
      {"help012.htm", "Clicking a link on the second level report will display that particular slide.</font></p>"},
      {"help016.htm", "High Color (16 Bit) 800 * 600 Pixels"},
      // The toolbar link of the view menu page names the directory twice.
      {"help005.htm", "<p><font face='Verdana' size='2'><u><a href='" + app.str() + "/help/" + app.str() +
                          "/help/help014.htm'>Toolbar</a><br>"},
      {"help001.htm", "/help/help002.htm'>Getting Started - Quick Start</a><br>&nbsp;&nbsp;&nbsp; </font></li>"},
  };
  for (const auto& [file, quote] : quotes)
    EXPECT_NE(Page(file).find(quote), std::string::npos) << file << ": " << quote;
}

// Pages in memory; the disk fills up while help007.htm is written.
struct FullAtOnePage : MemoryEnv {
  struct FullFile : WritableFile {
    RtError Append(std::string_view) override { return RtError::DiskFull; }
    RtError Sync() override { return RtError::None; }
    RtError Close() override { return RtError::None; }
  };
  RtError NewWritableFile(const std::string& path, unsigned mode, std::unique_ptr<WritableFile>& file) override {
    const RtError e = MemoryEnv::NewWritableFile(path, mode, file);
    if (path.ends_with("help007.htm")) file = std::make_unique<FullFile>();
    return e;
  }
};

TEST(HelpPagesInMemory, AFullDiskIsToldAndTheOtherPagesAreWritten) {
  FullAtOnePage memory;
  UIHelpController help("/app", memory);
  EXPECT_FALSE(help.GenerateHelp());
  EXPECT_EQ(help.LastError(), RtError::DiskFull);
  EXPECT_EQ(memory.Files().size(), 15u);
  EXPECT_EQ(memory.Files()["/app/Help/help007.htm"], "");
  EXPECT_TRUE(memory.Files()["/app/Help/help016.htm"].ends_with("</html>\r\n"));
}

TEST_F(HelpPages, EveryPageAWindowNamesIsOneTheProgramWrites) {
  std::set<std::string_view> windows;  // a window's own row stands once
  for (const WindowHelp& row : WindowHelpTable()) {
    EXPECT_TRUE(row.page.empty() || fs::is_regular_file(app / ("Help/" + std::string(row.page)))) << row.page;
    EXPECT_TRUE(!row.control.empty() || windows.insert(row.window).second) << row.window;
  }
}

// The page shown for a file that cannot be read names it, and a name made
// of markup stays text.
TEST(HelpViewerRules, MissingPageShowsTheNameAsText) {
  const std::string page = MissingHelpPage("/opt/a&b/<i>help099.htm");
  EXPECT_NE(page.find("/opt/a&amp;b/&lt;i&gt;help099.htm"), std::string::npos);
  EXPECT_EQ(page.find("<i>help099"), std::string::npos);
}

}  // namespace
}  // namespace cb
