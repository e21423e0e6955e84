// SPDX-License-Identifier: GPL-3.0-or-later
// The program's own file and folder dialogs, and the note a what's-this click opens.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <functional>

#include "base/FaceMetrics.h"
#include "dialogs/HelpRoutine.h"
#include "dialogs/dlgWhat.h"
#include "dialogs/frmCommonDialog.h"
#include "dialogs/frmDirectory.h"
#include "qt/LookAlike.h"
#include "qt/Twips.h"
#include "state/modGlobal.h"
#include "support/RowName.h"
#include "support/TempDir.h"
#include "support/WhenShown.h"

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

// A click on a row, and a double click after it when `twice`, as the user gives them.
void ClickRow(QAbstractItemView* view, const QModelIndex& row, bool twice) {
  ASSERT_TRUE(row.isValid());
  const QPoint at = view->visualRect(row).center();
  QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
  if (twice) QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, at);
}

// The user's pick of item `index` in a combo, by the arrow keys.
void Pick(QComboBox* box, int index) {
  box->setCurrentIndex(index == 0 ? 1 : index - 1);
  QTest::keyClick(box, index == 0 ? Qt::Key_Up : Qt::Key_Down);
  ASSERT_EQ(box->currentIndex(), index);
}

// Runs `d` modally while `act` plays the user; returns exec()'s result.
int RunModal(QDialog& d, std::function<void()> act) {
  testing::WhenModal<QDialog>([act](QDialog* shown) {
    EXPECT_TRUE(QTest::qWaitForWindowActive(shown));  // shortcuts reach the active window only
    act();
  });
  return d.exec();
}

class CommonDialogTest : public ::testing::Test {
 protected:
  CommonDialogTest() {
    for (const char* f : {"b.sif", "A.sif", "note.txt", "IMG_0001.JPG", "Other/x.sif"})
      testing::WriteFile(app / f, "x");
  }
  ~CommonDialogTest() override { UnloadHelp(); }

  // The callers' order: title, folder (the first touch), pattern, type items and text.
  void Prepare(frmCommonDialog& d, const QString& title, const QString& pattern = "*.sif",
               const QStringList& types = {kSif, kAll}) {
    d.DialogTitle = title;
    d.Dir1->Path(Q(app.str()));
    d.FileListBox1->Pattern(pattern);
    d.cboFileType->addItems(types);
    d.cboFileType->setCurrentText(types.front());
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

// A typed name survives a change of folder in a New dialog only; a change of
// drive clears it everywhere.
TEST_F(CommonDialogTest, NewKeepsATypedNameAcrossFolders) {
  const std::pair<const char*, const char*> rows[] = {{"New", "mine"}, {"Save As", ""}, {"Open", ""}};
  for (const auto& [title, afterFolder] : rows) {
    SCOPED_TRACE(title);
    frmCommonDialog d;
    Prepare(d, title);
    d.txtFilename->setText("mine");
    ClickRow(d.Dir1, d.Dir1->indexFromItem(d.Dir1->findItems("Other", Qt::MatchRecursive).value(0)), true);
    EXPECT_EQ(d.Dir1->Path(), Q(app / "Other"));
    EXPECT_EQ(d.txtFilename->text(), afterFolder);

    d.txtFilename->setText("mine");
    Pick(d.Drive1, d.Drive1->findText(Q(home.str())));
    EXPECT_EQ(d.Dir1->Path(), Q(home.str()));
    EXPECT_EQ(d.FileListBox1->Path(), Q(home.str()));
    EXPECT_EQ(d.txtFilename->text(), "");
  }
}

// The first touch of the folder loads the dialog. Only the two known texts
// of the type change the pattern; any pick clears the name, setting the text does not.
TEST_F(CommonDialogTest, FirstTouchLoadsAndTheTypeComboActsOnlyOnItsTwoTexts) {
  dlg.txtFilename->setText("typed");
  Prepare(dlg, "Add Slide", "*.jpg", {"Slides (*.jpg)", kAll, kSif});
  EXPECT_EQ(dlg.FileListBox1->Path(), Q(app.str()));
  EXPECT_EQ(Items(*dlg.FileListBox1), QStringList({"IMG_0001.JPG"}));
  EXPECT_EQ(dlg.txtFilename->text(), "");  // cleared by the change of folder
  dlg.txtFilename->setText("kept");
  dlg.cboFileType->setCurrentText(kAll);
  EXPECT_EQ(dlg.txtFilename->text(), "kept");
  EXPECT_EQ(dlg.FileListBox1->Pattern(), "*.jpg");
  const std::pair<int, const char*> picks[] = {{1, "*.*"}, {0, "*.*"}, {2, "*.sif"}, {0, "*.sif"}, {1, "*.*"}};
  for (const auto& [item, pattern] : picks) {
    dlg.txtFilename->setText("typed");
    Pick(dlg.cboFileType, item);
    EXPECT_EQ(dlg.FileListBox1->Pattern(), pattern) << item;
    EXPECT_EQ(dlg.txtFilename->text(), "") << item;
  }
  EXPECT_EQ(Items(*dlg.FileListBox1), QStringList({"A.sif", "b.sif", "IMG_0001.JPG", "note.txt"}));
}

// Every way out, after a click on "b.sif". Help, F1 and the window's close
// unload the dialog, so its controls read empty: a cancel that does not say so.
struct ExitRow {
  const char* name;
  std::function<void(frmCommonDialog&)> act;
  bool cancelled;
  const char* nameAfter;
  const char* help;
};

const ExitRow kExits[] = {
    {"ok", [](frmCommonDialog& d) { d.cmdOK->click(); }, false, "b.sif", ""},
    {"double_click", [](frmCommonDialog& d) { ClickRow(d.FileListBox1, d.FileListBox1->currentIndex(), true); }, false,
     "b.sif", ""},
    {"enter", [](frmCommonDialog& d) { QTest::keyClick(d.txtFilename, Qt::Key_Return); }, false, "b.sif", ""},
    {"cancel", [](frmCommonDialog& d) { d.cmdCancel->click(); }, true, "b.sif", ""},
    {"escape", [](frmCommonDialog& d) { QTest::keyClick(d.FileListBox1, Qt::Key_Escape); }, true, "b.sif", ""},
    {"help", [](frmCommonDialog& d) { d.cmdHelp->click(); }, false, "", "help002.htm"},
    {"f1_in_list", [](frmCommonDialog& d) { QTest::keyClick(d.FileListBox1, Qt::Key_F1); }, false, "", "help002.htm"},
    {"close", [](frmCommonDialog& d) { d.close(); }, false, "", ""},
};

class CommonDialogExitTest : public CommonDialogTest, public ::testing::WithParamInterface<ExitRow> {};

TEST_P(CommonDialogExitTest, CallerReadsWhatTheWayOutLeft) {
  Prepare(dlg, "Open");
  const int result = RunModal(dlg, [this] {
    const auto found = dlg.FileListBox1->findItems("b.sif", Qt::MatchExactly);
    ClickRow(dlg.FileListBox1, found.isEmpty() ? QModelIndex() : dlg.FileListBox1->indexFromItem(found[0]), false);
    ASSERT_EQ(dlg.txtFilename->text(), "b.sif");
    GetParam().act(dlg);
  });
  EXPECT_EQ(result == QDialog::Accepted, !GetParam().cancelled && *GetParam().nameAfter);
  EXPECT_FALSE(dlg.isVisible());
  EXPECT_EQ(dlg.Cancelled, GetParam().cancelled);
  EXPECT_EQ(dlg.txtFilename->text(), GetParam().nameAfter);
  EXPECT_EQ(dlg.FileListBox1->FileName(), GetParam().nameAfter);
  EXPECT_EQ(HelpPage(), GetParam().help);
}

INSTANTIATE_TEST_SUITE_P(Rows, CommonDialogExitTest, ::testing::ValuesIn(kExits), cb::testing::RowName());

// The folder chooser: one instance, shown modally.
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

  // The path read after `act` has played the user.
  QString Run(std::function<void(frmDirectory&)> act) {
    frmDirectory& d = TheDirectory();
    RunModal(d, [&d, act] { act(d); });
    return d.SelectedPath;
  }

  testing::TempDir app;
  MemorySettings settings;
};

// OK returns the folder open and keeps it for the next use; every other way
// out forgets the choice and the folder it stood on.
struct DirectoryExitRow {
  const char* name;
  std::function<void(frmDirectory&)> act;
  const char* help;
};

const DirectoryExitRow kDirectoryExits[] = {
    {"cancel", [](frmDirectory& d) { d.cmdCancel->click(); }, ""},
    {"escape", [](frmDirectory& d) { QTest::keyClick(d.Dir1, Qt::Key_Escape); }, ""},
    {"help", [](frmDirectory& d) { d.cmdHelp->click(); }, "help002.htm"},
    {"f1_in_folders", [](frmDirectory& d) { QTest::keyClick(d.Dir1, Qt::Key_F1); }, "help002.htm"},
};

class DirectoryExitTest : public DirectoryDialogTest, public ::testing::WithParamInterface<DirectoryExitRow> {};

TEST_P(DirectoryExitTest, LeavesNoPathAndReopensOnTheGallery) {
  const auto ok = [](frmDirectory& d) { d.cmdOK->click(); };
  ASSERT_EQ(Run([this](frmDirectory& d) {
              EXPECT_EQ(d.Dir1->Path(), Q(app / "Gallery"));
              d.Dir1->Path(Q(app / "Camera/Day1"));
              d.Drive1->setCurrentIndex(d.Drive1->count() - 1);  // shown, not picked: the folder list decides
              d.cmdOK->click();
            }),
            Q(app / "Camera/Day1"));
  EXPECT_EQ(Run(ok), Q(app / "Camera/Day1"));
  EXPECT_EQ(Run(GetParam().act), "");
  EXPECT_EQ(HelpPage(), GetParam().help);
  EXPECT_EQ(Run(ok), Q(app / "Gallery"));
}

INSTANTIATE_TEST_SUITE_P(Rows, DirectoryExitTest, ::testing::ValuesIn(kDirectoryExits), cb::testing::RowName());

// A window of the program with a button, and a note opened over it at the last press.
class WhatNoteTest : public ::testing::Test {
 public:
  WhatNoteTest() {
    button = new QPushButton("Press", &window);
    QObject::connect(button, &QPushButton::clicked, [this] { ++clicks; });
    window.show();
    QApplication::setActiveWindow(&window);
    Globals().MouseX = 1500;
    Globals().MouseY = 3000;
    note = ShowWhat(1300, 3900, "Expanded version of a gallery slide. ");
    QCoreApplication::processEvents();  // the window system's activations, as after a real show
  }
  ~WhatNoteTest() override {
    delete note.data();
    Globals() = ModGlobal();
  }

  bool Gone() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return note.isNull();
  }

  QWidget window;
  QPushButton* button;
  int clicks = 0;
  QPointer<dlgWhat> note;
};

// A note opens where and as large as its caller says, in twips, and goes at a
// click or when it loses the focus; a click elsewhere still does its own work.
TEST_F(WhatNoteTest, OpensAsTheCallerSaysAndGoesAtAClickOrWhenItLosesTheFocus) {
  ASSERT_TRUE(note->isVisible());
  EXPECT_EQ(note->geometry(),
            QRect(TwipsToPixelsX(1500), TwipsToPixelsY(3000), TwipsToPixelsX(3900), TwipsToPixelsY(1300)));
  const int bx = TwipsToPixelsX(20), by = TwipsToPixelsY(20);
  EXPECT_EQ(note->lblWhat->geometry(), note->rect().adjusted(bx, by, -bx, -by));
  EXPECT_EQ(note->lblWhat->text(), "Expanded version of a gallery slide. ");

  const std::tuple<const char*, std::function<void()>, int> ways[] = {
      {"click on the note", [this] { QTest::mouseClick(note->lblWhat, Qt::LeftButton); }, 0},
      {"click elsewhere", [this] { QTest::mouseClick(button, Qt::LeftButton); }, 1},
      {"focus lost", [this] { QApplication::setActiveWindow(&window); }, 0},
  };
  for (const auto& [name, act, clicksAfter] : ways) {
    SCOPED_TRACE(name);
    clicks = 0;
    delete note.data();
    note = ShowWhat(1300, 3900, "Expanded version of a gallery slide. ");
    QCoreApplication::processEvents();
    QTest::mouseMove(note->lblWhat);  // the mouse moving over it changes nothing
    EXPECT_FALSE(Gone());
    act();
    EXPECT_TRUE(Gone());
    EXPECT_EQ(clicks, clicksAfter);
  }
}

// Whether `text`, wrapped as the note's label wraps it, stays inside `box` in `font`.
bool Fits(const QFont& font, const QString& text, QSize box) {
  const QRectF room(QPointF(), box);
  return room.contains(QFontMetricsF(font).boundingRect(room, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, text));
}

struct FaceRow {
  const char* name;
  QStringList installed;  // the families taken to be on the system
  const char* text;
  const char* family;  // the one chosen
  bool smaller;        // made smaller than the named size
};

const QStringList kDejaVu{"DejaVu Sans", "DejaVu Sans Mono", "DejaVu Serif"};
const QStringList kLiberation{"Liberation Sans", "Liberation Sans Narrow", "Liberation Serif", "Liberation Mono"};
constexpr char kFrameNote[] = "Slide background image or frame image.";  // the tightest of the notes

const FaceRow kFaceRows[] = {
    {"dejavu_alone", kDejaVu, kFrameNote, "DejaVu Sans", false},
    {"dejavu_and_liberation", kDejaVu + kLiberation, kFrameNote, "DejaVu Sans", false},
    {"liberation_alone", kLiberation, kFrameNote, "Liberation Sans", false},
    {"a_text_where_dejavu_is_wider", kDejaVu, "illicit", "DejaVu Sans", true},
};

class StandInFace : public ::testing::TestWithParam<FaceRow> {};

TEST_P(StandInFace, NoWiderThanTheNamedFaceAndTheFrameNoteFits) {
  const FaceRow& row = GetParam();
  for (const QString& f : row.installed)
    if (!QFontDatabase::hasFamily(f)) GTEST_SKIP() << f.toStdString() << " is not installed here";
  const QFont font = LookAlike("Verdana", 9.75, row.text, row.installed);
  EXPECT_EQ(font.family().toStdString(), row.family);
  EXPECT_EQ(font.pointSizeF() < 9.75, row.smaller) << font.pointSizeF();
  // The named face's width from its advance widths: a point is 20 twips.
  const double named = WidthInEms(*FindNamedFace("Verdana"), row.text) * 9.75 * 20 / PixelsToTwipsY(1);
  EXPECT_LE(QFontMetricsF(font).horizontalAdvance(row.text), named);
  const int bx = TwipsToPixelsX(20), by = TwipsToPixelsY(20);
  const QSize label(TwipsToPixelsX(4000) - 2 * bx, TwipsToPixelsY(300) - 2 * by);
  EXPECT_TRUE(Fits(FittedInto(font, kFrameNote, label), kFrameNote, label));
}

INSTANTIATE_TEST_SUITE_P(Rows, StandInFace, ::testing::ValuesIn(kFaceRows), testing::RowName());

}  // namespace
}  // namespace cb
