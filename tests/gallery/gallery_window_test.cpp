#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "support/RowName.h"
#include "dialogs/HelpRoutine.h"
#include "qt/StretchImage.h"
#include "gallery/dlgRemoveSlide.h"
#include "slide/frmSlide.h"
#include "support/GalleryFixture.h"

namespace cb {
namespace {

using testing::GalleryFixture;

std::vector<int> Range(int from, int to, int pad = 15) {
  std::vector<int> v;
  for (int r = from; r <= to; ++r) v.push_back(r);
  v.resize(static_cast<std::size_t>(pad), 0);
  return v;
}

class GalleryWindowTest : public GalleryFixture {};

TEST_F(GalleryWindowTest, EmptyCollectionShowsFifteenEmptyFrames) {
  Start(0);
  EXPECT_EQ(Mc().CurrentlyActiveBase(), 0);
  EXPECT_EQ(Mc().CurrentlyActiveRoof(), 0);
  EXPECT_EQ(TheMDIMain().StatusText(), "Slides: 0 to 0 of 0");
  for (int i = 1; i <= 15; ++i) {
    EXPECT_EQ(Gallery().Image1(i)->toolTip(), "Empty");
    EXPECT_FALSE(Gallery().Image1(i)->HasPicture());
    EXPECT_TRUE(Gallery().Image1(i + 15)->HasPicture());
  }
  EXPECT_FALSE(Gallery().FlatScrollBar1->isEnabled());
  EXPECT_EQ(Gallery().windowTitle(), QString::fromStdString("Gallery <" + app / "Files/t.sif>"));
}

TEST_F(GalleryWindowTest, BarIsLiveOnlyBeyondOnePage) {
  Start(15);
  EXPECT_FALSE(Gallery().FlatScrollBar1->isEnabled());
  EXPECT_EQ(Shown(), Range(1, 15));
  UnloadForms();
  Start(16);
  EXPECT_TRUE(Gallery().FlatScrollBar1->isEnabled());
  EXPECT_EQ(Mc().CurrentlyActiveRoof(), 15);
  EXPECT_EQ(TheMDIMain().StatusText(), "Slides: 1 to 15 of 16");
}

struct ScrollRow {
  const char* name;
  std::vector<int> values;  // successive bar values after a load; -1 activates the gallery
  int base, roof;
  std::vector<int> shown;
  const char* status;
};

const ScrollRow kScrolls[] = {
    {"column_right", {1}, 4, 18, Range(4, 18), "Slides: 4 to 18 of 20"},
    {"two_columns_right", {1, 2}, 7, 20, Range(7, 20), "Slides: 7 to 20 of 20"},
    {"third_column_pushed_back", {1, 2, 3}, 7, 20, Range(7, 20), "Slides: 7 to 20 of 20"},
    {"page_right", {15}, 16, 30, Range(16, 20), "Slides: 16 to 20 of 20"},
    // Roof stands at 30 until an activation cuts it back, and the way back refills that far.
    {"page_right_and_back", {15, 0}, 1, 15, Range(1, 15), "Slides: 1 to 15 of 20"},
    {"page_right_activate_and_back", {15, -1, 0}, 1, 15, Range(1, 5), "Slides: 1 to 15 of 20"},
    {"thumb_to_the_end", {30}, 6, 20, Range(6, 20), "Slides: 6 to 20 of 20"},
};

class GalleryScrollTest : public GalleryFixture, public ::testing::WithParamInterface<ScrollRow> {};

TEST_P(GalleryScrollTest, BarStepsMoveTheRecordsOnShow) {
  Start(20);
  for (int v : GetParam().values) {
    if (v < 0) Gallery().Form_Activate();
    else Gallery().FlatScrollBar1->setValue(v);
  }
  EXPECT_EQ(Mc().CurrentlyActiveBase(), GetParam().base);
  EXPECT_EQ(Mc().CurrentlyActiveRoof(), GetParam().roof);
  EXPECT_EQ(Shown(), GetParam().shown);
  EXPECT_EQ(TheMDIMain().StatusText(), GetParam().status);
}

INSTANTIATE_TEST_SUITE_P(Rows, GalleryScrollTest, ::testing::ValuesIn(kScrolls),
                         cb::testing::RowName());

TEST_F(GalleryWindowTest, RefusedColumnStepPushesTheBarBack) {
  Start(20);
  Gallery().FlatScrollBar1->setValue(1);
  Gallery().FlatScrollBar1->setValue(2);
  Gallery().FlatScrollBar1->setValue(3);
  EXPECT_EQ(Gallery().FlatScrollBar1->value(), 2);
  EXPECT_EQ(Globals().GalleryScrollValue, 2);
}

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
  ModGlobal other;
  UIMainController fresh(app.str(), settings, other);
  ErrorArray errors;
  ASSERT_TRUE(fresh.LoadSettings(errors));
  EXPECT_EQ(fresh.NumberOfRecords(), 15);  // saved at once
}

TEST_F(GalleryWindowTest, ClickOnAnEmptyCellOnlyReportsItsNumber) {
  Start(4);
  QTest::mouseClick(Gallery().Image1(9), Qt::LeftButton);
  EXPECT_EQ(Mc().CurrentImageNumber(), 9);
  EXPECT_EQ(TheMDIMain().StatusText(), "Slide: 9");
  EXPECT_EQ(FindOpenForm("frmSlide"), nullptr);
}

TEST_F(GalleryWindowTest, RightClickOffersRemovalAndSkipsTheClick) {
  Start(4);
  QTest::mouseClick(Gallery().Image1(9), Qt::RightButton);
  EXPECT_FALSE(Gallery().Item(MenuId::Popup1Delete)->isEnabled());
  Gallery().Menu(MenuId::Popup1)->hide();
  QTest::mouseClick(Gallery().Image1(2), Qt::RightButton);
  EXPECT_TRUE(Gallery().Item(MenuId::Popup1Delete)->isEnabled());
  EXPECT_EQ(Gallery().PopupSlideIndex, 2);
  Gallery().Menu(MenuId::Popup1)->hide();
  EXPECT_EQ(FindOpenForm("frmSlide"), nullptr);
}

TEST_F(GalleryWindowTest, SlideOpensAndZoomsOnClick) {
  Start(4);
  QTest::mouseClick(Gallery().Image1(2), Qt::LeftButton);
  auto* slide = qobject_cast<frmSlide*>(FindOpenForm("frmSlide"));
  ASSERT_NE(slide, nullptr);
  EXPECT_EQ(slide->windowTitle(), "Slide 2 - Slide 2");
  const ElementRect before = slide->ImageRect();
  QTest::mouseClick(slide->Image1, Qt::LeftButton, {}, QPoint(10, 10));
  EXPECT_FLOAT_EQ(slide->ImageRect().Width, static_cast<float>(before.Width * 1.2));
  EXPECT_TRUE(TheMDIMain().Button(ToolbarButton::Zoom)->isChecked());
}

TEST_F(GalleryWindowTest, RemovingCellThreeOnThePageFromSixteenRemovesEighteen) {
  Start(20);
  Gallery().FlatScrollBar1->setValue(15);  // the page starting at record 16
  QTimer::singleShot(0, [] {
    if (auto* q = qobject_cast<dlgRemoveSlide*>(QApplication::activeModalWidget())) q->cmdOK->click();
  });
  QTest::mouseClick(Gallery().Image1(3), Qt::RightButton);
  Gallery().Menu(MenuId::Popup1)->hide();
  Gallery().Item(MenuId::Popup1Delete)->trigger();
  EXPECT_EQ(Mc().NumberOfRecords(), 19);
  EXPECT_EQ(Trim(Globals().Slides[18].Get(Field::SlideText)), "Slide 19");
  EXPECT_EQ(Trim(Globals().Slides[17].Get(Field::SlideText)), "Slide 17");
  EXPECT_EQ(Mc().CurrentlyActiveBase(), 1);  // a new gallery on the first page
}

TEST_F(GalleryWindowTest, F1OpensEachWindowsOwnPage) {
  Start(3);
  QTest::mouseClick(Gallery().Image1(1), Qt::LeftButton);  // a slide window beside the gallery
  auto* slide = qobject_cast<frmSlide*>(FindOpenForm("frmSlide"));
  ASSERT_NE(slide, nullptr);
  QApplication::setActiveWindow(&TheMDIMain());
  TheMDIMain().MdiArea()->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(slide->parentWidget()));
  slide->setFocus();
  QTest::keyClick(slide, Qt::Key_F1);
  EXPECT_EQ(HelpPage(), "help009.htm");
  TheMDIMain().MdiArea()->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(Gallery().parentWidget()));
  Gallery().setFocus();
  QTest::keyClick(&Gallery(), Qt::Key_F1);
  EXPECT_EQ(HelpPage(), "help011.htm");
}

TEST_F(GalleryWindowTest, ActiveGalleryBringsItsOwnMenuBar) {
  Start(3);
  QMenuBar* bar = TheMDIMain().menuBar();
  TheMDIMain().MdiArea()->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(Gallery().parentWidget()));
  EXPECT_EQ(bar->actions().value(0), Gallery().Menu(MenuId::File)->menuAction());
  QTest::mouseClick(Gallery().Image1(1), Qt::LeftButton);  // a slide window comes to the front
  EXPECT_EQ(bar->actions().value(0), TheMDIMain().Menu(MenuId::File)->menuAction());
  EXPECT_TRUE(Gallery().Item(MenuId::FileSaveAs)->isEnabled());
  EXPECT_FALSE(TheMDIMain().Item(MenuId::FileSaveAs)->isEnabled());
}

TEST_F(GalleryWindowTest, TooSmallWindowMovesTheFramesAndLeavesThePictures) {
  Start(3);
  const QRect picture = Gallery().Image1(1)->geometry();
  Gallery().resize(60, 60);  // cells narrower than the picture's insets
  EXPECT_EQ(Gallery().Image1(16)->width(), 12);
  EXPECT_EQ(Gallery().Image1(1)->geometry(), picture);
}

TEST_F(GalleryWindowTest, LargestCollectionOpensAndScrollsToTheEnd) {
  QImage picture(6, 4, QImage::Format_RGB32);
  picture.fill(Qt::darkCyan);
  picture.save(QString::fromStdString(app / "Gallery/same.png"));
  ModGlobal& g = Globals();
  g.MainController = std::make_unique<UIMainController>(app.str(), settings, g);
  g.MainController->SetRegistryKeys(app / "Files/big.sif");
  SlideRecord r;
  r.Set(Field::PictureFile, "same.png");
  g.Slides.assign(32768, r);
  ErrorArray errors;
  ASSERT_TRUE(g.MainController->SaveSettings(errors));
  TheMDIMain();
  EXPECT_EQ(Mc().CurrentlyActiveRoof(), 15);
  Gallery().FlatScrollBar1->setValue(1);
  EXPECT_EQ(Mc().CurrentlyActiveBase(), 4);
  Gallery().FlatScrollBar1->setValue(Gallery().FlatScrollBar1->maximum());
  EXPECT_EQ(Mc().CurrentlyActiveRoof(), 32767);
  EXPECT_EQ(Mc().CurrentlyActiveBase(), 32767 - 14);
}

}  // namespace
}  // namespace cb
