// SPDX-License-Identifier: GPL-3.0-or-later
// The report windows driven as a user drives them, and the locale the pages
// are written in.

#include <QComboBox>
#include <QDateTime>
#include <QLineEdit>
#include <QLocale>
#include <QMdiSubWindow>
#include <QPrintDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>
#include <QTextCursor>

#include "dialogs/HelpRoutine.h"
#include "qt/OpenForms.h"
#include "qt/SystemLocale.h"
#include "reports/ReportBrowser.h"
#include "reports/frmReport.h"
#include "reports/frmSelectReport.h"
#include "slide/frmSlide.h"
#include "support/GalleryFixture.h"

namespace cb {
namespace {

using testing::WhenModal;

// A gallery of five slides with categories, locations and values, the main
// window started on it offscreen.
class ReportWindowTest : public testing::GalleryFixture {
 protected:
  void SetUp() override {
    static constexpr const char* kRows[][3] = {{"Furniture", "Lounge", "1500"},
                                               {"Electrical", "Lounge", "900"},
                                               {"Furniture", "Study", "300"},
                                               {"Art", "Room #2", "50"},
                                               {"Electrical", "Study", "20"}};
    Start(5);
    Mc().SlideTemplate(1);
    constexpr Field kFields[] = {Field::Category, Field::Location, Field::Value};
    for (std::size_t i = 1; i <= 5; ++i)
      for (std::size_t c = 0; c < 3; ++c) Globals().Slides[i].Set(kFields[c], kRows[i - 1][c]);
  }

  // The viewer open, as the chooser's OK makes it.
  frmReport& Viewer() {
    auto* r = qobject_cast<frmReport*>(FindOpenForm("frmReport"));
    return r ? *r : throw std::runtime_error("no report viewer");
  }
  frmReport& OpenReport() {
    TheMDIMain().OpenReport(ReportKind::ByLocation, "Arial");
    return Viewer();
  }

  // A left click on the link whose href ends in "?" + key.
  static void ClickLink(frmReport& r, const QString& key) {
    QTextBrowser& b = *r.WebBrowser1;
    QTextCursor c(b.document());  // its format is that of the character before it
    while (c.atBlockStart() || !(c.charFormat().isAnchor() && c.charFormat().anchorHref().endsWith("?" + key)))
      ASSERT_TRUE(c.movePosition(QTextCursor::NextCharacter)) << "no link to " << key.toStdString();
    QTest::mouseClick(b.viewport(), Qt::LeftButton, {}, b.cursorRect(c).center());
  }

  static std::string Shown(const frmReport& r) { return r.WebBrowser1->source().fileName().toStdString(); }

  static void FlushDeletes() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  // The report font as the file on disk holds it.
  std::string StoredFont() {
    ModGlobal other;
    UIMainController mc(app.str(), settings, other);
    ErrorArray errors;
    EXPECT_TRUE(Report(mc.LoadSettings(), errors)) << errors[2];
    return mc.ReportFont();
  }

  // Prints the viewer's page through the dialog, to a PDF file at `path`.
  void PrintTo(frmReport& r, const std::string& path) {
    WhenModal<QPrintDialog>([&](QPrintDialog* dialog) {
      auto* printers = dialog->findChild<QComboBox*>("printers");
      printers->setCurrentIndex(printers->findText("Print to File (PDF)"));
      dialog->findChild<QLineEdit*>("filename")->setText(QString::fromStdString(path));
      dialog->accept();
    });
    r.PrintButton->trigger();
  }
};

TEST_F(ReportWindowTest, LinksPreviousAndNextWalkTheHistoryAndBringUpSlides) {
  frmReport& r = OpenReport();
  const auto click = [&r](const char* key) { return [&r, key] { ClickLink(r, key); }; };
  const std::tuple<std::function<void()>, const char*, bool, bool, int, int> steps[] = {
      {click("Lounge"), "Report 2.htm", true, false, 2, 2},
      {[&r] { r.Previous_Click(); }, "Report1.htm", false, true, 1, 2},
      {click("Study"), "Report 3.htm", true, true, 1, 2},  // the first link after Previous is not recorded
      {[&r] { r.Next_Click(); }, "Report 2.htm", true, false, 2, 2},
      // After a slide the page shown is the last one written, not the one left by Next;
      // that first link is not recorded either, the second one is.
      {click("p1.png"), "Report 3.htm", true, false, 2, 2},
      {click("p3.png"), "Report 3.htm", true, false, 3, 3},
      {[&r] { r.Previous_Click(); }, "Report 2.htm", true, true, 2, 3},
  };
  int step = 0;
  for (const auto& [act, shown, previous, next, current, total] : steps) {
    SCOPED_TRACE(++step);
    act();
    EXPECT_EQ(Shown(r), shown);
    EXPECT_EQ(r.PreviousButton->isEnabled(), previous);
    EXPECT_EQ(r.NextButton->isEnabled(), next);
    EXPECT_EQ(r.Stack().CurrentItem(), current);
    EXPECT_EQ(r.Stack().TotalItems(), total);
  }
  // Each slide link brings the one slide window up afresh on its record.
  FlushDeletes();
  EXPECT_EQ(std::ranges::count(QApplication::allWidgets(), QString("frmSlide"), &QWidget::objectName), 1);
  EXPECT_EQ(qobject_cast<frmSlide*>(FindOpenForm("frmSlide"))->Image1->toolTip(), "Slide 3");
  EXPECT_EQ(TheMDIMain().StatusText(), "Slide: 3");
}

TEST_F(ReportWindowTest, AReportThatCannotBeWrittenClosesTheViewerSilently) {
  testing::WriteFile(app / "Reports", "a file where the directory belongs");
  TheMDIMain().OpenReport(ReportKind::ByLocation, "Arial");
  FlushDeletes();
  EXPECT_EQ(FindOpenForm("frmReport"), nullptr);
  EXPECT_TRUE(messages.isEmpty());
  EXPECT_EQ(Globals().ErrorInfo[0], "76");
}

// Print writes a PDF, or to a folder that is not there says why and what else
// to try; Help opens the help viewer beside the report, F1 gives way to it.
TEST_F(ReportWindowTest, TheToolbarPrintsAndOpensHelpOnTheReportsPage) {
  frmReport& r = OpenReport();
  PrintTo(r, app / "summary.pdf");
  const std::string pdf = testing::ReadFile(app / "summary.pdf");
  EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
  EXPECT_NE(pdf.find("/Title (\xFE\xFF"), std::string::npos);  // the page title names the document
  EXPECT_TRUE(messages.isEmpty()) << messages.join("\n").toStdString();

  PrintTo(r, app / "no such folder/summary.pdf");
  EXPECT_EQ(messages.size(), 1);
  const QString message = messages.value(0);
  EXPECT_TRUE(message.startsWith("Chattelbook: Print command Error: ")) << message.toStdString();
  EXPECT_TRUE(
      message.endsWith("\n\nChattelbook is having problems sending commands\n"
                       "directly to the printer.  Try right-clicking on the\n"
                       "report and selecting the 'Print' option."));

  r.HelpButton->trigger();
  EXPECT_EQ(HelpPage(), "help012.htm");
  EXPECT_NE(FindOpenForm("frmReport"), nullptr);
  UnloadHelp();

  QApplication::setActiveWindow(&TheMDIMain());
  QMdiArea& area = *TheMDIMain().MdiArea();  // the user turns to another child, then back
  for (QMdiSubWindow* w : area.subWindowList()) area.setActiveSubWindow(w);
  area.setActiveSubWindow(qobject_cast<QMdiSubWindow*>(r.parentWidget()));
  r.WebBrowser1->setFocus();
  QTest::keyClick(r.WebBrowser1, Qt::Key_F1);
  EXPECT_EQ(HelpPage(), "help012.htm");
  FlushDeletes();
  EXPECT_EQ(FindOpenForm("frmReport"), nullptr);
}

// A page that fits its view has no horizontal scroll bar, maximised or at any
// width; a view narrower than the page's tables still scrolls.
TEST_F(ReportWindowTest, APageThatFitsItsViewHasNoHorizontalScrollBar) {
  frmReport& r = OpenReport();
  QMdiSubWindow& sub = *qobject_cast<QMdiSubWindow*>(r.parentWidget());
  const QScrollBar& bar = *r.WebBrowser1->horizontalScrollBar();
  const auto barShown = [&bar] {
    QCoreApplication::processEvents();
    return bar.isVisible();
  };
  sub.showMaximized();
  EXPECT_FALSE(barShown()) << "maximised";
  sub.showNormal();
  for (const char* link : {"", "Lounge"}) {  // the summary, then a sub-report
    if (*link) ClickLink(r, link);
    for (int width = 600; width < 610; ++width) {
      sub.resize(width, 500);
      EXPECT_FALSE(barShown()) << Shown(r) << " at " << width;
    }
  }
  sub.resize(60, 500);
  EXPECT_TRUE(barShown()) << "a page wider than its view";
}

TEST_F(ReportWindowTest, TheFirstOptionIsCaptionedByTemplate) {
  const std::tuple<int, const char*, int> rows[] = {{1, "Report By Location", 1},
                                                    {2, "Report By Suburb", 2},
                                                    {3, "Report By Year", 3},
                                                    {0, "Report By Location", 1},
                                                    {9, "Report By Location", 1}};
  for (const auto& [slideTemplate, caption, after] : rows) {
    Mc().SlideTemplate(slideTemplate);
    frmSelectReport dialog;
    EXPECT_EQ(dialog.optLocation->text(), caption) << slideTemplate;
    EXPECT_TRUE(dialog.optLocation->isChecked());
    EXPECT_EQ(dialog.optCategory->text(), "Report By Category");
    EXPECT_EQ(Mc().SlideTemplate(), after);
  }
  EXPECT_EQ(StoredFont(), "");  // the correction stays in memory
}

// A picked font is kept in the file, a typed one serves one report; while
// the viewer is open Report does nothing.
TEST_F(ReportWindowTest, ReportThenOkShowsTheChosenReportAndBlocksASecondViewer) {
  Mc().ReportFont("");
  {
    frmSelectReport dialog;
    EXPECT_EQ(dialog.cboFont->currentText(), "Arial Narrow");
    dialog.cboFont->setCurrentIndex(2);
    emit dialog.cboFont->activated(2);
    dialog.cmdCancel->click();  // the pick is already kept
  }
  EXPECT_EQ(StoredFont(), "Courier New");

  WhenModal<frmSelectReport>([](frmSelectReport* dialog) {
    EXPECT_EQ(dialog->cboFont->currentText(), "Courier New");
    dialog->optCategory->setChecked(true);
    dialog->cboFont->setEditText("Comic Sans MS");
    dialog->cmdOK->click();
  });
  TheMDIMain().Toolbar1_ButtonClick(ToolbarButton::Report);
  frmReport& r = Viewer();
  EXPECT_EQ(Shown(r), "Report1.htm");
  EXPECT_EQ(r.WebBrowser1->documentTitle(), "Report By Category");
  EXPECT_FALSE(r.PreviousButton->isEnabled());
  EXPECT_NE(testing::ReadFile(app / "Reports/Report1.htm").find("face='Comic Sans MS'"), std::string::npos);
  EXPECT_EQ(StoredFont(), "Courier New");

  // A click that reaches the handler while the viewer is open does nothing.
  bool shown = false;
  WhenModal<QDialog>([&shown](QDialog* d) {
    shown = true;
    d->reject();
  });
  TheMDIMain().Toolbar1_ButtonClick(ToolbarButton::Report);
  QTest::qWait(50);
  EXPECT_FALSE(shown);
}

TEST(SystemLocale, SeparatorPointCurrencyAndDateComeFromTheLocale) {
  const std::array<const char*, 5> rows[] = {
      {"en_US", ",", ".", "$", "2/1/03 4:05:06 PM"},
      {"de_DE", ".", ",", "\x80", "01.02.03 16:05:06"},
      {"fr_FR", "\xA0", ",", "\x80", "01/02/2003 16:05:06"},  // a narrow blank groups digits: the no-break space
  };
  const QDateTime when(QDate(2003, 2, 1), QTime(16, 5, 6));
  for (const auto& [name, separator, point, currency, date] : rows) {
    SCOPED_TRACE(name);
    const QLocale locale(name);
    const ReportLocale l = ReportLocaleOf(locale);
    EXPECT_EQ(l.thousandsSeparator, separator);
    EXPECT_EQ(l.decimalPoint, point);
    EXPECT_EQ(l.currencySymbol, currency);
    EXPECT_EQ(GeneralDateFileText(locale, when), date);
  }
}

}  // namespace
}  // namespace cb
