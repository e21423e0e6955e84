// SPDX-License-Identifier: GPL-3.0-or-later
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "dialogs/HelpRoutine.h"
#include "gallery/dlgRemoveSlide.h"
#include "qt/OpenForms.h"
#include "slide/frmSlide.h"
#include "support/GalleryFixture.h"
#include "support/RowName.h"

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

class GalleryScrollTest : public GalleryFixture, public ::testing::WithParamInterface<ScrollRow> {};

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
  ModGlobal other;
  UIMainController fresh(app.str(), settings, other);
  ErrorArray errors;
  ASSERT_TRUE(Report(fresh.LoadSettings(), errors));
  EXPECT_EQ(fresh.NumberOfRecords(), 15);  // saved at once
}

// Removal is offered on filled cells only, the right-click opens no slide,
// and the cell counts from the page's first record.
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

  // A double-click is one click, as on the platform the program comes from: what the toolkit
  // delivers (press, release, press, double-click, release) zooms one step.
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
  ASSERT_TRUE(Report(g.MainController->SaveSettings(), errors));
  TheMDIMain();
  EXPECT_EQ(Mc().CurrentlyActiveRoof(), 15);
  Gallery().FlatScrollBar1->setValue(2);
  EXPECT_EQ(Mc().CurrentlyActiveBase(), 4);
  Gallery().FlatScrollBar1->setValue(Gallery().FlatScrollBar1->maximum());
  EXPECT_EQ(Mc().CurrentlyActiveRoof(), 32767);
  EXPECT_EQ(Mc().CurrentlyActiveBase(), 32767 - 14);
}

// The thumb dragged to the far left: the first page, and the header record
// (element 0) never reaches a cell. From there a jump right, a column right and
// back leave Base at -1; a column step right then finds record 2's picture gone
// and the cell names record 0, which is not removed: the retry ends with the
// cell empty and the header intact.
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

}  // namespace
}  // namespace cb
