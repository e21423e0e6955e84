#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>

#include "help/UIHelpController.h"
#include "storage/Env.h"
#include "support/TempDir.h"

namespace cb {
namespace {

using testing::ReadFile;
namespace fs = std::filesystem;

struct PageRow {
  const char* file;
  const char* title;
  const char* heading;
  std::vector<const char*> links;  // pages linked, in order of appearance
};

const PageRow kPages[] = {
    {"help001.htm", "Contents", "</font><u><font face='Verdana'>Contents</font></u><p>",
     {"help002.htm", "help003.htm", "help003.htm", "help005.htm", "help009.htm", "help008.htm", "help001.htm",
      "help010.htm", "help011.htm", "help012.htm", "help014.htm", "help006.htm", "help016.htm"}},
    {"help002.htm", "Chattelworks Help - Quick Start", "</font><u><font face='Verdana'>Quick Start</font></u><p>",
     {"help009.htm", "help011.htm", "help012.htm", "help012.htm", "help014.htm"}},
    {"help003.htm", "Menu Options - (File Menu)",
     "<p><b><u><font face='Verdana' size='2'>File Menu</font></u></b></p>", {"help004.htm"}},
    {"help004.htm", "Remove Slide", "<p><u><font face='Verdana'>Passwords</font></u></p>", {}},
    {"help005.htm", "Menu Options (View Menu)", "<p><b><u><font face='Verdana' size='2'>View Menu</font></u></b></p>",
     {}},
    {"help006.htm", "Menu Options (Slides Menu)",
     "<u>Support</u></font><p><font face='Verdana' size='2'>Before requesting support, ", {}},
    {"help007.htm", "Menu Options (Web Menu)",
     "<p><u><b><font face='Lucida Sans Unicode' size='2'>Web Menu</font></b></u></p>", {}},
    {"help008.htm", "Menu Options (Window Menu)",
     "<p><u><b><font face='Verdana' size='2'>Window Menu</font></b></u></p>", {}},
    {"help009.htm", "Toolbar", "<p><font face='Verdana' size='2'><u><b>Slides Menu<br>", {"help012.htm"}},
    {"help010.htm", "Slide Information File",
     "</font><u><font face='Verdana'>Storing Slide Information</font></u><p>", {"help015.htm", "help011.htm"}},
    {"help011.htm", "Editing Slide Details", "<p><u><font face='Verdana'>Editing Slide Details</font></u></p>",
     {"help015.htm"}},
    {"help012.htm", "Editing Slide Details", "<p><u><font face='Verdana'>Running and Printing Reports</font></u></p>",
     {"help015.htm", "help010.htm"}},
    {"help014.htm", "Toolbar", "<p><u><font face='Verdana'>Toolbar Buttons</font></u></p>",
     {"help010.htm", "help010.htm", "help011.htm", "help012.htm", "help008.htm"}},
    {"help015.htm", "Toolbar", "<p><u><font face='Verdana'>Templates</font></u></p>", {}},
    {"help016.htm", "System Requirements", "<p><u><font face='Verdana'>Hardware Requirements</font></u></p>", {}},
};

std::string Header(const std::string& title) {
  return "<html><head><meta http-equiv='Content-Language' content='en-us'>"
         "<meta http-equiv='Content-Type' content='text/html; charset=windows-1252'>"
         "<meta name='GENERATOR' content='Microsoft FrontPage 5.0'>"
         "<meta name='ProgId' content='FrontPage.Editor.Document'><title>" +
         title +
         "</title></head><body><table border='0' width='100%' cellspacing='0' cellpadding='0'><tr>"
         "    <td width='100%' bgcolor='#FFFF00'>"
         "    <p align='center'><b><font face='Verdana' size='5'>Chattelbook Help</font></b></td>"
         "  </tr></table>";
}

class HelpPages : public ::testing::Test {
 protected:
  HelpPages() { fs::create_directories(app / "Help"); }
  std::string Page(const std::string& file) const { return ReadFile(app / ("Help/" + file)); }
  testing::TempDir app;
};

TEST_F(HelpPages, FifteenPagesWithHeaderTitleHeadingAndFooter) {
  UIHelpController help(app.str());
  ASSERT_TRUE(help.GenerateHelp());
  EXPECT_EQ(help.LastError(), RtError::None);
  EXPECT_EQ(std::distance(fs::directory_iterator(app / "Help"), fs::directory_iterator()), 15);
  EXPECT_FALSE(fs::exists(app / "Help/help013.htm"));
  for (const auto& row : kPages) {
    const std::string page = Page(row.file);
    SCOPED_TRACE(row.file);
    EXPECT_TRUE(page.starts_with(Header(row.title)));
    EXPECT_TRUE(page.ends_with("</body></html>\r\n"));
    EXPECT_EQ(page.find('\n'), page.size() - 1);  // one line, one line end
    EXPECT_NE(page.find(row.heading), std::string::npos);
    EXPECT_LT(page.find(row.heading), Header(row.title).size() + 40);
  }
}

TEST_F(HelpPages, LinksNameTheProgramDirectory) {
  ASSERT_TRUE(UIHelpController(app.str()).GenerateHelp());
  const std::regex href("<a href='" + app.str() + "/help/(help\\d\\d\\d\\.htm)'>");
  for (const auto& row : kPages) {
    const std::string page = Page(row.file);
    std::vector<std::string> links;
    for (std::sregex_iterator it(page.begin(), page.end(), href), end; it != end; ++it) links.push_back((*it)[1]);
    EXPECT_EQ(links, std::vector<std::string>(row.links.begin(), row.links.end())) << row.file;
  }
  // The toolbar link of the view menu page names the directory twice.
  EXPECT_NE(Page("help005.htm").find("<p><font face='Verdana' size='2'><u><a href='" + app.str() + "/help/" +
                                     app.str() + "/help/help014.htm'>Toolbar</a><br>"),
            std::string::npos);
  EXPECT_NE(Page("help001.htm").find("/help/help002.htm'>Getting Started - Quick Start</a><br>&nbsp;&nbsp;&nbsp; "
                                     "</font></li>"),
            std::string::npos);
}

TEST_F(HelpPages, QuotedPassagesStandAsWritten) {
  ASSERT_TRUE(UIHelpController(app.str()).GenerateHelp());
  const std::pair<const char*, std::string> quotes[] = {
      {"help002.htm",
       "Chattelbook allows you to establish a pictorial inventory of your property and possessions.&nbsp; In "
       "addition it enables you to save important details about each inventory item such as serial number, make, "
       "model etc."},
      {"help002.htm", "&#39;HomeSecurity.sif&#39;, &#39;CarYard.sif&#39; and &#39;RealEstate.sif&#39;"},
      {"help002.htm", "Edit a Slide&#39;s Details"},
      {"help004.htm", "Setting the password to a blank field will cancel password protection."},
      {"help006.htm", "receive a reply addressing any problem within 48 hours (usually 24 hours).</font></p>"},
      {"help011.htm", "/help/help015.htm'>templates</a> available with Chattelbook v1.01; Home Security, Real "
                      "Estate and Car Yard.</font></p>"},
      {"help011.htm", "Categories (and Locations) are created dynamically when you enter text into the fields."},
      {"help012.htm", "Clicking a link on the second level report will display that particular slide.</font></p>"},
      {"help016.htm", "<p><u><font face='Verdana'>System Requirements</font></u></p>"},
      {"help016.htm", "High Color (16 Bit) 800 * 600 Pixels"},
      {"help016.htm", "20 MB (or above) Free Disk Space"},
  };
  for (const auto& [file, quote] : quotes) EXPECT_NE(Page(file).find(quote), std::string::npos) << file << ": " << quote;
}

TEST_F(HelpPages, APageThatCannotBeWrittenDoesNotStopTheOthers) {
  fs::create_directories(app / "Help/help007.htm");  // a directory in the page's place
  UIHelpController help(app.str());
  EXPECT_FALSE(help.GenerateHelp());
  EXPECT_EQ(help.LastError(), RtError::PathFileAccess);
  for (const auto& row : kPages) {
    if (std::string(row.file) == "help007.htm") continue;
    EXPECT_TRUE(Page(row.file).starts_with("<html>")) << row.file;
  }
}

TEST_F(HelpPages, WithoutAHelpDirectoryEveryPageFails) {
  fs::remove(app / "Help");
  UIHelpController help(app.str());
  EXPECT_FALSE(help.GenerateHelp());
  EXPECT_EQ(help.LastError(), RtError::PathNotFound);
  EXPECT_FALSE(fs::exists(app / "Help"));
}

// Pages in memory; the disk fills up while help007.htm is written.
class FullAtOnePage : public MemoryEnv {
 public:
  RtError NewWritableFile(const std::string& path, unsigned mode, std::unique_ptr<WritableFile>& file) override {
    const RtError e = MemoryEnv::NewWritableFile(path, mode, file);
    if (path.ends_with("help007.htm")) file = std::make_unique<FullFile>();
    return e;
  }

 private:
  struct FullFile : WritableFile {
    RtError Append(std::string_view) override { return RtError::DiskFull; }
    RtError Sync() override { return RtError::None; }
    RtError Close() override { return RtError::None; }
  };
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

}  // namespace
}  // namespace cb
