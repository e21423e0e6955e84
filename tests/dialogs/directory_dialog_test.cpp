#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

#include "dialogs/HelpRoutine.h"
#include "dialogs/frmCommonDialog.h"
#include "dialogs/frmDirectory.h"
#include "state/modGlobal.h"
#include "support/RowName.h"
#include "support/TempDir.h"

namespace cb {
namespace {

QString Q(const std::string& s) { return QString::fromStdString(s); }

class DirectoryDialogTest : public ::testing::Test {
 protected:
  DirectoryDialogTest() {
    for (const char* d : {"Gallery", "Camera/Day1"}) std::filesystem::create_directories(app / d);
    Globals().MainController = std::make_unique<UIMainController>(app.str(), settings, Globals());
    OpenHelp(QString());
  }
  ~DirectoryDialogTest() override {
    UnloadDirectory();
    Globals() = ModGlobal();
  }

  // Shows the one instance modally while `act` plays the user; returns the path read afterwards.
  QString Run(std::function<void(frmDirectory&)> act) {
    frmDirectory& d = TheDirectory();
    QTimer::singleShot(0, &d, [&d, act] {
      EXPECT_TRUE(QTest::qWaitForWindowActive(&d));
      act(d);
    });
    QTimer::singleShot(5000, &d, [&d] {
      if (!d.isVisible()) return;
      ADD_FAILURE() << "the dialog did not close";
      d.done(-1);
    });
    d.exec();
    return d.SelectedPath;
  }

  testing::TempDir app;
  MemorySettings settings;
};

TEST_F(DirectoryDialogTest, OpensOnTheGalleryAndOkReturnsTheFolderOpen) {
  const QString picked = Run([this](frmDirectory& d) {
    EXPECT_EQ(d.Dir1->Path(), Q(app / "Gallery"));
    d.Dir1->Path(Q(app / "Camera/Day1"));
    d.Drive1->setCurrentIndex(d.Drive1->count() - 1);  // shown, not picked: the folder list decides
    d.cmdOK->click();
  });
  EXPECT_EQ(picked, Q(app / "Camera/Day1"));
  // Kept loaded: the next use opens where the last one ended.
  EXPECT_EQ(Run([](frmDirectory& d) { d.cmdOK->click(); }), Q(app / "Camera/Day1"));
}

// Every way out but OK forgets an earlier choice and the folder it stood on.
struct ExitRow {
  const char* name;
  std::function<void(frmDirectory&)> act;
  const char* help;
};

const ExitRow kExits[] = {
    {"cancel", [](frmDirectory& d) { d.cmdCancel->click(); }, ""},
    {"escape", [](frmDirectory& d) { QTest::keyClick(d.Dir1, Qt::Key_Escape); }, ""},
    {"help", [](frmDirectory& d) { d.cmdHelp->click(); }, "help002.htm"},
    {"f1_in_folders", [](frmDirectory& d) { QTest::keyClick(d.Dir1, Qt::Key_F1); }, "help002.htm"},
};

class DirectoryExitTest : public DirectoryDialogTest, public ::testing::WithParamInterface<ExitRow> {};

TEST_P(DirectoryExitTest, LeavesNoPathAndReopensOnTheGallery) {
  ASSERT_EQ(Run([this](frmDirectory& d) {
              d.Dir1->Path(Q(app / "Camera"));
              d.cmdOK->click();
            }),
            Q(app / "Camera"));
  EXPECT_EQ(Run(GetParam().act), "");
  EXPECT_EQ(HelpPage(), GetParam().help);
  EXPECT_EQ(Run([](frmDirectory& d) { d.cmdOK->click(); }), Q(app / "Gallery"));
}

INSTANTIATE_TEST_SUITE_P(Rows, DirectoryExitTest, ::testing::ValuesIn(kExits), testing::RowName());

}  // namespace
}  // namespace cb
