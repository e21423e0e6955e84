#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

#include "dialogs/HelpRoutine.h"
#include "dialogs/frmCommonDialog.h"
#include "support/TempDir.h"

namespace cb {
namespace {

const QString kSif = "Slide Info Files (*.sif)";
const QString kAll = "All Files (*.*)";

QStringList Items(const QListWidget& list) {
  QStringList names;
  for (int i = 0; i < list.count(); ++i) names << list.item(i)->text();
  return names;
}

QString Q(const std::string& s) { return QString::fromStdString(s); }

class CommonDialogTest : public ::testing::Test {
 protected:
  CommonDialogTest() {
    for (const char* f : {"b.sif", "A.sif", "note.txt", "IMG_0001.JPG", "Other/x.sif"}) testing::WriteFile(app / f, "x");
    OpenHelp(QString());
  }

  // The callers' order: title, folder (the first touch), pattern, type items and text.
  void Prepare(const QString& title, const QString& pattern = "*.sif", const QStringList& types = {kSif, kAll}) {
    dlg.DialogTitle = title;
    dlg.Dir1->Path(Q(app.str()));
    dlg.FileListBox1->Pattern(pattern);
    dlg.cboFileType->addItems(types);
    dlg.cboFileType->setCurrentText(types.front());
  }

  // Runs the dialog modally while `act` plays the user; returns exec()'s result.
  int Run(std::function<void()> act) {
    QTimer::singleShot(0, &dlg, [this, act] {
      EXPECT_EQ(QApplication::activeModalWidget(), &dlg);
      EXPECT_TRUE(QTest::qWaitForWindowActive(&dlg));  // keys reach shortcuts of the active window only
      act();
    });
    QTimer::singleShot(5000, &dlg, [this] {
      if (!dlg.isVisible()) return;
      ADD_FAILURE() << "the dialog did not close";
      dlg.done(-1);
    });
    return dlg.exec();
  }

  void ClickFile(const QString& name, bool twice = false) {
    FileListBox* list = dlg.FileListBox1;
    const QList<QListWidgetItem*> found = list->findItems(name, Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1) << name.toStdString();
    const QPoint at = list->visualItemRect(found.front()).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
    if (twice) QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
  }

  // The user's double click on a row of a directory list.
  static void OpenFolder(DirListBox* dir, const QString& name) {
    const QList<QTreeWidgetItem*> found = dir->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
    ASSERT_EQ(found.size(), 1) << name.toStdString();
    const QPoint at = dir->visualItemRect(found.front()).center();
    QTest::mouseClick(dir->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(dir->viewport(), Qt::LeftButton, {}, at);
  }

  // The user's pick of item `index` in a combo, by the arrow keys.
  static void Pick(QComboBox* box, int index) {
    box->setCurrentIndex(index == 0 ? 1 : index - 1);
    QTest::keyClick(box, index == 0 ? Qt::Key_Up : Qt::Key_Down);
    ASSERT_EQ(box->currentIndex(), index);
  }

  // The drive list reads the home folder when it is made.
  struct HomeIs {
    explicit HomeIs(const std::string& dir) : saved(qgetenv("HOME")) { qputenv("HOME", dir.c_str()); }
    ~HomeIs() { qputenv("HOME", saved); }
    QByteArray saved;
  };

  testing::TempDir app, home;
  HomeIs homeIs{home.str()};
  frmCommonDialog dlg;
};

TEST_F(CommonDialogTest, FirstTouchOfTheFolderLoadsTheDialog) {
  EXPECT_EQ(dlg.windowTitle(), "");
  dlg.txtFilename->setText("typed");
  Prepare("Open");
  EXPECT_EQ(dlg.windowTitle(), "Open");
  EXPECT_FALSE(dlg.Cancelled);
  EXPECT_EQ(dlg.Dir1->Path(), Q(app.str()));
  EXPECT_EQ(dlg.FileListBox1->Path(), Q(app.str()));
  EXPECT_EQ(dlg.Drive1->Drive(), "/");
  EXPECT_EQ(Items(*dlg.FileListBox1), QStringList({"A.sif", "b.sif"}));
  EXPECT_EQ(dlg.cboFileType->currentText(), kSif);
  // The folder change cleared the name; setting the type's text ran no handler.
  EXPECT_EQ(dlg.txtFilename->text(), "");
  dlg.txtFilename->setText("kept");
  dlg.cboFileType->setCurrentText(kAll);
  EXPECT_EQ(dlg.txtFilename->text(), "kept");
  EXPECT_EQ(dlg.FileListBox1->Pattern(), "*.sif");
}

// Controls and their labels stay apart and inside the window at the screen's DPI.
TEST_F(CommonDialogTest, ControlsAndLabelsDoNotOverlap) {
  Prepare("Save As");
  QList<QWidget*> parts;
  for (QWidget* w : dlg.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
    if (!w->isWindow()) parts << w;
  ASSERT_EQ(parts.size(), 12);
  for (int i = 0; i < parts.size(); ++i) {
    EXPECT_TRUE(dlg.rect().contains(parts[i]->geometry())) << parts[i]->objectName().toStdString();
    for (int j = i + 1; j < parts.size(); ++j)
      EXPECT_FALSE(parts[i]->geometry().intersects(parts[j]->geometry()))
          << parts[i]->objectName().toStdString() << " / " << parts[j]->objectName().toStdString();
  }
  EXPECT_EQ(dlg.minimumSize(), dlg.maximumSize());
  EXPECT_FALSE(dlg.windowFlags() & Qt::WindowMinMaxButtonsHint);
}

// A typed name survives a change of folder in a New dialog only; a change of
// drive clears it everywhere.
TEST_F(CommonDialogTest, NewKeepsATypedNameAcrossFolders) {
  const struct {
    const char* title;
    const char* afterFolder;
  } rows[] = {{"New", "mine"}, {"Save As", ""}, {"Open", ""}};
  for (const auto& r : rows) {
    frmCommonDialog d;
    d.DialogTitle = r.title;
    d.Dir1->Path(Q(app.str()));
    d.txtFilename->setText("mine");
    OpenFolder(d.Dir1, "Other");
    EXPECT_EQ(d.Dir1->Path(), Q(app / "Other")) << r.title;
    EXPECT_EQ(Items(*d.FileListBox1), QStringList({"x.sif"})) << r.title;
    EXPECT_EQ(d.txtFilename->text(), r.afterFolder) << r.title;

    d.txtFilename->setText("mine");
    Pick(d.Drive1, d.Drive1->findText(Q(home.str())));
    EXPECT_EQ(d.Drive1->Drive(), Q(home.str())) << r.title;
    EXPECT_EQ(d.Dir1->Path(), Q(home.str())) << r.title;
    EXPECT_EQ(d.FileListBox1->Path(), Q(home.str())) << r.title;
    EXPECT_EQ(d.txtFilename->text(), "") << r.title;
  }
}

// Only the two known texts change the pattern; any pick clears the name.
TEST_F(CommonDialogTest, TypeComboActsOnlyOnItsTwoTexts) {
  Prepare("Add Slide", "*.jpg", {"Slides (*.jpg)", kAll, kSif});
  EXPECT_EQ(Items(*dlg.FileListBox1), QStringList({"IMG_0001.JPG"}));
  const struct {
    int item;
    const char* pattern;
  } picks[] = {{1, "*.*"}, {0, "*.*"}, {2, "*.sif"}, {0, "*.sif"}, {1, "*.*"}};
  for (const auto& p : picks) {
    dlg.txtFilename->setText("typed");
    Pick(dlg.cboFileType, p.item);
    EXPECT_EQ(dlg.FileListBox1->Pattern(), p.pattern) << p.item;
    EXPECT_EQ(dlg.txtFilename->text(), "") << p.item;
  }
  EXPECT_EQ(Items(*dlg.FileListBox1), QStringList({"A.sif", "b.sif", "IMG_0001.JPG", "note.txt"}));
}

TEST_F(CommonDialogTest, DoubleClickOnAFileIsOK) {
  Prepare("Open");
  EXPECT_EQ(Run([this] { ClickFile("b.sif", true); }), QDialog::Accepted);
  EXPECT_FALSE(dlg.isVisible());
  EXPECT_EQ(dlg.txtFilename->text(), "b.sif");
  EXPECT_EQ(dlg.FileListBox1->FileName(), "b.sif");
  EXPECT_FALSE(dlg.Cancelled);
}

// Every way out, after a click on "b.sif". Help and F1 unload the dialog, so
// its controls read empty, like a cancel that does not say so.
struct ExitRow {
  const char* name;
  std::function<void(frmCommonDialog&)> act;
  bool cancelled;
  const char* name_after;
  const char* help;
};

const ExitRow kExits[] = {
    {"ok", [](frmCommonDialog& d) { d.cmdOK->click(); }, false, "b.sif", ""},
    {"enter", [](frmCommonDialog& d) { QTest::keyClick(d.txtFilename, Qt::Key_Return); }, false, "b.sif", ""},
    {"cancel", [](frmCommonDialog& d) { d.cmdCancel->click(); }, true, "b.sif", ""},
    {"escape", [](frmCommonDialog& d) { QTest::keyClick(d.FileListBox1, Qt::Key_Escape); }, true, "b.sif", ""},
    {"help", [](frmCommonDialog& d) { d.cmdHelp->click(); }, false, "", "help002.htm"},
    {"f1_in_list", [](frmCommonDialog& d) { QTest::keyClick(d.FileListBox1, Qt::Key_F1); }, false, "", "help002.htm"},
    {"f1_in_name", [](frmCommonDialog& d) { QTest::keyClick(d.txtFilename, Qt::Key_F1); }, false, "", "help002.htm"},
    {"close", [](frmCommonDialog& d) { d.close(); }, false, "", ""},
};

class CommonDialogExitTest : public CommonDialogTest, public ::testing::WithParamInterface<ExitRow> {};

TEST_P(CommonDialogExitTest, CallerReadsWhatTheWayOutLeft) {
  Prepare("Open");
  Run([this] {
    ClickFile("b.sif");
    ASSERT_EQ(dlg.txtFilename->text(), "b.sif");
    GetParam().act(dlg);
  });
  EXPECT_FALSE(dlg.isVisible());
  EXPECT_EQ(dlg.Cancelled, GetParam().cancelled);
  EXPECT_EQ(dlg.txtFilename->text(), GetParam().name_after);
  EXPECT_EQ(dlg.FileListBox1->FileName(), GetParam().name_after);
  EXPECT_EQ(HelpPage(), GetParam().help);
}

INSTANTIATE_TEST_SUITE_P(Rows, CommonDialogExitTest, ::testing::ValuesIn(kExits),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(CommonDialogTest, OKWithoutANameStillCloses) {
  Prepare("Save As");
  EXPECT_EQ(Run([this] { dlg.cmdOK->click(); }), QDialog::Accepted);
  EXPECT_EQ(dlg.txtFilename->text(), "");
  EXPECT_EQ(dlg.FileListBox1->FileName(), "");
  EXPECT_FALSE(dlg.Cancelled);
}

}  // namespace
}  // namespace cb
