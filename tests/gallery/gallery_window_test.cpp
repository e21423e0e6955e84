// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <QUrl>
#include <functional>

#include "dialogs/HelpRoutine.h"
#include "dialogs/frmCommonDialog.h"
#include "dialogs/frmDirectory.h"
#include "dialogs/frmLoading.h"
#include "gallery/dlgRemoveSlide.h"
#include "gallery/frmBackground.h"
#include "gallery/frmModifySlide.h"
#include "gallery/frmRemovedSlides.h"
#include "qt/ExifThumbnail.h"
#include "qt/GalleryPictures.h"
#include "qt/OpenForms.h"
#include "qt/Thumbnails.h"
#include "slide/frmSlide.h"
#include "support/GalleryFixture.h"
#include "support/RowName.h"
#include "support/TempDir.h"

namespace cb {
namespace {

using namespace std::string_literals;
using testing::GalleryFixture;
using testing::ReadFile;
using testing::TempDir;
using testing::WhenShown;

std::vector<int> Range(int from, int to, int pad = 15) {
  std::vector<int> v;
  for (int r = from; r <= to; ++r) v.push_back(r);
  v.resize(static_cast<std::size_t>(pad), 0);
  return v;
}

constexpr QSize kBound{40, 30};

// Moves the file's modification time, as a copy over it a little later would.
void Touch(const QString& path, int seconds) {
  QFile f(path);
  ASSERT_TRUE(f.open(QIODevice::ReadWrite));
  ASSERT_TRUE(f.setFileTime(QDateTime::currentDateTime().addSecs(seconds), QFileDevice::FileModificationTime));
}

QByteArray Jpeg(QSize size, QColor colour) {
  QImage picture(size, QImage::Format_RGB32);
  picture.fill(colour);
  QBuffer out;
  out.open(QIODevice::WriteOnly);
  picture.save(&out, "jpg", 95);
  return out.data();
}

// A JPEG in `colour`; given an orientation, it carries a camera's blue 160x120 thumbnail.
QString WritePicture(const std::string& path, QColor colour, QSize size = {80, 60}, int orientation = 0) {
  const QByteArray picture = Jpeg(size, colour);
  const std::string exif = orientation ? ExifSegment(orientation, Jpeg({160, 120}, Qt::blue).toStdString()) : "";
  testing::WriteFile(path, picture.left(2).toStdString() + exif + picture.mid(2).toStdString());
  return QString::fromStdString(path);
}

// Which of the two a JPEG's colour came from.
const char* RedOrBlue(QColor c) {
  return c.red() > 200 && c.blue() < 60 ? "red" : c.blue() > 200 && c.red() < 60 ? "blue" : "other";
}

QColor Centre(const QImage& image) { return image.pixelColor(image.width() / 2, image.height() / 2); }

class GalleryWindowTest : public GalleryFixture {
 protected:
  // A camera folder of `n` pictures: IMG_1.JPG, IMG_2.JPG, ...
  void Camera(int n) {
    for (int i = 1; i <= n; ++i) WritePicture(app / ("Camera/IMG_" + std::to_string(i) + ".JPG"), Qt::darkGreen);
  }

  // Slides > Modify Slide Collection: picks `folder` in the chooser (none cancels), then plays `act` on the editor.
  void Modify(const std::string& folder, std::function<void(frmModifySlide&)> act) {
    bool asked = false;
    WhenShown("frmDirectory", [this, folder, act, &asked](QWidget& w) {
      asked = true;
      auto& chooser = static_cast<frmDirectory&>(w);
      if (folder.empty()) return chooser.cmdCancel->click();
      chooser.Dir1->Path(QString::fromStdString(app / folder));
      WhenShown("frmModifySlide", [act](QWidget& e) {
        auto& editor = static_cast<frmModifySlide&>(e);
        act(editor);
        if (editor.isVisible()) editor.cmdCancel->click();
      });
      chooser.cmdOK->click();
    });
    // The editor opens once the menu's click is over: its OK replaces the gallery and the menu.
    Gallery().Item(MenuId::SlidesModify)->trigger();
    EXPECT_FALSE(asked);
    QCoreApplication::processEvents();
    EXPECT_TRUE(asked);
  }

  // Right-click on slide cell `cell`, Remove Slide, OK; the gallery is made anew.
  void RemoveByPopup(int cell) {
    QTimer::singleShot(0, [] {
      if (auto* q = qobject_cast<dlgRemoveSlide*>(QApplication::activeModalWidget())) q->cmdOK->click();
    });
    QTest::mouseClick(Gallery().Image1(cell), Qt::RightButton);
    Gallery().Menu(MenuId::Popup1)->hide();
    Gallery().Item(MenuId::Popup1Delete)->trigger();
    QCoreApplication::processEvents();
  }

  std::string OnDisk() {
    ErrorArray errors;
    EXPECT_TRUE(Report(Mc().LoadSettings(), errors));
    std::string names;
    for (std::size_t i = 1; i < Globals().Slides.size(); ++i)
      names += Trim(Globals().Slides[i].Get(Field::PictureFile)) + " ";
    return names;
  }

  // Frames "Frame01.jpg", "frame02.jpg", ... in alternating case, each of its own grey.
  void Frames(int n) {
    std::filesystem::remove_all(app / "Background");
    for (int i = 1; i <= n; ++i) WritePicture(app / FrameName(i), QColor(i * 10, i * 10, i * 10), {8, 8});
  }
  static std::string FrameName(int i) {
    return std::string("Background/") + (i % 2 ? "Frame" : "frame") + (i < 10 ? "0" : "") + std::to_string(i) + ".jpg";
  }

  std::string Header() { return ReadFile(Mc().SlideInformationFilePath()).substr(0, 278); }
  QRgb FrameColour() { return Gallery().Image1(16)->Picture().pixel(2, 2); }
};

struct ScrollRow {
  const char* name;
  int slides;
  std::vector<int> values;  // successive bar values after a load; -1 activates the gallery
  int base, roof, bar;      // bar: its value afterwards, -1 when it is off
  std::vector<int> shown;
  const char* status;
};

const ScrollRow kScrolls[] = {
    {"empty_collection", 0, {}, 0, 0, -1, Range(1, 0), "Slides: 0 to 0 of 0"},
    {"one_page_has_no_bar", 15, {}, 1, 15, -1, Range(1, 15), "Slides: 1 to 15 of 15"},
    {"sixteen_have_one", 16, {}, 1, 15, 1, Range(1, 15), "Slides: 1 to 15 of 16"},
    {"column_right", 20, {2}, 4, 18, 2, Range(4, 18), "Slides: 4 to 18 of 20"},
    {"third_column_pushed_back", 20, {2, 3, 4}, 7, 20, 3, Range(7, 20), "Slides: 7 to 20 of 20"},
    {"page_right", 20, {16}, 16, 30, 16, Range(16, 20), "Slides: 16 to 20 of 20"},
    // Roof stands at 30 until an activation cuts it back, and the way back refills that far.
    {"page_right_activate_and_back", 20, {16, -1, 1}, 1, 15, 1, Range(1, 5), "Slides: 1 to 15 of 20"},
    {"thumb_to_the_end", 20, {30}, 6, 20, 30, Range(6, 20), "Slides: 6 to 20 of 20"},
    // A jump left takes the value as Base, past the end too; one right adds the difference.
    {"jump_left_past_the_end", 20, {30, 10}, 10, 24, 10, Range(10, 20), "Slides: 10 to 24 of 20"},
    // Left from the last page the refill runs over the old, short window.
    {"column_left_from_the_end", 20, {2, 3, 2}, 4, 17, 2, Range(4, 17), "Slides: 4 to 17 of 20"},
};

class GalleryScrollTest : public GalleryWindowTest, public ::testing::WithParamInterface<ScrollRow> {};

TEST_P(GalleryScrollTest, BarStepsMoveTheRecordsOnShow) {
  Start(GetParam().slides);
  for (int v : GetParam().values) {
    if (v < 0) Gallery().Form_Activate();
    if (v >= 0) Gallery().FlatScrollBar1->setValue(v);
  }
  EXPECT_EQ(Mc().CurrentlyActiveBase(), GetParam().base);
  EXPECT_EQ(Mc().CurrentlyActiveRoof(), GetParam().roof);
  EXPECT_EQ(Shown(), GetParam().shown);
  EXPECT_EQ(TheMDIMain().StatusText(), GetParam().status);
  const QScrollBar& bar = *Gallery().FlatScrollBar1;
  EXPECT_EQ(bar.isEnabled() ? bar.value() : -1, GetParam().bar);
  for (int i = 1; i <= 15; ++i) EXPECT_EQ(Gallery().Image1(i)->HasPicture(), Shown()[i - 1] != 0) << i;
}

INSTANTIATE_TEST_SUITE_P(Rows, GalleryScrollTest, ::testing::ValuesIn(kScrolls), cb::testing::RowName());

TEST_F(GalleryWindowTest, MissingFileWithNoWarnsOnceAndRemovesTheSlide) {
  answer = vbNo;
  Start(16, {2});
  ASSERT_EQ(messages.size(), 1);
  EXPECT_EQ(messages[0],
            "Slide Not Found: The file 'p2.png' referenced in the gallery could not be found on your hard drive.\n"
            "The slide will be removed from the gallery.\n\n"
            "Click 'Yes' to receive further warnings, otherwise click 'No'");
  EXPECT_EQ(Mc().NumberOfRecords(), 15);
  EXPECT_FALSE(Gallery().FlatScrollBar1->isEnabled());
  EXPECT_EQ(Shown(), (std::vector<int>{1, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}));
  EXPECT_EQ(OnDisk(),
            "p1.png p3.png p4.png p5.png p6.png p7.png p8.png p9.png p10.png p11.png p12.png p13.png "
            "p14.png p15.png p16.png ");  // saved at once
}

// Removal is offered on filled cells only, opens no slide, and counts from the page's first record.
TEST_F(GalleryWindowTest, RightClickOnCellThreeOfThePageFromSixteenRemovesEighteen) {
  Start(20);
  Gallery().FlatScrollBar1->setValue(16);  // records 16 to 20 in cells 1 to 5
  QTest::mouseClick(Gallery().Image1(9), Qt::RightButton);
  EXPECT_FALSE(Gallery().Item(MenuId::Popup1Delete)->isEnabled());
  Gallery().Menu(MenuId::Popup1)->hide();
  QTimer::singleShot(0, [] {
    if (auto* q = qobject_cast<dlgRemoveSlide*>(QApplication::activeModalWidget())) q->cmdOK->click();
  });
  QTest::mouseClick(Gallery().Image1(3), Qt::RightButton);
  EXPECT_TRUE(Gallery().Item(MenuId::Popup1Delete)->isEnabled());
  EXPECT_EQ(Gallery().PopupSlideIndex, 3);
  Gallery().Menu(MenuId::Popup1)->hide();
  EXPECT_EQ(FindOpenForm("frmSlide"), nullptr);
  const QPointer<frmGallery> before = &Gallery();
  Gallery().Item(MenuId::Popup1Delete)->trigger();
  // The popup is still handling its click here: its gallery goes only once events run.
  EXPECT_FALSE(before.isNull());
  QCoreApplication::processEvents();
  EXPECT_TRUE(before.isNull());
  EXPECT_EQ(Mc().NumberOfRecords(), 19);
  EXPECT_EQ(Trim(Globals().Slides[18].Get(Field::SlideText)), "Slide 19");
  EXPECT_EQ(Trim(Globals().Slides[17].Get(Field::SlideText)), "Slide 17");
  EXPECT_EQ(Mc().CurrentlyActiveBase(), 1);  // a new gallery on the first page
}

// The find bar: the grid above it, steps, clicks and removals through the
// matches, the query kept over the rebuild, and Esc giving everything back.
TEST_F(GalleryWindowTest, FindBarShowsTheMatchesAndCommandsTakeTheSlideShown) {
  Start(60);
  ModGlobal& g = Globals();
  for (int i = 3; i <= 60; i += 3) g.Slides[std::size_t(i)].Set(Field::Location, "Garage");
  g.Slides[9].Set(Field::Make, "Tools");
  ErrorArray errors;
  ASSERT_TRUE(Report(Mc().SaveSettings(), errors));
  const SlideArray before = g.Slides;
  const QImage closed = Gallery().grab().toImage();
  QApplication::setActiveWindow(&TheMDIMain());
  TheMDIMain().MdiArea()->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(Gallery().parentWidget()));
  QTest::keyClick(&Gallery(), Qt::Key_F, Qt::ControlModifier);
  ASSERT_TRUE(Gallery().FindBar->isVisible());
  EXPECT_LT(Gallery().FlatScrollBar1->geometry().bottom(), Gallery().FindBar->y());
  QTest::keyClick(Gallery().txtFind, Qt::Key_F1);
  EXPECT_EQ(HelpPage(), "help009.htm");

  QTest::keyClicks(Gallery().txtFind, "GARAGE -tools");
  EXPECT_EQ(Gallery().lblFound->text(), "19 of 60 slides");
  EXPECT_EQ(Shown(), (std::vector<int>{3, 6, 12, 15, 18, 21, 24, 27, 30, 33, 36, 39, 42, 45, 48}));
  Gallery().FlatScrollBar1->setValue(2);
  EXPECT_EQ(Shown(), (std::vector<int>{15, 18, 21, 24, 27, 30, 33, 36, 39, 42, 45, 48, 51, 54, 57}));
  EXPECT_EQ(TheMDIMain().StatusText(), "Slides: 4 to 18 of 19");
  QTest::mouseClick(Gallery().Image1(2), Qt::LeftButton);
  auto* slide = qobject_cast<frmSlide*>(FindOpenForm("frmSlide"));
  ASSERT_NE(slide, nullptr);
  EXPECT_EQ(slide->Image1->toolTip(), "Slide 18");
  EXPECT_EQ(Mc().CurrentImageNumber(), 18);  // what the editor edits

  RemoveByPopup(1);
  SlideArray expected = before;
  expected.erase(expected.begin() + 15);
  EXPECT_EQ(std::vector(g.Slides.begin() + 1, g.Slides.end()), std::vector(expected.begin() + 1, expected.end()));
  EXPECT_EQ(Gallery().txtFind->text(), "GARAGE -tools");
  EXPECT_EQ(Gallery().lblFound->text(), "18 of 59 slides");
  EXPECT_EQ(Shown(), (std::vector<int>{3, 6, 12, 18, 21, 24, 27, 30, 33, 36, 39, 42, 45, 48, 51}));  // by their texts

  QTest::keyClick(Gallery().txtFind, Qt::Key_Escape);
  EXPECT_FALSE(Gallery().FindBar->isVisible());
  EXPECT_EQ(Shown(), (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 16}));
  EXPECT_EQ(TheMDIMain().StatusText(), "Slides: 1 to 15 of 59");
  EXPECT_EQ(Gallery().grab().toImage(), closed);
}

// A query kept over a rebuild applies at the load, and a missing picture among
// its matches is the slide removed: the matches after it move down.
TEST_F(GalleryWindowTest, MissingPictureAmongTheMatchesOfAKeptQuery) {
  Globals().FindQuery = "\"slide 1\"";
  Start(30, {12});
  ASSERT_EQ(messages.size(), 1);
  EXPECT_TRUE(messages[0].contains("'p12.png'"));
  EXPECT_EQ(Mc().NumberOfRecords(), 29);
  EXPECT_EQ(Shown(), (std::vector<int>{1, 10, 11, 13, 14, 15, 16, 17, 18, 19, 0, 0, 0, 0, 0}));
  EXPECT_EQ(Gallery().lblFound->text(), "10 of 29 slides");
}

// A removal undone and made again by the keys, the second after the program
// started again; a file changed elsewhere sets the history aside.
TEST_F(GalleryWindowTest, UndoAndRedoPutTheFileBackByteForByte) {
  Start(5);
  ErrorArray errors;
  const auto restart = [&] {
    Globals().MainController = std::make_unique<UIMainController>(app.str(), settings, Globals());
    Mc().KeepHistory();
    ASSERT_TRUE(Report(Mc().LoadSettings(), errors));
    TheMDIMain().RebuildGallery();
  };
  restart();
  const std::string path = app / "Files/t.sif", start = ReadFile(path);
  RemoveByPopup(3);
  const std::string removed = ReadFile(path);
  ASSERT_NE(removed, start);
  emit Gallery().Menu(MenuId::Edit)->aboutToShow();
  EXPECT_EQ(Gallery().Item(MenuId::EditUndo)->text(), "&Undo Remove Slide");
  EXPECT_FALSE(Gallery().Item(MenuId::EditRedo)->isEnabled());

  QApplication::setActiveWindow(&TheMDIMain());
  QTest::keyClick(&TheMDIMain(), Qt::Key_Z, Qt::ControlModifier);
  QCoreApplication::processEvents();  // the gallery hands its items on queued
  EXPECT_EQ(ReadFile(path), start);
  EXPECT_EQ(Shown(), Range(1, 5));
  restart();
  QApplication::setActiveWindow(&TheMDIMain());
  QTest::keyClick(&TheMDIMain(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  QCoreApplication::processEvents();
  EXPECT_EQ(ReadFile(path), removed);
  EXPECT_EQ(Shown(), (std::vector<int>{1, 2, 4, 5, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));

  std::string elsewhere = start;
  elsewhere[2 * kRecordLength + 60] ^= 1;  // another program changed a slide's text
  testing::WriteFile(path, elsewhere);
  restart();
  EXPECT_EQ(TheMDIMain().StatusText(), "The undo history was set aside: the file was changed elsewhere.");
  EXPECT_FALSE(Mc().UndoName());
  EXPECT_EQ(ReadFile(path), elsewhere);
}

// A removed slide listed in Removed Slides and restored: the file is as it
// was before the removal, and one Undo takes the restore back.
TEST_F(GalleryWindowTest, RemovedSlidesRestoresASlideAsOneStep) {
  Start(5);
  Mc().KeepHistory();
  ErrorArray errors;
  ASSERT_TRUE(Report(Mc().LoadSettings(), errors));
  TheMDIMain().RebuildGallery();
  const std::string path = app / "Files/t.sif", start = ReadFile(path);
  RemoveByPopup(3);
  const std::string removed = ReadFile(path);
  ASSERT_NE(removed, start);
  QStringList listed;
  QTimer::singleShot(0, [&] {
    auto* bin = qobject_cast<frmRemovedSlides*>(QApplication::activeModalWidget());
    if (!bin) return;
    for (int i = 0; i < bin->lstRemoved->topLevelItemCount(); ++i) listed << bin->lstRemoved->topLevelItem(i)->text(3);
    bin->lstRemoved->selectAll();
    bin->cmdRestore->click();
    listed << QString::number(bin->lstRemoved->topLevelItemCount());
    bin->cmdClose->click();
  });
  ASSERT_TRUE(Gallery().Item(MenuId::SlidesRemoved)->isEnabled());
  Gallery().Item(MenuId::SlidesRemoved)->trigger();
  QCoreApplication::processEvents();
  EXPECT_EQ(listed, QStringList({"removed", "0"}));
  EXPECT_EQ(ReadFile(path), start);
  EXPECT_EQ(Shown(), Range(1, 5));
  EXPECT_EQ(Mc().UndoName(), "Restore Removed Slides");
  ASSERT_TRUE(Report(Mc().Undo(), errors));
  EXPECT_EQ(ReadFile(path), removed);
  ASSERT_EQ(Mc().RemovedSlides().size(), 1u);
  EXPECT_EQ(Mc().RemovedSlides()[0].reason, "undone");
  ASSERT_TRUE(Report(Mc().Redo(), errors));  // back again: out of the bin
  EXPECT_EQ(ReadFile(path), start);
  EXPECT_TRUE(Mc().RemovedSlides().empty());
}

// A picture Add Slide copies over is kept with the step: Undo puts it back, Redo the new one.
TEST_F(GalleryWindowTest, UndoOfAnAddPutsBackThePictureItReplaced) {
  Start(2);
  Mc().KeepHistory();
  ErrorArray errors;
  ASSERT_TRUE(Report(Mc().LoadSettings(), errors));
  const std::string gallery = app / "Gallery/p2.png", coming = app / "Camera/p2.png", old = ReadFile(gallery);
  std::filesystem::create_directories(app / "Camera");
  WritePicture(coming, Qt::red);
  ASSERT_TRUE(Mc().GlobalController().AppendSlide(coming, Mc(), Globals().Slides));
  ASSERT_TRUE(Report(Mc().SaveSettings("Add Slide"), errors));
  EXPECT_EQ(ReadFile(gallery), ReadFile(coming));
  for (const bool back : {true, false}) {
    ASSERT_TRUE(Report(back ? Mc().Undo() : Mc().Redo(), errors));
    EXPECT_EQ(ReadFile(gallery), back ? old : ReadFile(coming)) << back;
  }
}

// A slide window beside the gallery: names, menu bars, its help page and cascading each its own.
TEST_F(GalleryWindowTest, SlideWindowBesideTheGallery) {
  Start(17);
  Globals().Slides[3].Set(Field::SlideText, "Television");
  Gallery().FlatScrollBar1->setValue(2);  // out and back: the cells show the records anew
  Gallery().FlatScrollBar1->setValue(1);
  EXPECT_EQ(Gallery().Image1(3)->accessibleName(), "Slide 3: Television");
  QMenuBar* bar = TheMDIMain().menuBar();
  TheMDIMain().MdiArea()->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(Gallery().parentWidget()));
  EXPECT_EQ(bar->actions().value(0), Gallery().Menu(MenuId::File)->menuAction());
  QTest::mouseClick(Gallery().Image1(3), Qt::LeftButton);  // a slide window comes to the front
  auto* slide = qobject_cast<frmSlide*>(FindOpenForm("frmSlide"));
  ASSERT_NE(slide, nullptr);
  EXPECT_EQ(slide->Image1->accessibleName(), "Slide 3: Television");
  EXPECT_EQ(bar->actions().value(0), TheMDIMain().Menu(MenuId::File)->menuAction());
  EXPECT_TRUE(Gallery().Item(MenuId::FileSaveAs)->isEnabled());
  EXPECT_FALSE(TheMDIMain().Item(MenuId::FileSaveAs)->isEnabled());

  QApplication::setActiveWindow(&TheMDIMain());
  TheMDIMain().MdiArea()->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(slide->parentWidget()));
  slide->setFocus();
  QTest::keyClick(slide, Qt::Key_F1);
  EXPECT_EQ(HelpPage(), "help009.htm");

  // Cascading keeps each child usable at its own size, not bare title bars.
  TheMDIMain().resize(1200, 900);
  TheMDIMain().Item(MenuId::WindowCascade)->trigger();
  EXPECT_EQ(Gallery().size(), Gallery().sizeHint());
  EXPECT_EQ(slide->size(), slide->sizeHint());
  EXPECT_NE(Gallery().parentWidget()->pos(), slide->parentWidget()->pos());

  // A double-click (press, release, press, double-click, release) zooms one step, not two.
  const ElementRect before = slide->ImageRect();
  const QPoint at(10, 10);
  QTest::mouseClick(slide->Image1, Qt::LeftButton, {}, at);
  QTest::mousePress(slide->Image1, Qt::LeftButton, {}, at);
  const QPoint global = slide->Image1->mapToGlobal(at);
  QMouseEvent twice(QEvent::MouseButtonDblClick, at, global, Qt::LeftButton, Qt::LeftButton, {});
  QApplication::sendEvent(slide->Image1, &twice);
  QTest::mouseRelease(slide->Image1, Qt::LeftButton, {}, at);
  EXPECT_FLOAT_EQ(slide->ImageRect().Width, static_cast<float>(before.Width * 1.2));
}

TEST_F(GalleryWindowTest, LargestCollectionOpensAndScrollsToTheEnd) {
  WritePicture(app / "Gallery/same.png", Qt::darkCyan);
  ModGlobal& g = Globals();
  g.MainController = std::make_unique<UIMainController>(app.str(), settings, g);
  g.MainController->SetRegistryKeys(app / "Files/big.sif");
  SlideRecord r;
  r.Set(Field::PictureFile, "same.png");
  g.Slides.assign(32768, r);
  ErrorArray errors;
  ASSERT_TRUE(Report(g.MainController->SaveSettings(), errors));
  TheMDIMain();
  EXPECT_EQ(Mc().CurrentlyActiveRoof(), 15);
  Gallery().FlatScrollBar1->setValue(2);
  EXPECT_EQ(Mc().CurrentlyActiveBase(), 4);
  Gallery().FlatScrollBar1->setValue(Gallery().FlatScrollBar1->maximum());
  EXPECT_EQ(Mc().CurrentlyActiveRoof(), 32767);
  EXPECT_EQ(Mc().CurrentlyActiveBase(), 32767 - 14);
}

// The thumb dragged left shows the first page, never the header. A jump right, a column
// right and back leave Base at -1: a step then misses record 2's picture in a cell that
// names record 0, which is not removed, and the cell ends empty with the header intact.
TEST_F(GalleryWindowTest, ThumbToTheLeftEndAndASlideThatCannotBeRemoved) {
  Start(40);
  const SlideRecord header = Globals().Slides[0];
  QScrollBar* bar = Gallery().FlatScrollBar1;
  bar->setValue(16);
  bar->setValue(31);
  ASSERT_EQ(Mc().CurrentlyActiveBase(), 31);
  bar->setSliderDown(true);
  bar->setSliderPosition(bar->minimum());
  bar->setSliderDown(false);
  EXPECT_EQ(Shown(), Range(1, 15));
  EXPECT_EQ(Mc().CurrentlyActiveBase(), 1);
  EXPECT_TRUE(messages.isEmpty());
  for (int v : {20, 2, 1}) bar->setValue(v);
  ASSERT_EQ(Mc().CurrentlyActiveBase(), -1);
  std::filesystem::remove(app / "Gallery/p2.png");
  bar->setValue(2);
  EXPECT_EQ(messages.size(), 1);
  EXPECT_EQ(Mc().NumberOfRecords(), 40);
  EXPECT_EQ(Globals().Slides[0], header);
  EXPECT_FALSE(Gallery().Image1(1)->HasPicture());
  EXPECT_EQ(Shown(), Range(2, 16));  // the tool tip follows the record all the same
}

QStringList Items(const QListWidget& list) {
  QStringList names;
  for (int i = 0; i < list.count(); ++i) names << list.item(i)->text();
  return names;
}

// Moves that cancel out or no folder leave the gallery; a camera folder's OK rebuilds it, the editor stays.
TEST_F(GalleryWindowTest, NothingToApplyThenAllOfACameraFolder) {
  Start(2);
  Camera(3);
  std::filesystem::create_directories(app / "Empty");
  QPointer<frmGallery> before = &Gallery();  // null once that gallery is gone
  before->parentWidget()->showMaximized();
  Modify("Empty", [&](frmModifySlide& editor) {
    EXPECT_EQ(editor.lstAvailable->count(), 0);
    EXPECT_EQ(Items(*editor.lstSelected), QStringList({"p1.png", "p2.png"}));
    editor.lstSelected->item(1)->setSelected(true);
    editor.cmdRemoveOne->click();
    editor.lstAvailable->item(0)->setSelected(true);
    editor.cmdAddOne->click();
    editor.cmdRemoveAll->click();
    EXPECT_EQ(Items(*editor.lstAvailable), QStringList({"p1.png", "p2.png"}));
    EXPECT_EQ(editor.lstSelected->count(), 0);
    editor.cmdAddAll->click();
    editor.cmdOK->click();
  });
  EXPECT_EQ(TheMDIMain().fGallery(), before.data());
  Modify("", [](frmModifySlide&) { ADD_FAILURE() << "the editor showed without a folder"; });
  EXPECT_EQ(TheMDIMain().fGallery(), before.data());
  Modify("Camera", [&](frmModifySlide& editor) {
    EXPECT_EQ(Items(*editor.lstAvailable), QStringList({"IMG_1.JPG", "IMG_2.JPG", "IMG_3.JPG"}));
    EXPECT_EQ(Items(*editor.lstSelected), QStringList({"p1.png", "p2.png"}));
    editor.cmdAddAll->click();
    editor.cmdOK->click();
    EXPECT_TRUE(editor.isVisible());
    EXPECT_TRUE(before.isNull());                                         // built anew...
    EXPECT_TRUE(TheMDIMain().fGallery()->parentWidget()->isMaximized());  // ...in the state it had
  });
  EXPECT_TRUE(messages.isEmpty()) << messages.join("; ").toStdString();
  for (int i = 1; i <= 15; ++i) EXPECT_EQ(Gallery().Image1(i)->HasPicture(), i <= 5) << i;
  EXPECT_EQ(OnDisk(), "p1.png p2.png IMG_1.JPG IMG_2.JPG IMG_3.JPG ");
}

TEST_F(GalleryWindowTest, OkShowsProgressAndKeepsEventsRunningWhileItCopies) {
  Start(2);
  Camera(4);
  bool timerRan = false;
  Modify("Camera", [&](frmModifySlide& editor) {
    editor.cmdAddAll->click();
    std::filesystem::remove(app / "Camera/IMG_2.JPG");  // its copy fails, and is told
    // A timer due at once runs only if OK lets events through while it works.
    QTimer::singleShot(0, [&] {
      timerRan = true;
      EXPECT_TRUE(TheLoading().isVisible());
      EXPECT_EQ(TheLoading().lblText->text(), "Updating the slide collection...");
      EXPECT_EQ(TheLoading().ProgressBar1->maximum(), 4);
      EXPECT_FALSE(editor.isEnabled());
      editor.cmdCancel->click();  // refused while the changes are applied
    });
    editor.cmdOK->click();
    EXPECT_TRUE(editor.isVisible());
    EXPECT_TRUE(editor.isEnabled());
    EXPECT_FALSE(FindOpenForm("frmLoading") && FindOpenForm("frmLoading")->isVisible());
  });
  EXPECT_TRUE(timerRan);
  // Told once while copying; the new gallery then offers to drop the slide whose picture is missing.
  EXPECT_EQ(messages.value(0), "Error: Couldn't add record.");
  EXPECT_EQ(messages.filter("Couldn't add").size(), 1);
  EXPECT_EQ(OnDisk(), "p1.png p2.png IMG_1.JPG IMG_3.JPG IMG_4.JPG ");
}

// A header field as the file stores it: each character c as 256 - c, padded with blanks.
std::string Stored(const std::string& text, std::size_t width) {
  std::string out;
  for (char c : text) out += static_cast<char>(256 - static_cast<unsigned char>(c));
  return out + std::string(width - out.size(), ' ');
}

struct SampleRow {
  const char* name;
  int frames;
  int offered;
  bool windowMenuEnabled;
};

class BackgroundSampleTest : public GalleryWindowTest, public ::testing::WithParamInterface<SampleRow> {};

// F1 reaches the chooser (its samples take no keys) and closes it on its page, changing nothing.
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

class BackgroundChoiceTest : public GalleryWindowTest, public ::testing::WithParamInterface<ChoiceRow> {};

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
  // The popup is still handling its click: the gallery must outlive it and go only afterwards.
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

// Each caller stores the bare name; Cancel changes nothing; a broken picture is stored, not shown.
TEST_F(GalleryWindowTest, WallpaperFromEachCallerAndAnswerInTurn) {
  Start(1);
  WritePicture(app / "Wallpaper/dawn.jpg", Qt::red, {10, 6});
  WritePicture(app / "Wallpaper/dusk.jpg", Qt::blue, {10, 6});
  testing::WriteFile(app / "Wallpaper/broken.jpg", "not a picture");
  const QImage& shown = TheMDIMain().MdiArea()->Picture();
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
    WhenShown("frmCommonDialog", [&step](QWidget& w) {  // a click on the file, then the button
      auto& d = static_cast<frmCommonDialog&>(w);
      d.FileListBox1->setCurrentItem(d.FileListBox1->findItems(step.file, Qt::MatchExactly).value(0));
      w.findChild<QPushButton*>(step.button)->click();
    });
    step.caller();
    QCoreApplication::processEvents();  // the gallery's menu hands its command on after the click
    ASSERT_FALSE(shown.isNull());
    EXPECT_EQ(qRed(shown.pixel(1, 1)) > 200, step.red);
    EXPECT_EQ(Mc().Wallpaper(), step.stored);
    EXPECT_EQ(Header().substr(37, 100), Stored(step.stored, 100));
    EXPECT_EQ(Header().substr(0, 37) + Header().substr(137), before.substr(0, 37) + before.substr(137));
  }
  EXPECT_TRUE(messages.isEmpty());
}

// The gallery's picture cache: memory bound, stale files, honest desktop and camera thumbnails.
class PictureCacheTest : public ::testing::Test {
 protected:
  TempDir files, thumbs;
  Thumbnails store{QString::fromStdString(thumbs.str())};
};

TEST_F(PictureCacheTest, StaysWithinItsBoundOverAThousandPictures) {
  const std::size_t limit = 64 * 1024;
  GalleryPictures pictures(limit, store);
  QImage out;
  for (int i = 0; i < 1000; ++i) {
    const std::string name = "p" + std::to_string(i) + ".jpg";
    const QString path = WritePicture(files / name, QColor::fromHsv(i % 360, 200, 200));
    ASSERT_EQ(pictures.Get(path, out, kBound), RtError::None);
    ASSERT_LE(pictures.MemoryUsed(), limit) << "after picture " << i;
  }
  EXPECT_EQ(pictures.Decodes(), 1000);
  pictures.WaitForIdle();
  // The newest are still held; the oldest went first.
  pictures.Get(QString::fromStdString(files / "p999.jpg"), out, kBound);
  EXPECT_EQ(pictures.Decodes(), 1000);
  pictures.Clear();
  pictures.Get(QString::fromStdString(files / "p999.jpg"), out, kBound);
  EXPECT_EQ(pictures.Decodes(), 1000) << "a valid thumbnail stands in for the decode";
}

// Held pictures are not decoded again, failures never held; thumbnails follow the desktop's standard.
TEST_F(PictureCacheTest, HoldsPicturesButNotFailuresAndWritesThumbnails) {
  GalleryPictures pictures(1 << 20, store);
  const QSize noThumbnail{1100, 500};  // beyond every thumbnail folder
  const QString path = WritePicture(files / "tv.jpg", Qt::red);
  QImage out;
  ASSERT_EQ(pictures.Get(path, out, noThumbnail), RtError::None);
  ASSERT_EQ(pictures.Get(path, out, noThumbnail), RtError::None);
  EXPECT_EQ(pictures.Decodes(), 1);
  testing::WriteFile(files / "bad.jpg", "not a picture");
  const QString bad = QString::fromStdString(files / "bad.jpg");
  const RtError first = pictures.Get(bad, out, kBound);
  EXPECT_NE(first, RtError::None);
  EXPECT_EQ(pictures.Get(bad, out, kBound), first);

  const QString set = WritePicture(files / "tv set.jpg", Qt::red, {800, 600});
  ASSERT_EQ(pictures.Get(set, out, kBound), RtError::None);
  pictures.WaitForIdle();
  const QByteArray uri = QUrl::fromLocalFile(set).toEncoded();
  const QString thumb = QString::fromStdString(thumbs / "normal/") +
                        QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex() + ".png";
  const QImage stored(thumb, "png");
  ASSERT_FALSE(stored.isNull()) << thumb.toStdString();
  EXPECT_EQ(stored.text("Thumb::URI"), QString::fromLatin1(uri));
  EXPECT_EQ(stored.text("Thumb::MTime"), QString::number(QFileInfo(set).lastModified().toSecsSinceEpoch()));
  EXPECT_EQ(stored.size(), QSize(128, 96));
  EXPECT_EQ(QFile::permissions(thumb) & (QFileDevice::ReadOther | QFileDevice::ReadGroup), 0);
}

TEST_F(PictureCacheTest, CameraThumbnailOnlyWhereItServes) {
  const struct {
    const char* name;
    QSize picture;  // a size other than 4:3 leaves the thumbnail stale, as a crop does
    int orientation;
    QSize cell;
    bool fromThumbnail, upright;
  } rows[] = {
      {"small_cell", {800, 600}, 1, {80, 60}, true, false},
      {"cell_as_large_as_the_thumbnail", {800, 600}, 1, {160, 120}, true, false},
      {"cell_larger_than_the_thumbnail", {800, 600}, 1, {161, 120}, false, false},
      {"cropped_picture_stale_thumbnail", {600, 600}, 1, {80, 60}, false, false},
      {"turned_thumbnail", {800, 600}, 6, {60, 80}, true, true},
      {"turned_decode", {800, 600}, 6, {300, 400}, false, true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    GalleryPictures pictures(1 << 20, store);  // each its own file: no thumbnail of another row stands in
    const QString path = WritePicture(files / row.name, Qt::red, row.picture, row.orientation);
    QImage out;
    ASSERT_EQ(pictures.Get(path, out, {400, 400}, row.cell), RtError::None);
    EXPECT_STREQ(RedOrBlue(Centre(out)), row.fromThumbnail ? "blue" : "red");
    EXPECT_EQ(pictures.Decodes(), row.fromThumbnail ? 0 : 1);
    EXPECT_EQ(out.height() > out.width(), row.upright) << out.width() << "x" << out.height();
    EXPECT_TRUE(Covers(out.size(), row.cell));
  }
}

// A cell shown from the thumbnail keeps it while it grows within it, and decodes once larger.
TEST_F(GalleryWindowTest, CellTakesTheDecodeOnlyWhenItOutgrowsTheThumbnail) {
  Start(1);
  WritePicture(app / "Gallery/p1.png", Qt::red, {1600, 1200}, 1);
  Touch(QString::fromStdString(app / "Gallery/p1.png"), 10);
  TheMDIMain().resize(1600, 1000);
  TheMDIMain().RebuildGallery();
  QWidget* frame = Gallery().parentWidget();
  const int decodes = GalleryPictures::Instance().Decodes();
  const auto cell = [&] { return Gallery().Image1(1)->size(); };
  const QSize first = cell();
  EXPECT_STREQ(RedOrBlue(Centre(Gallery().Image1(1)->Picture())), "blue");
  frame->resize(frame->width() + 5 * (155 - first.width()), frame->height());
  ASSERT_GT(cell().width(), first.width());
  ASSERT_TRUE(Covers({160, 120}, cell())) << cell().width() << "x" << cell().height();
  EXPECT_STREQ(RedOrBlue(Centre(Gallery().Image1(1)->Picture())), "blue");
  frame->resize(1500, 900);
  ASSERT_GT(cell().width(), 160);
  EXPECT_STREQ(RedOrBlue(Centre(Gallery().Image1(1)->Picture())), "red");
  EXPECT_EQ(GalleryPictures::Instance().Decodes(), decodes + 1);
}

// The load decodes a column ahead, yet a step sees a file deleted or replaced since.
TEST_F(GalleryWindowTest, StepSeesFilesDeletedOrReplacedAfterCaching) {
  answer = vbNo;
  Start(20);
  GalleryPictures::Instance().WaitForIdle();
  QImage red(6, 4, QImage::Format_RGB32);
  red.fill(Qt::red);
  const QString p16 = QString::fromStdString(app / "Gallery/p16.png");
  ASSERT_TRUE(red.save(p16));
  Touch(p16, 10);
  ASSERT_TRUE(QFile::remove(QString::fromStdString(app / "Gallery/p17.png")));
  Gallery().FlatScrollBar1->setValue(2);  // one column right of the fresh bar
  ASSERT_EQ(messages.size(), 1);
  EXPECT_TRUE(messages[0].startsWith("Slide Not Found: The file 'p17.png'"));
  EXPECT_EQ(Mc().NumberOfRecords(), 19);
  ASSERT_EQ(Shown()[12], 16);
  EXPECT_EQ(Centre(Gallery().Image1(13)->Picture()), QColor(Qt::red));
  EXPECT_EQ(Centre(Gallery().Image1(12)->Picture()), QColor(Qt::darkCyan));
}

// The JPEG head reader against crafted and hostile files, and when a thumbnail stands for its picture.
const std::string kSoi = "\xFF\xD8"s;
const std::string kThumb = "\xFF\xD8\xFF\xD9"s;  // the least a JPEG can be
const std::string kJfif = "\xFF\xE0\x00\x10JFIF\0\x01\x01\0\0\x01\0\x01\0\0"s;
// A frame header of 4000 x 3000, then the scan.
const std::string kFrame = "\xFF\xC0\x00\x0B\x08\x0B\xB8\x0F\xA0\x01\x01\x11\x00\xFF\xDA"s;
// Where the writer's little-endian segment puts things, counted from the file's start.
constexpr std::size_t kTiff = 12, kIfd0Offset = kTiff + 4, kIfd0Count = kTiff + 8, kThumbAtValue = kTiff + 36,
                      kThumbLengthValue = kTiff + 48, kThumbAt = kTiff + 56;

std::string Camera(int orientation = 6) { return kSoi + ExifSegment(orientation, kThumb) + kFrame; }

// `bytes` with the little-endian number `v` written over `width` bytes at `at`.
std::string Patched(std::string bytes, std::size_t at, std::uint32_t v, int width = 4) {
  for (int i = 0; i < width; ++i) bytes[at + std::size_t(i)] = char((v >> (8 * i)) & 0xFF);
  return bytes;
}

JpegHead Read(const std::string& bytes) {
  return ReadJpegHead({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}

// Big-endian, written out by hand: orientation 3, the thumbnail at 56.
const std::string kBigEndian = kSoi + "\xFF\xE1\x00\x44"s + "Exif\0\0"s + "MM\x00\x2A\x00\x00\x00\x08"s +
                               "\x00\x01\x01\x12\x00\x03\x00\x00\x00\x01\x00\x03\x00\x00\x00\x00\x00\x1A"s +
                               "\x00\x02\x02\x01\x00\x04\x00\x00\x00\x01\x00\x00\x00\x38"s +
                               "\x02\x02\x00\x04\x00\x00\x00\x01\x00\x00\x00\x04\x00\x00\x00\x00"s + kThumb + kFrame;

TEST(HeadTest, ReadsWhatLiesWithinTheBytes) {
  const struct {
    const char* name;
    std::string bytes;
    int width, orientation;
    std::size_t thumbnailAt;  // 0 for none
  } rows[] = {
      {"little_endian", Camera(), 4000, 6, kThumbAt},
      {"big_endian", kBigEndian, 4000, 3, kThumbAt},
      {"after_jfif", kSoi + kJfif + ExifSegment(8, kThumb, true) + kFrame, 4000, 8, kThumbAt + kJfif.size()},
      {"no_exif", kSoi + kJfif + kFrame, 4000, 1, 0},
      {"orientation_out_of_range", Camera(9), 4000, 1, kThumbAt},
      {"thumbnail_past_the_end", Patched(Camera(), kThumbAtValue, 0xFFFFFFF0), 4000, 6, 0},
      {"thumbnail_longer_than_segment", Patched(Camera(), kThumbLengthValue, 5), 4000, 6, 0},
      {"thumbnail_not_a_jpeg", Patched(Camera(), kThumbAtValue, 52), 4000, 6, 0},
      {"ifd0_past_the_end", Patched(Camera(), kIfd0Offset, 0x7FFFFFFF), 4000, 1, 0},
      {"entry_count_past_the_end", Patched(Camera(), kIfd0Count, 0xFFFF, 2), 4000, 1, 0},
      {"segment_length_past_the_end", kSoi + "\xFF\xE1\xFF\xFF"s + "Exif\0\0II"s, 0, 1, 0},
      {"not_a_jpeg", "GIF89a" + Camera().substr(2), 0, 1, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const JpegHead head = Read(row.bytes);
    EXPECT_EQ(head.size.width, row.width);
    EXPECT_EQ(head.size.height, row.width ? 3000 : 0);
    EXPECT_EQ(head.orientation, row.orientation);
    EXPECT_EQ(head.thumbnailAt, row.thumbnailAt);
    EXPECT_EQ(head.thumbnailLength, row.thumbnailAt ? kThumb.size() : 0);
  }
}

// A head cut anywhere never reads past the cut nor names bytes beyond it.
TEST(HeadCutTest, EveryCutIsSafe) {
  const std::string whole = Camera();
  for (std::size_t cut = 0; cut < whole.size(); ++cut) {
    const JpegHead head = Read(whole.substr(0, cut));
    EXPECT_LE(head.thumbnailAt + head.thumbnailLength, cut);
    EXPECT_EQ(head.thumbnailLength != 0, cut >= kThumbAt + kThumb.size()) << "cut at " << cut;
    EXPECT_EQ(head.size.width != 0, cut >= whole.size() - 2 - 4) << "cut at " << cut;
  }
}

TEST(ServeTest, SameShapeAndCoveringOnceTurned) {
  const struct {
    const char* name;
    PixelSize thumbnail, picture;
    int orientation;
    PixelSize cell;
    bool serves;
  } rows[] = {
      {"turned_covers_a_tall_cell", {160, 120}, {4000, 3000}, 6, {100, 150}, true},
      {"unturned_misses_a_tall_cell", {160, 120}, {4000, 3000}, 1, {100, 150}, false},
      {"shape_within_one_percent", {160, 120}, {4032, 3000}, 1, {80, 60}, true},
      {"shape_off_by_two_percent", {160, 120}, {4080, 3000}, 1, {80, 60}, false},
      {"empty_thumbnail", {0, 0}, {4000, 3000}, 1, {0, 0}, false},
  };
  for (const auto& row : rows)
    EXPECT_EQ(ThumbnailServes(row.thumbnail, row.picture, row.orientation, row.cell), row.serves) << row.name;
}

}  // namespace
}  // namespace cb
