// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAction>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>

#include "base/Cp1252.h"
#include "dialogs/HelpRoutine.h"
#include "dialogs/dlgWhat.h"
#include "dialogs/frmCommonDialog.h"
#include "frame/Main.h"
#include "frame/frmLogin.h"
#include "frame/frmSplash.h"
#include "help/frmHelp.h"
#include "qt/OpenForms.h"
#include "storage/DataAccess.h"
#include "support/GalleryFixture.h"
#include "support/RowName.h"

namespace cb {
namespace {

using testing::ReadFile;

// The main window: bare, on a collection (Start), or from the program's own start.
class MainWindowTest : public testing::GalleryFixture {
 protected:
  MainWindowTest() { Globals().MainController = std::make_unique<UIMainController>(app.str(), settings, Globals()); }

  // A child window with the given name, as the gallery or a slide window would be.
  QMdiSubWindow* Child(const QString& name) {
    auto* w = new QWidget;
    w->setObjectName(name);
    QMdiSubWindow* sub = TheMDIMain().MdiArea()->addSubWindow(w);
    sub->resize(200, 150);
    sub->show();
    return sub;
  }

  std::string Files(const std::string& name) const { return app / ("Files/" + name); }
  // The records of the open file read back from the disk; -1 when it cannot be.
  std::int32_t ReadBack() {
    ErrorArray errors;
    return Report(Mc().LoadSettings(), errors) ? Mc().NumberOfRecords() : -1;
  }

  // Runs the start, with a click on the splash as soon as the wait is under way.
  bool StartProgram() {
    QTimer::singleShot(20, [] {
      if (frmSplash* s = OpenSplash()) QTest::mouseClick(s, Qt::LeftButton);
    });
    return Main(app.str(), settings);
  }
};

TEST_F(MainWindowTest, MenuBarShowsTheTableAndTheHistoryOnceRead) {
  MDIMain& m = TheMDIMain();
  QStringList bar;
  for (QAction* a : m.menuBar()->actions()) bar << a->text();
  EXPECT_EQ(bar, QStringList({"&File", "&View", "&Slides", "&Window", "&Help"}));
  EXPECT_FALSE(m.Item(MenuId::FileNew)->isEnabled());
  EXPECT_FALSE(m.Item(MenuId::FileSaveAs)->isEnabled());
  EXPECT_TRUE(m.Item(MenuId::FileOpen)->isEnabled());
  EXPECT_FALSE(m.Item(MenuId::SlidesAdd)->isEnabled());
  EXPECT_FALSE(m.Item(MenuId::Bar4)->isVisible());
  EXPECT_TRUE(m.Item(MenuId::ViewToolbar)->isChecked());
  EXPECT_EQ(m.Item(MenuId::WindowHorizontal)->text(), "T&ile Horizontally");
  ASSERT_NE(m.Menu(MenuId::Popup2), nullptr);
  EXPECT_EQ(m.Menu(MenuId::Popup2)->actions().size(), 4);
  EXPECT_EQ(m.windowTitle(), "Chattelbook");

  Globals().History = {"", "", "", "", ""};
  m.UpdateHistoryMenu();  // the open file has no name yet, like the empty first entry
  EXPECT_TRUE(m.Item(MenuId::Bar4)->isVisible());
  EXPECT_TRUE(m.Item(MenuId::Bar5)->isVisible());
  for (int i = 1; i <= 4; ++i) EXPECT_FALSE(m.Item(HistoryItem(i))->isVisible());
  EXPECT_FALSE(std::filesystem::exists(app / "fhistlst.dat"));
}

// The toolbar's rows are tested with the rules; here, that the frame applies them.
TEST_F(MainWindowTest, ToolbarFollowsTheSlideWindow) {
  MDIMain& m = TheMDIMain();
  QMdiSubWindow* slide = Child("frmSlide");
  m.MDIForm_Activate();
  m.Button(ToolbarButton::Zoom)->trigger();
  EXPECT_FALSE(m.Button(ToolbarButton::New)->isEnabled());
  EXPECT_TRUE(m.Button(ToolbarButton::Edit)->isEnabled());
  EXPECT_FALSE(m.Button(ToolbarButton::Unzoom)->isChecked());
  delete slide;
  m.MDIForm_Activate();
  EXPECT_TRUE(m.Button(ToolbarButton::New)->isEnabled());
  EXPECT_TRUE(m.Button(ToolbarButton::Zoom)->isChecked());  // pressed stays pressed
}

TEST_F(MainWindowTest, WindowButtonArrangesInItsCycle) {
  MDIMain& m = TheMDIMain();
  m.resize(800, 600);
  m.show();
  QMdiSubWindow* a = Child("one");
  QMdiSubWindow* b = Child("two");
  const auto layout = [&] {
    if (a->y() == b->y() && a->height() == b->height() && a->x() != b->x()) return "vertical";
    if (a->x() == b->x() && a->width() == b->width() && a->y() != b->y()) return "horizontal";
    return "cascade";
  };
  std::vector<std::string> seen;
  for (int i = 0; i < 5; ++i) {
    m.Button(ToolbarButton::Window)->trigger();
    seen.push_back(layout());
  }
  EXPECT_EQ(seen, (std::vector<std::string>{"cascade", "vertical", "cascade", "horizontal", "vertical"}));
}

// The Window menu lists the children, numbered from one.
TEST_F(MainWindowTest, WindowMenuNumbersTheChildrenFromOne) {
  Child("one")->setWindowTitle("Gallery");
  Child("two")->setWindowTitle("Slide 2");
  QMenu* menu = TheMDIMain().Menu(MenuId::Window);
  emit menu->aboutToShow();
  const QList<QAction*> items = menu->actions();
  EXPECT_EQ(items[items.size() - 3]->text().section(' ', 0, 0), "&1");  // the gallery's
  EXPECT_EQ(items[items.size() - 2]->text(), "&2 Gallery");
  EXPECT_EQ(items.last()->text(), "&3 Slide 2");
}

TEST_F(MainWindowTest, WallpaperNoteTellsWhatTheWallpaperIs) {
  TheMDIMain().Item(MenuId::Popup2What)->trigger();
  auto* what = qobject_cast<dlgWhat*>(FindOpenForm("dlgWhat"));
  ASSERT_NE(what, nullptr);
  EXPECT_EQ(what->WhatText,
            "The wallpaper or background image.\nUse the 'Set Wallpaper' option to change the background.");
  what->close();
}

TEST_F(MainWindowTest, SetPasswordAsksForTheSameTextTwice) {
  testing::WhenModal([this](QWidget* w) {
    auto* login = qobject_cast<frmLogin*>(w);
    login->txtPassword->setText("Secret");
    login->txtConfirmPassword->setText("secret");
    login->cmdOK->click();
    EXPECT_EQ(messages,
              QStringList({"Error: The confirmation password is not the same as the password.  Please try again."}));
    EXPECT_TRUE(login->isVisible());
    login->txtConfirmPassword->setText("Secret");
    login->cmdOK->click();
    EXPECT_TRUE(login->PasswordSet);
  });
  TheMDIMain().mnuFilePassword_Click();
  std::string stored;
  ASSERT_TRUE(Globals().MainController->GetPassword(stored).ok());
  EXPECT_EQ(stored, "Secret");
}

struct LoginRow {
  const char* name;
  const char* typed;     // null: Cancel
  QStringList messages;  // none when the program starts
};

const LoginRow kLogins[] = {
    {"right_password", "Secret", {}},
    {"other_case", "secret", {"Error: Invalid password."}},
    {"cancel", nullptr, {"Error: Invalid password."}},
};

class LoginTest : public MainWindowTest, public ::testing::WithParamInterface<LoginRow> {};

TEST_P(LoginTest, StoredPasswordIsAskedForOnceAtStart) {
  ASSERT_TRUE(Globals().MainController->PutPassword("Secret").ok());
  Globals().MainController->SetRegistryKeys(app / "Files/Home.sif");  // not a first use
  const char* typed = GetParam().typed;
  testing::WhenModal([typed](QWidget* w) {
    auto* login = qobject_cast<frmLogin*>(w);
    ASSERT_NE(login, nullptr);
    EXPECT_EQ(login->windowTitle(), "Login");
    EXPECT_TRUE(login->txtConfirmPassword->isHidden());
    if (!typed) return login->cmdCancel->click();
    login->txtPassword->setText(typed);
    login->cmdOK->click();
  });
  Globals().SplashDismissed = true;
  const bool starts = GetParam().messages.isEmpty();
  EXPECT_EQ(Main(app.str(), settings), starts);
  EXPECT_EQ(messages, GetParam().messages);
  const QWidget* main = FindOpenForm("MDIMain");
  EXPECT_EQ(main != nullptr, starts);
  EXPECT_EQ(main && main->isVisible(), starts);
}

INSTANTIATE_TEST_SUITE_P(Rows, LoginTest, ::testing::ValuesIn(kLogins), cb::testing::RowName());

TEST_F(MainWindowTest, FirstUseStoresTheDefaultFileAndOpensTheMainWindow) {
  std::filesystem::create_directories(app / "Help");
  ASSERT_TRUE(StartProgram());
  UIMainController& mc = *Globals().MainController;
  EXPECT_TRUE(mc.FirstRun);
  EXPECT_EQ(settings.Get("Startup", "DefDir", ""), app / "Files/MyFiles.sif");
  EXPECT_EQ(mc.SlideTemplate(), 1);  // no file to read it from
  EXPECT_TRUE(TheMDIMain().isVisible());
  EXPECT_TRUE(messages.empty());
  // The quick start page comes up on top of the gallery.
  ASSERT_NE(HelpViewer(), nullptr);
  EXPECT_EQ(HelpViewer()->WebBrowser1->documentTitle(), "Chattelworks Help - Quick Start");
  EXPECT_EQ(TheMDIMain().MdiArea()->activeSubWindow(), HelpViewer()->parentWidget());
}

TEST_F(MainWindowTest, HelpThatCannotBeWrittenIsToldOnceAndTheStartGoesOn) {
  ASSERT_TRUE(StartProgram());  // no Help folder to write into
  EXPECT_EQ(messages, QStringList({"Error: An error occurred while generating the help files."}));
  EXPECT_TRUE(TheMDIMain().isVisible());
}

struct WallpaperRow {
  const char* name;
  std::string wallpaper;
  std::string content;  // written to wallpaper/<wallpaper> unless empty; "picture" is one
  QStringList messages;
};

// A later start reads the default file and its wallpaper; a bad one never stops it.
const WallpaperRow kWallpapers[] = {
    {"a_picture", "calm.png", "picture", {}},
    {"empty_name", "", "", {}},
    {"missing_file", "gone.jpg", "", {}},
    {"not_a_picture", "notes.jpg", "plain text, no picture", {"Wallpaper: 481: Invalid picture"}},
};

class WallpaperStartupTest : public MainWindowTest, public ::testing::WithParamInterface<WallpaperRow> {};

TEST_P(WallpaperStartupTest, ReadsTheDefaultFileAndNeverStopsForItsWallpaper) {
  const auto& row = GetParam();
  UIMainController& mc = *Globals().MainController;  // the start reads the file with one of its own
  mc.SetRegistryKeys(app / "Files/Home.sif");
  mc.Wallpaper(row.wallpaper);
  mc.SlideTemplate(3);
  ErrorArray errors;
  ASSERT_TRUE(Report(mc.SaveSettings(), errors));
  std::filesystem::create_directories(app / "wallpaper");
  const std::string path = app / ("wallpaper/" + row.wallpaper);
  if (!row.content.empty()) testing::WriteFile(path, row.content);
  QImage picture(8, 6, QImage::Format_RGB32);
  picture.fill(Qt::darkBlue);
  if (row.content == "picture") picture.save(QString::fromStdString(path));
  ASSERT_TRUE(StartProgram());
  EXPECT_TRUE(TheMDIMain().isVisible());
  EXPECT_FALSE(Globals().MainController->FirstRun);
  EXPECT_EQ(Globals().MainController->SlideTemplate(), 3);
  EXPECT_EQ(TheMDIMain().MdiArea()->Picture().size(), row.content == "picture" ? QSize(8, 6) : QSize(0, 0));
  EXPECT_EQ(messages, row.messages);
}

INSTANTIATE_TEST_SUITE_P(Rows, WallpaperStartupTest, ::testing::ValuesIn(kWallpapers), cb::testing::RowName());

// Answers the file dialog once it is up: types `typed`, selects `selected`, presses OK.
void AnswerDialog(QString typed, QString selected) {
  testing::WhenModal<frmCommonDialog>([typed, selected](frmCommonDialog* d) {
    if (selected.isEmpty()) {
      d->FileListBox1->setCurrentRow(-1);
      d->FileListBox1->clearSelection();
    } else if (const auto found = d->FileListBox1->findItems(selected, Qt::MatchExactly); !found.isEmpty()) {
      d->FileListBox1->setCurrentItem(found[0]);
    }
    d->txtFilename->setText(typed);
    d->cmdOK->click();
  });
}

// A typed name is written without a question, record by record, with ".sif" added when it has no dot.
TEST_F(MainWindowTest, NewWithATypedNameOverwritesWithoutAskingAndAddsTheExtension) {
  Start(3);
  const std::string before = ReadFile(Files("t.sif"));
  AnswerDialog("t.sif", "");
  TheMDIMain().mnuFileNew_Click();
  EXPECT_TRUE(messages.isEmpty());
  const std::string after = ReadFile(Files("t.sif"));
  EXPECT_EQ(after.size(), before.size());  // the old tail stays
  EXPECT_EQ(after.substr(278), before.substr(278));
  EXPECT_EQ(Mc().NumberOfRecords(), 0);
  EXPECT_EQ(TheMDIMain().StatusText(), "Slides: 0 to 0 of 0");
  EXPECT_EQ(ReadBack(), 0);

  for (const auto& [typed, stored] : {std::pair{"a", "a.sif"}, {"a.b", "a.b"}, {"Cars.SIF", "Cars.SIF"}}) {
    AnswerDialog(typed, "");
    TheMDIMain().mnuFileNew_Click();
    EXPECT_TRUE(std::filesystem::exists(Files(stored))) << typed;
    EXPECT_EQ(settings.Get("Startup", "DefDir", ""), Files(stored));
  }
}

TEST_F(MainWindowTest, NewAsksBeforeOverwritingTheSelectedFile) {
  Start(3);
  answer = vbNo;
  AnswerDialog("other", "t.sif");
  TheMDIMain().mnuFileNew_Click();
  EXPECT_EQ(messages, QStringList({"New File: The file 't.sif' already exists.\n"
                                   "Are you sure you want to overwrite this file?"}));
  EXPECT_EQ(styles, QList<int>({vbYesNo}));  // no icon: the question has no style that gives one
  EXPECT_EQ(Mc().NumberOfRecords(), 3);      // No leaves everything as it was
}

TEST_F(MainWindowTest, OpenOfABadFileTellsAndRebuildsFromWhatIsHeld) {
  Start(3);
  SlideRecord header;
  header.Set(Field::Serial, "\xCC\xD0\xD0\xD0\xD0");  // "40000", scrambled
  testing::WriteFile(Files("bad.sif"), std::string(header.bytes().data(), kRecordLength));
  AnswerDialog("", "bad.sif");
  TheMDIMain().mnuFileOpen_Click();
  EXPECT_EQ(messages, QStringList({"Load Error: Invalid Slide Information File"}));
  EXPECT_EQ(Globals().Slides.size(), 4u);
  EXPECT_EQ(settings.Get("Startup", "DefDir", ""), Files("bad.sif"));  // the settings point at it all the same
  ASSERT_NE(TheMDIMain().fGallery(), nullptr);
}

// A real message box takes the focus from the main window while its own loop
// runs, and the main window gets it back once the command has rebuilt the
// gallery. The gallery's activation, and the fourth entry's rule with it,
// must still run once.
TEST_F(MainWindowTest, MissingFourthHistoryEntryMovesTheListOnce) {
  Start(3);
  QApplication::setActiveWindow(&TheMDIMain());
  QApplication::processEvents();
  Globals().History = {"", "t.sif", "b.sif", "c.sif", "gone.sif"};
  QWidget box;
  SetMsgBoxHook([&](const QString& text, int style, const QString& title) {
    messages.push_back(title + ": " + text);
    styles.push_back(style);
    box.show();
    QApplication::setActiveWindow(&box);
    QApplication::processEvents();  // what the box's own loop delivers
    box.hide();
    return vbOK;
  });
  TheMDIMain().mnuFileHist_Click(4);
  QApplication::setActiveWindow(&TheMDIMain());
  QApplication::processEvents();
  EXPECT_EQ(messages, QStringList({"Load Error: Invalid Slide Information File"}));
  EXPECT_EQ(styles, QList<int>({vbOKOnly}));  // no icon
  EXPECT_EQ(Globals().History, (std::array<std::string, 5>{"", "c.sif", "t.sif", "b.sif", "c.sif"}));
  EXPECT_EQ(Mc().NumberOfRecords(), 3);  // the slides still held
}

struct AddRow {
  const char* name;
  std::string source;  // relative to the application directory
  std::string stored;  // PictureFile, trimmed
  bool copied;
};

const AddRow kAdds[] = {
    {"from_the_gallery_itself", "Gallery/p1.png", "p1.png", false},
    {"from_elsewhere", "Pictures/chair.jpg", "chair.jpg", true},
    {"long_name_cut", "Pictures/abcdefghijklmnopqrstuvwxyz1234.jpg", "abcdefghijklmnopqrstuvwxyz", true},
    // The record holds the name in Windows-1252, the disk in UTF-8.
    {"accented_name", "Pictures/caf\u00e9.jpg", "caf\xE9.jpg", true},
};

class AddSlideTest : public MainWindowTest, public ::testing::WithParamInterface<AddRow> {};

TEST_P(AddSlideTest, AppendsTheRecordAndCopiesUnlessInPlace) {
  Start(2);
  const auto& row = GetParam();
  const std::filesystem::path source = app / row.source;
  if (!std::filesystem::exists(source)) {
    std::filesystem::create_directories(source.parent_path());
    QImage picture(5, 5, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(QString::fromStdString(source.string()), "JPG"));
  }
  const auto stamp = std::filesystem::last_write_time(app / "Gallery/p1.png");
  testing::WhenModal<frmCommonDialog>([source](frmCommonDialog* d) {
    d->Dir1->Path(QString::fromStdString(source.parent_path().string()));
    d->FileListBox1->Pattern("*.*");
    const auto found = d->FileListBox1->findItems(QString::fromStdString(source.filename().string()), Qt::MatchExactly);
    if (!found.isEmpty()) d->FileListBox1->setCurrentItem(found[0]);
    d->cmdOK->click();
  });
  Gallery().mnuSlidesAdd_Click();
  ASSERT_EQ(Mc().NumberOfRecords(), 3);
  EXPECT_EQ(Trim(Globals().Slides[3].Get(Field::PictureFile)), row.stored);
  EXPECT_TRUE(std::filesystem::exists(app / ("Gallery/" + Cp1252ToUtf8(row.stored))));
  EXPECT_TRUE(row.copied || std::filesystem::last_write_time(app / "Gallery/p1.png") == stamp);
  EXPECT_EQ(ReadBack(), 3);
}

INSTANTIATE_TEST_SUITE_P(Rows, AddSlideTest, ::testing::ValuesIn(kAdds), cb::testing::RowName());

}  // namespace
}  // namespace cb
