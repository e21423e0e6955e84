// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCoreApplication>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <functional>

#include "dialogs/HelpRoutine.h"
#include "dialogs/frmCommonDialog.h"
#include "gallery/frmBackground.h"
#include "support/GalleryFixture.h"
#include "support/RowName.h"

namespace cb {
namespace {

using testing::ReadFile;
using testing::WhenShown;

// A header field as the file stores it: each character c as 256 - c, padded with blanks.
std::string Stored(const std::string& text, std::size_t width) {
  std::string out;
  for (char c : text) out += static_cast<char>(256 - static_cast<unsigned char>(c));
  return out + std::string(width - out.size(), ' ');
}

class BackgroundTest : public testing::GalleryFixture {
 protected:
  // Frames "Frame01.jpg", "frame02.jpg", ... in alternating case, each of its own grey.
  void Frames(int n) {
    std::filesystem::remove_all(app / "Background");
    std::filesystem::create_directories(app / "Background");
    for (int i = 1; i <= n; ++i) {
      QImage frame(8, 8, QImage::Format_RGB32);
      frame.fill(QColor(i * 10, i * 10, i * 10));
      frame.save(QString::fromStdString(app / FrameName(i)), "JPG");
    }
  }
  static std::string FrameName(int i) {
    return std::string("Background/") + (i % 2 ? "Frame" : "frame") + (i < 10 ? "0" : "") + std::to_string(i) + ".jpg";
  }

  std::string Header() { return ReadFile(Mc().SlideInformationFilePath()).substr(0, 278); }
  QRgb FrameColour() { return Gallery().Image1(16)->Picture().pixel(2, 2); }
};

struct SampleRow {
  const char* name;
  int frames;
  int offered;
  bool windowMenuEnabled;
};

class BackgroundSampleTest : public BackgroundTest, public ::testing::WithParamInterface<SampleRow> {};

// The samples take no keyboard: F1 reaches the chooser as soon as it is up and
// closes it on its help page, changing nothing.
TEST_P(BackgroundSampleTest, OffersTheFirstFifteenFramesColumnByColumn) {
  Start(1);
  Frames(GetParam().frames);
  const std::string before = Header();
  TheMDIMain().Menu(MenuId::Window)->menuAction()->setEnabled(false);
  WhenShown("frmBackground", [](QWidget& w) {
    auto& chooser = static_cast<frmBackground&>(w);
    for (int i = 1; i <= 15; ++i) {
      const bool offered = i <= GetParam().offered;
      EXPECT_EQ(Globals().BackgroundNames[static_cast<std::size_t>(i)], offered ? FrameName(i).substr(11) : "") << i;
      EXPECT_EQ(chooser.Image1(i)->HasPicture(), offered) << i;
    }
    // Column by column, as the gallery's cells: the fourth sample heads the second column.
    EXPECT_EQ(chooser.Image1(4)->geometry().top(), chooser.Image1(1)->geometry().top());
    EXPECT_GT(chooser.Image1(4)->geometry().left(), chooser.Image1(3)->geometry().right());
    ASSERT_TRUE(QTest::qWaitForWindowActive(&w));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    if (w.isVisible()) w.close();  // F1 went nowhere
  });
  TheMDIMain().SetBackground();
  EXPECT_EQ(TheMDIMain().Menu(MenuId::Window)->menuAction()->isEnabled(), GetParam().windowMenuEnabled);
  EXPECT_EQ(Mc().BackgroundImage(), "oak.jpg");
  EXPECT_EQ(HelpPage(), "help014.htm");
  EXPECT_EQ(Header(), before);
}

const SampleRow kSamples[] = {
    {"three_frames_leave_twelve_blank", 3, 3, false},
    {"twenty_frames_offer_fifteen", 20, 15, true},
};
INSTANTIATE_TEST_SUITE_P(Rows, BackgroundSampleTest, ::testing::ValuesIn(kSamples), testing::RowName());

// Each way to the chooser, and what a click on a sample does.
struct ChoiceRow {
  const char* name;
  std::function<void()> open;
  int sample;
  const char* chosen;  // the frame afterwards
  bool rebuilt;
};

const ChoiceRow kChoices[] = {
    {"back_button_other_frame", [] { TheMDIMain().Button(ToolbarButton::Back)->trigger(); }, 2, "frame02.jpg", true},
    {"popup_other_frame",
     [] {
       TheMDIMain().fGallery()->Item(MenuId::Popup4SetBackground)->trigger();
       QCoreApplication::processEvents();  // the command runs once the popup is done
     },
     3, "Frame03.jpg", true},
    {"frame_in_use", [] { TheMDIMain().Button(ToolbarButton::Back)->trigger(); }, 1, "Frame01.jpg", false},
    {"blank_position", [] { TheMDIMain().Button(ToolbarButton::Back)->trigger(); }, 9, "", true},
};

class BackgroundChoiceTest : public BackgroundTest, public ::testing::WithParamInterface<ChoiceRow> {};

TEST_P(BackgroundChoiceTest, ClickOnASampleChoosesIt) {
  Frames(4);
  Start(2);
  Mc().BackgroundImage("Frame01.jpg");
  TheMDIMain().RebuildGallery();
  const std::string before = Header();
  const QPointer<frmGallery> gallery = &Gallery();  // null once that gallery is gone
  WhenShown("frmBackground", [](QWidget& w) {
    QTest::mouseClick(static_cast<frmBackground&>(w).Image1(GetParam().sample), Qt::LeftButton);
  });
  GetParam().open();
  EXPECT_EQ(TheMDIMain().fBackground(), nullptr);
  EXPECT_EQ(Mc().BackgroundImage(), GetParam().chosen);
  // The gallery's popup is still handling its click when the command returns:
  // the gallery must outlive it and go only afterwards.
  EXPECT_FALSE(gallery.isNull());
  QCoreApplication::processEvents();
  EXPECT_EQ(gallery.isNull(), GetParam().rebuilt);
  if (!GetParam().rebuilt) {
    EXPECT_EQ(Header(), before);
    return;
  }
  EXPECT_EQ(Header().substr(11, 26), Stored(GetParam().chosen, 26));
  EXPECT_EQ(Header().substr(37), before.substr(37));
  EXPECT_EQ(Gallery().Image1(16)->HasPicture(), *GetParam().chosen != 0);
  if (*GetParam().chosen) {
    EXPECT_NEAR(qGray(FrameColour()), GetParam().sample * 10, 3);
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, BackgroundChoiceTest, ::testing::ValuesIn(kChoices), testing::RowName());

class WallpaperTest : public BackgroundTest {
 protected:
  WallpaperTest() {
    std::filesystem::create_directories(app / "Wallpaper");
    for (const auto& [name, colour] : {std::pair{"dawn.jpg", Qt::red}, std::pair{"dusk.jpg", Qt::blue}}) {
      QImage picture(10, 6, QImage::Format_RGB32);
      picture.fill(colour);
      picture.save(QString::fromStdString(app / (std::string("Wallpaper/") + name)), "JPG");
    }
    testing::WriteFile(app / "Wallpaper/broken.jpg", "not a picture");
  }

  // Plays the wallpaper dialog: a click on `file`, then `button`.
  void Answer(const QString& file, const char* button) {
    WhenShown("frmCommonDialog", [file, button](QWidget& w) {
      auto& d = static_cast<frmCommonDialog&>(w);
      d.FileListBox1->setCurrentItem(d.FileListBox1->findItems(file, Qt::MatchExactly).value(0));
      w.findChild<QPushButton*>(button)->click();
    });
  }
  const QImage& Shown() { return TheMDIMain().MdiArea()->Picture(); }
};

// Every caller sets it at once and stores the bare name; Cancel changes nothing,
// and a broken picture is stored yet the old one stays on show.
TEST_F(WallpaperTest, EachCallerAndAnswerInTurn) {
  Start(1);
  const struct {
    std::function<void()> caller;
    const char *file, *button, *stored;
    bool red;  // dawn on show, else dusk
  } steps[] = {
      {[] { TheMDIMain().Item(MenuId::FileWallpaper)->trigger(); }, "dawn.jpg", "cmdOK", "dawn.jpg", true},
      {[] { TheMDIMain().fGallery()->Item(MenuId::FileWallpaper)->trigger(); }, "dusk.jpg", "cmdOK", "dusk.jpg", false},
      {[] { TheMDIMain().Item(MenuId::Popup2SetWallpaper)->trigger(); }, "dawn.jpg", "cmdOK", "dawn.jpg", true},
      {[] { TheMDIMain().mnuFileWallpaper_Click(); }, "dusk.jpg", "cmdCancel", "dawn.jpg", true},
      {[] { TheMDIMain().mnuFileWallpaper_Click(); }, "broken.jpg", "cmdOK", "broken.jpg", true},
  };
  for (const auto& step : steps) {
    SCOPED_TRACE(std::string(step.file) + " " + step.button);
    const std::string before = Header();
    Answer(step.file, step.button);
    step.caller();
    QCoreApplication::processEvents();  // the gallery's menu hands its command on after the click
    ASSERT_FALSE(Shown().isNull());
    EXPECT_EQ(qRed(Shown().pixel(1, 1)) > 200, step.red);
    EXPECT_EQ(Mc().Wallpaper(), step.stored);
    EXPECT_EQ(Header().substr(37, 100), Stored(step.stored, 100));
    EXPECT_EQ(Header().substr(0, 37) + Header().substr(137), before.substr(0, 37) + before.substr(137));
  }
  EXPECT_TRUE(messages.isEmpty());
}

}  // namespace
}  // namespace cb
