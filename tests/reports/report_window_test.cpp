// The report viewer driven as a user drives it: the toolbar's Report, the
// links of the pages by mouse and keyboard, Previous and Next, F1.

#include <QAction>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QToolBar>

#include "ReportWindowFixture.h"
#include "dialogs/HelpRoutine.h"
#include "help/frmHelp.h"
#include "qt/OpenForms.h"
#include "qt/StretchImage.h"
#include "reports/frmSelectReport.h"
#include "slide/frmSlide.h"

namespace cb {
namespace {

using testing::WhenModal;

using testing::ReadFile;

class ReportWindowTest : public testing::ReportWindowFixture {
 protected:

  // The user turns to another child, then back to the viewer.
  void Activate(frmReport& r) {
    QMdiArea& area = *TheMDIMain().MdiArea();
    for (QMdiSubWindow* other : area.subWindowList())
      if (other->widget() != &r) area.setActiveSubWindow(other);
    area.setActiveSubWindow(qobject_cast<QMdiSubWindow*>(r.parentWidget()));
  }
};

TEST_F(ReportWindowTest, ReportThenOkShowsTheSummaryAndBlocksASecondViewer) {
  StartInventory();
  QStringList dialogs;
  WhenModal([&dialogs](QWidget* w) {
    dialogs << w->objectName();
    static_cast<frmSelectReport*>(w)->cmdOK->click();
  });
  TheMDIMain().Toolbar1_ButtonClick(ToolbarButton::Report);
  ASSERT_EQ(dialogs, QStringList{"frmSelectReport"});
  auto* r = qobject_cast<frmReport*>(FindOpenForm("frmReport"));
  ASSERT_NE(r, nullptr);
  EXPECT_EQ(Shown(*r), "Report1.htm");
  EXPECT_EQ(r->WebBrowser1->documentTitle(), "Report By Location");
  EXPECT_FALSE(r->PreviousButton->isEnabled());

  // A click that reaches the handler while the viewer is open does nothing.
  dialogs.clear();
  WhenModal([&dialogs](QWidget* w) {
    dialogs << w->objectName();
    static_cast<QDialog*>(w)->reject();
  });
  TheMDIMain().Toolbar1_ButtonClick(ToolbarButton::Report);
  QTest::qWait(50);
  EXPECT_TRUE(dialogs.isEmpty());
}

TEST_F(ReportWindowTest, ASlideLinkBringsTheSlideWindowUpOnItsRecord) {
  StartInventory();
  frmReport* r = OpenReport();
  ASSERT_NE(r, nullptr);
  ClickLink(*r->WebBrowser1, "Study");
  ClickLink(*r->WebBrowser1, "p5.png");
  auto* slide = qobject_cast<frmSlide*>(FindOpenForm("frmSlide"));
  ASSERT_NE(slide, nullptr);
  EXPECT_EQ(slide->Image1->toolTip(), "Slide 5");
  EXPECT_EQ(TheMDIMain().StatusText(), "Slide: 5");
  // The sub-report stands again behind the slide and in the history.
  EXPECT_EQ(Shown(*r), "Report 2.htm");
  EXPECT_EQ(r->Stack().TotalItems(), 3);
  r->Previous_Click();
  EXPECT_EQ(Shown(*r), "Report 2.htm");

  // Another slide of the page: the one slide window, now on that record.
  ClickLink(*r->WebBrowser1, "p3.png");
  FlushDeletes();
  QList<QWidget*> slides;
  for (QWidget* w : QApplication::allWidgets())
    if (w->objectName() == "frmSlide") slides << w;
  ASSERT_EQ(slides.size(), 1);
  EXPECT_EQ(qobject_cast<frmSlide*>(slides[0])->Image1->toolTip(), "Slide 3");
  EXPECT_EQ(TheMDIMain().StatusText(), "Slide: 3");
}

TEST_F(ReportWindowTest, PreviousAndNextWalkTheHistoryThatLinksRecord) {
  StartInventory();
  frmReport* r = OpenReport();
  ASSERT_NE(r, nullptr);
  ClickLink(*r->WebBrowser1, "Lounge");  // Report 2.htm, recorded
  r->Previous_Click();
  EXPECT_EQ(Shown(*r), "Report1.htm");
  EXPECT_FALSE(r->PreviousButton->isEnabled());
  EXPECT_TRUE(r->NextButton->isEnabled());

  // The first link after Previous is shown but not recorded.
  ClickLink(*r->WebBrowser1, "Study");
  EXPECT_EQ(Shown(*r), "Report 3.htm");
  EXPECT_TRUE(r->PreviousButton->isEnabled());
  EXPECT_TRUE(r->NextButton->isEnabled());

  r->Next_Click();  // leads to the first sub-report
  EXPECT_EQ(Shown(*r), "Report 2.htm");
  EXPECT_FALSE(r->NextButton->isEnabled());
  EXPECT_TRUE(r->PreviousButton->isEnabled());

  // After a slide the page shown is the last one written, not the one left by Next;
  // that first link is not recorded either, the second one is.
  ClickLink(*r->WebBrowser1, "p1.png");
  EXPECT_EQ(Shown(*r), "Report 3.htm");
  EXPECT_EQ(r->Stack().TotalItems(), 2);
  ClickLink(*r->WebBrowser1, "p3.png");
  EXPECT_EQ(r->Stack().TotalItems(), 3);
  EXPECT_EQ(r->Stack().CurrentItem(), 3);
  EXPECT_FALSE(r->NextButton->isEnabled());
}

TEST_F(ReportWindowTest, AReportThatCannotBeWrittenClosesTheViewerSilently) {
  StartInventory();
  testing::WriteFile(app / "Reports", "a file where the directory belongs");
  OpenReport();
  FlushDeletes();
  EXPECT_EQ(FindOpenForm("frmReport"), nullptr);
  EXPECT_TRUE(messages.isEmpty());
  EXPECT_EQ(Globals().ErrorInfo[0], "76");
}

// F1 gives way to the help viewer; the toolbar's Help opens it beside the report.
TEST_F(ReportWindowTest, HelpOpensOnTheReportsPage) {
  StartInventory();
  frmReport* r = OpenReport();
  ASSERT_NE(r, nullptr);
  r->HelpButton->trigger();
  EXPECT_EQ(HelpPage(), "help012.htm");
  EXPECT_NE(FindOpenForm("frmReport"), nullptr);
  UnloadHelp();

  QApplication::setActiveWindow(&TheMDIMain());
  Activate(*r);
  r->WebBrowser1->setFocus();
  QTest::keyClick(r->WebBrowser1, Qt::Key_F1);
  EXPECT_EQ(HelpPage(), "help012.htm");
  FlushDeletes();
  EXPECT_EQ(FindOpenForm("frmReport"), nullptr);
}

// A page that fits its view has no horizontal scroll bar, maximised or at any
// width; a view narrower than the page's tables still scrolls.
TEST_F(ReportWindowTest, APageThatFitsItsViewHasNoHorizontalScrollBar) {
  StartInventory();
  frmReport* r = OpenReport();
  ASSERT_NE(r, nullptr);
  QMdiSubWindow& sub = *qobject_cast<QMdiSubWindow*>(r->parentWidget());
  const QScrollBar& bar = *r->WebBrowser1->horizontalScrollBar();
  const auto barShown = [&bar] {
    QCoreApplication::processEvents();
    return bar.isVisible();
  };
  sub.showMaximized();
  EXPECT_FALSE(barShown()) << "maximised";
  sub.showNormal();
  for (const char* link : {"", "Lounge"}) {  // the summary, then a sub-report
    if (*link) ClickLink(*r->WebBrowser1, link);
    for (int width = 600; width < 610; ++width) {
      sub.resize(width, 500);
      EXPECT_FALSE(barShown()) << Shown(*r) << " at " << width;
    }
  }
  sub.resize(60, 500);
  EXPECT_TRUE(barShown()) << "a page wider than its view";
}

}  // namespace
}  // namespace cb
