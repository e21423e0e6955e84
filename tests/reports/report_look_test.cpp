// The pages as the viewer lays them out: the named fonts found or stood in
// for, the tables at the widths the page gives, the amounts to the right.

#include <QFontInfo>
#include <QMdiSubWindow>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextTable>

#include "ReportWindowFixture.h"
#include "reports/ViewerRules.h"

namespace cb {
namespace {

class ReportLookTest : public testing::ReportWindowFixture {
 protected:
  // The tables of the page on show, in document order.
  static QList<QTextTable*> Tables(QTextDocument& doc) {
    QList<QTextTable*> tables;
    for (QTextFrame* f : doc.rootFrame()->childFrames())
      if (auto* t = qobject_cast<QTextTable*>(f)) tables << t;
    return tables;
  }
  // The text of each cell of a table and the alignment of its paragraph.
  struct Cell {
    QString text;
    Qt::Alignment alignment;
  };
  static QList<Cell> Cells(QTextTable& t) {
    QList<Cell> cells;
    for (int r = 0; r < t.rows(); ++r)
      for (int c = 0; c < t.columns(); ++c) {
        const QTextTableCell cell = t.cellAt(r, c);
        const QTextBlock block = cell.firstCursorPosition().block();
        cells.append({block.text(), block.blockFormat().alignment()});
      }
    return cells;
  }
};

TEST_F(ReportLookTest, ANamedFontThatIsMissingGetsALookAlike) {
  StartInventory();
  for (const std::string_view face : kReportFonts) {
    frmReport* r = OpenReport(ReportKind::ByLocation, std::string(face));
    ASSERT_NE(r, nullptr);
    QTextCursor c = r->WebBrowser1->document()->find("Lounge");
    ASSERT_FALSE(c.isNull());
    QString shown = QFontInfo(c.charFormat().font()).family();
    shown.remove(QRegularExpression(" \\[.*\\]$"));  // the foundry, where several make a family
    QStringList wanted{QString::fromLatin1(face.data(), face.size())};
    for (const std::string_view f : FontFallbacks(face)) wanted << QString::fromLatin1(f.data(), f.size());
    // Any of the table's families may be the one installed here, nothing else.
    EXPECT_TRUE(wanted.contains(shown)) << face << " shown as " << shown.toStdString();
    r->parentWidget()->close();
    FlushDeletes();
  }
}

TEST_F(ReportLookTest, TheSummaryKeepsItsColumnsAndPutsTheAmountsRight) {
  StartInventory();
  frmReport* r = OpenReport();
  ASSERT_NE(r, nullptr);
  const QList<QTextTable*> tables = Tables(*r->WebBrowser1->document());
  ASSERT_EQ(tables.size(), 2);  // the heading, then the figures
  QTextTable& figures = *tables[1];
  EXPECT_EQ(figures.columns(), 4);
  EXPECT_EQ(figures.format().width(), QTextLength(QTextLength::PercentageLength, 100));
  // Every group row of the page is a row of the table, none run together.
  EXPECT_EQ(figures.rows(), 1 + 5 + 1);  // headings, one row per location and category, the total
  int amounts = 0;
  for (const Cell& cell : Cells(figures)) {
    const bool amount = !cell.text.isEmpty() && cell.text[0].isDigit();
    if (!amount) continue;
    ++amounts;
    EXPECT_TRUE(cell.alignment & Qt::AlignRight) << cell.text.toStdString();
  }
  // Sub-totals of the two groups of two, the three group totals, the grand total.
  EXPECT_EQ(amounts, 4 + 3 + 1);
}

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
