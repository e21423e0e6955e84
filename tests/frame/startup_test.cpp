#include <gtest/gtest.h>

#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>

#include "dialogs/HelpRoutine.h"
#include "frame/Forms.h"
#include "frame/MDIMain.h"
#include "frame/Main.h"
#include "frame/frmSplash.h"
#include "help/frmHelp.h"
#include "qt/MsgBox.h"
#include "state/modGlobal.h"
#include "storage/DataAccess.h"
#include "support/RowName.h"
#include "support/TempDir.h"

namespace cb {
namespace {

struct Message {
  QString text, title;
};

class StartupTest : public ::testing::Test {
 protected:
  StartupTest() {
    setenv("XDG_CONFIG_HOME", config.str().c_str(), 1);  // no password of the user's own
    SetMsgBoxHook([this](const QString& text, int, const QString& title) {
      messages.push_back({text, title});
      return static_cast<int>(vbOK);
    });
  }
  ~StartupTest() override {
    SetMsgBoxHook({});
    UnloadForms();
    Globals() = ModGlobal();
  }

  // Writes Files/<name> with `wallpaper` in its header and makes it the default file.
  void DefaultFile(const std::string& name, const std::string& wallpaper) {
    ModGlobal g;
    UIMainController mc(app.str(), settings, g);
    std::filesystem::create_directories(app / "Files");
    mc.SetRegistryKeys(app / ("Files/" + name));
    mc.Wallpaper(wallpaper);
    mc.SlideTemplate(3);
    ErrorArray errors;
    ASSERT_TRUE(Report(mc.SaveSettings(), errors));
  }

  // A click on the splash as soon as the wait is under way.
  static void ClickSplashSoon() {
    QTimer::singleShot(20, [] {
      if (frmSplash* s = OpenSplash()) QTest::mouseClick(s, Qt::LeftButton);
    });
  }

  testing::TempDir app, config;
  MemorySettings settings;
  std::vector<Message> messages;
};

TEST_F(StartupTest, FirstUseStoresTheDefaultFileAndOpensTheMainWindow) {
  std::filesystem::create_directories(app / "Help");
  ClickSplashSoon();
  ASSERT_TRUE(Main(app.str(), settings));
  UIMainController& mc = *Globals().MainController;
  EXPECT_TRUE(mc.FirstRun);
  EXPECT_EQ(settings.Get("Startup", "DefDir", ""), app / "Files/MyFiles.sif");
  EXPECT_EQ(mc.SlideTemplate(), 1);  // no file to read it from
  EXPECT_TRUE(TheMDIMain().isVisible());
  EXPECT_TRUE(messages.empty());
  // The quick start page comes up on top of the gallery.
  ASSERT_NE(HelpViewer(), nullptr);
  EXPECT_EQ(HelpViewer()->WebBrowser1->documentTitle(), "Chattelworks Help - Quick Start");
  EXPECT_EQ(TheMDIMain().MdiArea()->activeSubWindow(), HelpViewer()->parentWidget());
}

TEST_F(StartupTest, HelpThatCannotBeWrittenIsToldOnceAndTheStartGoesOn) {
  ClickSplashSoon();
  ASSERT_TRUE(Main(app.str(), settings));  // no Help folder to write into
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].text, "An error occurred while generating the help files.");
  EXPECT_EQ(messages[0].title, "Error");
  EXPECT_TRUE(TheMDIMain().isVisible());
}

struct WallpaperRow {
  const char* name;
  std::string wallpaper;
  std::string content;  // written to wallpaper/<wallpaper> unless empty; "picture" is one
  int messages;
};

// A later start reads the default file and its wallpaper; a bad one never stops it.
const WallpaperRow kWallpapers[] = {
    {"a_picture", "calm.png", "picture", 0},
    {"empty_name", "", "", 0},
    {"missing_file", "gone.jpg", "", 0},
    {"not_a_picture", "notes.jpg", "plain text, no picture", 1},
};

class WallpaperStartupTest : public StartupTest, public ::testing::WithParamInterface<WallpaperRow> {};

TEST_P(WallpaperStartupTest, ReadsTheDefaultFileAndNeverStopsForItsWallpaper) {
  const auto& row = GetParam();
  DefaultFile("Home.sif", row.wallpaper);
  std::filesystem::create_directories(app / "wallpaper");
  QImage picture(8, 6, QImage::Format_RGB32);
  if (row.content == "picture") ASSERT_TRUE(picture.save(QString::fromStdString(app / "wallpaper/calm.png")));
  else if (!row.content.empty()) testing::WriteFile(app / ("wallpaper/" + row.wallpaper), row.content);
  ClickSplashSoon();
  ASSERT_TRUE(Main(app.str(), settings));
  EXPECT_TRUE(TheMDIMain().isVisible());
  EXPECT_FALSE(Globals().MainController->FirstRun);
  EXPECT_EQ(Globals().MainController->SlideTemplate(), 3);
  EXPECT_EQ(TheMDIMain().MdiArea()->Picture().size(), row.content == "picture" ? QSize(8, 6) : QSize(0, 0));
  ASSERT_EQ(static_cast<int>(messages.size()), row.messages);
  if (row.messages) {
    EXPECT_EQ(messages[0].text, "481: Invalid picture");
    EXPECT_EQ(messages[0].title, "Wallpaper");
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, WallpaperStartupTest, ::testing::ValuesIn(kWallpapers),
                         cb::testing::RowName());

}  // namespace
}  // namespace cb
