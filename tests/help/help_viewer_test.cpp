// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>
#include <functional>
#include <memory>

#include "dialogs/HelpRoutine.h"
#include "frame/frmLogin.h"
#include "gallery/dlgRemoveSlide.h"
#include "help/UIHelpController.h"
#include "help/frmHelp.h"
#include "support/GalleryFixture.h"
#include "support/RowName.h"

namespace cb {
namespace {

namespace fs = std::filesystem;

constexpr char kContents[] = "Contents";
constexpr char kQuickStart[] = "Chattelworks Help - Quick Start";
constexpr char kFileMenu[] = "Menu Options - (File Menu)";

// F1 in `control` of the active window.
void F1In(QWidget* control) {
  QApplication::setActiveWindow(control->window());
  control->setFocus();
  QTest::keyClick(control, Qt::Key_F1);
}

// The main window over an installation whose help pages are written, with
// the "help" spelling of the directory that the pages' links use.
class HelpViewerTest : public testing::GalleryFixture {
 public:
  HelpViewerTest() {
    fs::create_directories(app / "Help");
    fs::create_directory_symlink("Help", app / "help");
    EXPECT_TRUE(UIHelpController(app.str()).GenerateHelp());
    Start(0);
  }

  frmHelp& Viewer() { return HelpViewer() ? *HelpViewer() : throw std::runtime_error("no help viewer"); }
  QString Title() { return Viewer().WebBrowser1->documentTitle(); }
  std::string Page(const std::string& file) { return app / ("Help/" + file); }
  QMdiSubWindow* Frame() { return qobject_cast<QMdiSubWindow*>(Viewer().parentWidget()); }

  // A user's click on the link whose text is `text`.
  void ClickLink(const QString& text) {
    QTextBrowser* b = Viewer().WebBrowser1;
    const QTextCursor found = b->document()->find(text);
    ASSERT_FALSE(found.isNull()) << text.toStdString();
    QTextCursor inside(b->document());
    inside.setPosition(found.selectionStart() + 1);
    QTest::mouseClick(b->viewport(), Qt::LeftButton, {}, b->cursorRect(inside).center());
  }
};

TEST_F(HelpViewerTest, HistoryRecordsEveryNavigationButTheToolbars) {
  const auto back = [this] { Viewer().cmdPrevious->trigger(); };
  const auto forward = [this] { Viewer().cmdNext->trigger(); };
  const std::tuple<const char*, std::function<void()>, const char*, int, int, bool, bool> steps[] = {
      {"contents", [] { TheMDIMain().Item(MenuId::HelpContents)->trigger(); }, kContents, 2, 2, false, false},
      {"link by keyboard",
       [this] {
         Viewer().WebBrowser1->setFocus();
         QTest::keyClick(Viewer().WebBrowser1, Qt::Key_Tab);  // to the first link
         QTest::keyClick(Viewer().WebBrowser1, Qt::Key_Return);
       },
       kQuickStart, 3, 3, true, false},
      {"previous", back, kContents, 2, 3, true, true},
      {"previous to the load's own entry", back, kContents, 1, 3, false, true},
      {"next", forward, kContents, 2, 3, true, true},
      {"next to the end", forward, kQuickStart, 3, 3, true, false},
      {"previous again", back, kContents, 2, 3, true, true},
      {"mouse link drops forward", [this] { ClickLink("Menu Options"); }, kFileMenu, 3, 3, true, false},
  };
  for (const auto& [what, act, title, current, total, previous, next] : steps) {
    SCOPED_TRACE(what);
    act();
    EXPECT_EQ(Title(), title);
    EXPECT_EQ(Viewer().History().Stack().CurrentItem(), current);
    EXPECT_EQ(Viewer().History().Stack().TotalItems(), total);
    EXPECT_EQ(Viewer().cmdPrevious->isEnabled(), previous);
    EXPECT_EQ(Viewer().cmdNext->isEnabled(), next);
  }
}

// Tiling shares the client area among the other children; the viewer keeps all
// of it. Open, it comes forward at a window's help on the page it shows.
TEST_F(HelpViewerTest, KeepsTheWholeClientAreaOnTopAndItsPageUntilClosed) {
  auto* other = TheMDIMain().MdiArea()->addSubWindow(new QWidget);
  other->show();
  TheMDIMain().Button(ToolbarButton::Help)->trigger();
  EXPECT_EQ(Viewer().Shown(), Page("help001.htm"));
  EXPECT_EQ(TheMDIMain().MdiArea()->activeSubWindow(), Frame());
  const QRect client = TheMDIMain().MdiArea()->viewport()->rect();
  EXPECT_EQ(Frame()->geometry(), client);
  for (const auto& [tiling, sideBySide] :
       {std::pair{MenuId::WindowVertical, true}, {MenuId::WindowHorizontal, false}}) {
    TheMDIMain().Item(tiling)->trigger();
    EXPECT_EQ(Frame()->geometry(), client);
    const QRect a = Gallery().parentWidget()->geometry(), b = other->geometry();
    EXPECT_FALSE(a.intersects(b));
    EXPECT_EQ(a.united(b), client);
    EXPECT_EQ(a.top() == b.top(), sideBySide);
  }

  TheMDIMain().MdiArea()->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(Gallery().parentWidget()));
  ShowHelp(Gallery());  // the gallery's F1
  EXPECT_EQ(HelpPage(), "help011.htm");
  EXPECT_EQ(Title(), kContents);
  EXPECT_EQ(Viewer().History().Stack().TotalItems(), 2);
  EXPECT_EQ(TheMDIMain().MdiArea()->activeSubWindow(), Frame());
  F1In(Viewer().WebBrowser1);  // its own F1 asks for the quick start, and it keeps its page too
  EXPECT_EQ(HelpPage(), "help002.htm");
  EXPECT_EQ(Title(), kContents);
  // Closed, it starts afresh on the page asked for next.
  Frame()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ASSERT_EQ(HelpViewer(), nullptr);
  Gallery().Item(MenuId::Popup1Help)->trigger();
  EXPECT_EQ(Viewer().Shown(), Page("help011.htm"));
}

TEST_F(HelpViewerTest, AMissingPageIsRecordedAndShownAsNotFound) {
  OpenHelp("help099.htm");
  EXPECT_EQ(Title(), "Page not found");
  EXPECT_TRUE(Viewer().WebBrowser1->toPlainText().contains(QString::fromStdString(Page("help099.htm"))));
  Viewer().close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

  fs::remove(Page("help003.htm"));
  OpenHelp("help001.htm");
  ClickLink("Menu Options");
  EXPECT_EQ(Title(), "Page not found");
  EXPECT_EQ(Viewer().Shown(), app / "help/help003.htm");
  Viewer().cmdPrevious->trigger();
  EXPECT_EQ(Title(), kContents);
}

// Each window's help routine as a user reaches it; the viewer was closed before.
struct Routine {
  const char* name;
  std::function<QWidget*(std::unique_ptr<QWidget>&)> open;  // the window asked, shown
  std::function<void(QWidget*)> ask;
  const char* page;
  bool closes;
};

template <class Dialog, class... Args>
QWidget* Show(std::unique_ptr<QWidget>& keep, Args... args) {
  keep = std::make_unique<Dialog>(args...);
  keep->show();
  return keep.get();
}

const Routine kRoutines[] = {
    {"login_f1", [](auto& k) { return Show<frmLogin>(k, frmLogin::kSetPassword); },
     [](QWidget* w) { F1In(static_cast<frmLogin*>(w)->txtConfirmPassword); }, "help004.htm", true},
    {"remove_slide_f1", [](auto& k) { return Show<dlgRemoveSlide>(k); },
     [](QWidget* w) { F1In(static_cast<dlgRemoveSlide*>(w)->cmdOK); }, "help002.htm", true},
    {"gallery_f1", [](auto&) -> QWidget* { return TheMDIMain().fGallery(); }, F1In, "help011.htm", false},
    {"gallery_popup_help", [](auto&) -> QWidget* { return TheMDIMain().fGallery(); },
     [](QWidget*) { TheMDIMain().fGallery()->Item(MenuId::Popup4Help)->trigger(); }, "help011.htm", false},
    {"wallpaper_popup_help", [](auto&) -> QWidget* { return &TheMDIMain(); },
     [](QWidget*) { TheMDIMain().Item(MenuId::Popup2Help)->trigger(); }, "help002.htm", false},
    {"gallery_help_contents", [](auto&) -> QWidget* { return &TheMDIMain(); },
     [](QWidget*) { TheMDIMain().fGallery()->Item(MenuId::HelpContents)->trigger(); }, "help001.htm", false},
};

class HelpRoutineTest : public HelpViewerTest, public ::testing::WithParamInterface<Routine> {};

TEST_P(HelpRoutineTest, OpensTheWindowsPageAndClosesOnlyDialogs) {
  std::unique_ptr<QWidget> keep;
  QWidget* window = GetParam().open(keep);
  ASSERT_EQ(HelpViewer(), nullptr);
  GetParam().ask(window);
  QCoreApplication::processEvents();  // a menu's command runs once the menu is done
  EXPECT_EQ(Viewer().Shown(), Page(GetParam().page));
  EXPECT_TRUE(Viewer().isVisible());
  EXPECT_EQ(window->isVisible(), !GetParam().closes);
  if (auto* dialog = qobject_cast<QDialog*>(window)) {
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, HelpRoutineTest, ::testing::ValuesIn(kRoutines), cb::testing::RowName());

}  // namespace
}  // namespace cb
