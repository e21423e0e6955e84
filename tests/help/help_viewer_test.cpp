#include <gtest/gtest.h>

#include <QAction>
#include <QMdiSubWindow>
#include <QTest>
#include <QTextBrowser>
#include <QToolBar>

#include "dialogs/HelpRoutine.h"
#include "help/UIHelpController.h"
#include "help/frmHelp.h"
#include "support/GalleryFixture.h"

namespace cb {
namespace {

namespace fs = std::filesystem;

// The main window over an installation whose help pages are written, with
// the "help" spelling of the directory that the pages' links use.
class HelpViewerTest : public testing::GalleryFixture {
 protected:
  HelpViewerTest() {
    fs::create_directories(app / "Help");
    fs::create_directory_symlink("Help", app / "help");
    EXPECT_TRUE(UIHelpController(app.str()).GenerateHelp());
  }

  frmHelp& Viewer() {
    frmHelp* viewer = HelpViewer();
    EXPECT_NE(viewer, nullptr);
    return *viewer;
  }
  QString Title() { return Viewer().WebBrowser1->documentTitle(); }
  std::string Page(const std::string& file) { return app / ("Help/" + file); }
  QMdiSubWindow* Frame() { return qobject_cast<QMdiSubWindow*>(Viewer().parentWidget()); }
};

TEST_F(HelpViewerTest, ContentsAgainAfterTheViewerIsClosed) {
  Start(0);
  TheMDIMain().Item("mnuHelpContents")->trigger();
  EXPECT_EQ(Title(), "Contents");
  QApplication::setActiveWindow(&TheMDIMain());
  Viewer().WebBrowser1->setFocus();
  QTest::keyClick(Viewer().WebBrowser1, Qt::Key_F4, Qt::ControlModifier);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(HelpViewer(), nullptr);
  Gallery().Item("mnuHelpContents")->trigger();
  EXPECT_EQ(Title(), "Contents");
  EXPECT_TRUE(Viewer().isVisible());
}

}  // namespace
}  // namespace cb
