// The pages as the viewer lays them out.

#include <QMdiSubWindow>
#include <QScrollBar>

#include "ReportWindowFixture.h"

namespace cb {
namespace {

using ReportLookTest = testing::ReportWindowFixture;

// A page that fits its view has no horizontal scroll bar, maximised or at any
// width; a view narrower than the page's tables still scrolls.
TEST_F(ReportLookTest, APageThatFitsItsViewHasNoHorizontalScrollBar) {
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
