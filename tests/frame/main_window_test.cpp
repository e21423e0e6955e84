#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTimer>

#include "dialogs/dlgWhat.h"
#include "frame/Forms.h"
#include "frame/MDIMain.h"
#include "frame/Main.h"
#include "frame/frmLogin.h"
#include "qt/MsgBox.h"
#include "qt/OpenForms.h"
#include "state/modGlobal.h"
#include "support/RowName.h"
#include "support/TempDir.h"
#include "support/WhenShown.h"

namespace cb {
namespace {

class MainWindowTest : public ::testing::Test {
 protected:
  MainWindowTest() {
    setenv("XDG_CONFIG_HOME", config.str().c_str(), 1);
    std::filesystem::create_directories(app / "Files");
    Globals().MainController = std::make_unique<UIMainController>(app.str(), settings, Globals());
    SetMsgBoxHook([this](const QString& text, int, const QString& title) {
      messages.push_back(title + ": " + text);
      return static_cast<int>(vbOK);
    });
  }
  ~MainWindowTest() override {
    testing::StopPolls();
    SetMsgBoxHook({});
    UnloadForms();
    Globals() = ModGlobal();
  }

  // A child window with the given name, as the gallery or a slide window would be.
  QMdiSubWindow* Child(const QString& name) {
    auto* w = new QWidget;
    w->setObjectName(name);
    QMdiSubWindow* sub = TheMDIMain().MdiArea()->addSubWindow(w);
    sub->resize(200, 150);
    sub->show();
    return sub;
  }

  testing::TempDir app, config;
  MemorySettings settings;
  QStringList messages;
};

TEST_F(MainWindowTest, MenuBarShowsTheTableAndHidesThePopups) {
  MDIMain& m = TheMDIMain();
  QStringList bar;
  for (QAction* a : m.menuBar()->actions()) bar << a->text();
  EXPECT_EQ(bar, QStringList({"&File", "&View", "&Slides", "&Window", "&Help"}));
  EXPECT_FALSE(m.Item(MenuId::FileNew)->isEnabled());
  EXPECT_FALSE(m.Item(MenuId::FileSaveAs)->isEnabled());
  EXPECT_TRUE(m.Item(MenuId::FileOpen)->isEnabled());
  EXPECT_FALSE(m.Item(MenuId::SlidesAdd)->isEnabled());
  EXPECT_FALSE(m.Item(MenuId::FileHist1)->isVisible());
  EXPECT_FALSE(m.Item(MenuId::Bar4)->isVisible());
  EXPECT_TRUE(m.Item(MenuId::ViewToolbar)->isChecked());
  EXPECT_EQ(m.Item(MenuId::WindowHorizontal)->text(), "T&ile Horizontally");
  ASSERT_NE(m.Menu(MenuId::Popup2), nullptr);
  EXPECT_EQ(m.Menu(MenuId::Popup2)->actions().size(), 4);
  EXPECT_EQ(m.windowTitle(), "Chattelbook");
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
  const auto n = TheMDIMain().MdiArea()->subWindowList().size();
  QStringList listed, expected;
  for (QAction* a : menu->actions().mid(menu->actions().size() - n)) listed << a->text().section(' ', 0, 0);
  for (qsizetype i = 1; i <= n; ++i) expected << QString("&%1").arg(i);
  EXPECT_EQ(listed, expected);
  EXPECT_EQ(menu->actions().last()->text(), QString("&%1 Slide 2").arg(n));
}

TEST_F(MainWindowTest, EmptyHistoryShowsTwoSeparatorsAndNoEntries) {
  Globals().History = {"", "", "", "", ""};
  MDIMain& m = TheMDIMain();
  m.UpdateHistoryMenu();  // the open file has no name yet, like the empty first entry
  EXPECT_TRUE(m.Item(MenuId::Bar4)->isVisible());
  EXPECT_TRUE(m.Item(MenuId::Bar5)->isVisible());
  for (int i = 1; i <= 4; ++i) EXPECT_FALSE(m.Item(HistoryItem(i))->isVisible());
  EXPECT_FALSE(std::filesystem::exists(app / "fhistlst.dat"));
}

TEST_F(MainWindowTest, WallpaperNoteOpensAtTheLastPress) {
  Globals().MouseX = 1500;
  Globals().MouseY = 3000;
  TheMDIMain().Item(MenuId::Popup2What)->trigger();
  auto* what = qobject_cast<dlgWhat*>(FindOpenForm("dlgWhat"));
  ASSERT_NE(what, nullptr);
  EXPECT_EQ(what->WhatText,
            "The wallpaper or background image.\nUse the 'Set Wallpaper' option to change the background.");
  EXPECT_EQ(what->pos(), QPoint(100, 200));  // twips from the screen's corner at 96 dpi
  what->close();
}

TEST_F(MainWindowTest, SetPasswordAsksForTheSameTextTwice) {
  testing::WhenModal([this](QWidget* w) {
    auto* login = qobject_cast<frmLogin*>(w);
    login->txtPassword->setText("Secret");
    login->txtConfirmPassword->setText("secret");
    login->cmdOK->click();
    EXPECT_EQ(messages, QStringList({"Error: The confirmation password is not the same as the password.  Please try again."}));
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
  const char* typed;  // null: Cancel
  bool starts;
};

const LoginRow kLogins[] = {
    {"right_password", "Secret", true},
    {"other_case", "secret", false},
    {"cancel", nullptr, false},
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
  EXPECT_EQ(Main(app.str(), settings), GetParam().starts);
  if (GetParam().starts) {
    EXPECT_TRUE(messages.isEmpty());
    EXPECT_TRUE(TheMDIMain().isVisible());
  } else {
    EXPECT_EQ(messages, QStringList({"Error: Invalid password."}));
    EXPECT_EQ(FindOpenForm("MDIMain"), nullptr);
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, LoginTest, ::testing::ValuesIn(kLogins),
                         cb::testing::RowName());

}  // namespace
}  // namespace cb
