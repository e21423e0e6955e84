#pragma once
// A gallery of five slides with categories, locations and values, the main
// window started on it offscreen, and the ways a user drives the report
// windows: a modal dialog answered once it is up, a click on a link.

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTimer>
#include <functional>

#include "qt/OpenForms.h"
#include "reports/ReportBrowser.h"
#include "reports/frmReport.h"
#include "support/GalleryFixture.h"

namespace cb::testing {

class ReportWindowFixture : public GalleryFixture {
 protected:
  // Slides 1 to 5: picture "p<i>.png", text "Slide <i>".
  void StartInventory() {
    struct Row {
      const char *category, *location, *value;
    };
    static constexpr Row kRows[] = {{"Furniture", "Lounge", "1500"},
                                    {"Electrical", "Lounge", "900"},
                                    {"Furniture", "Study", "300"},
                                    {"Art", "Room #2", "50"},
                                    {"Electrical", "Study", "20"}};
    Start(5);
    Mc().SlideTemplate(1);
    for (std::size_t i = 1; i <= 5; ++i) {
      Globals().Slides[i].Set(Field::Category, kRows[i - 1].category);
      Globals().Slides[i].Set(Field::Location, kRows[i - 1].location);
      Globals().Slides[i].Set(Field::Value, kRows[i - 1].value);
    }
    ErrorArray errors;
    ASSERT_TRUE(Report(Mc().SaveSettings(), errors));
  }

  // A viewer made as the chooser's OK makes it.
  frmReport* OpenReport(ReportKind kind = ReportKind::ByLocation, const std::string& font = "Arial") {
    TheMDIMain().OpenReport(kind, font);
    return qobject_cast<frmReport*>(FindOpenForm("frmReport"));
  }

  // A left click on the link whose href ends in "?" + key.
  static void ClickLink(QTextBrowser& b, const QString& key) {
    for (QTextBlock block = b.document()->begin(); block.isValid(); block = block.next())
      for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment f = it.fragment();
        if (!f.charFormat().isAnchor() || !f.charFormat().anchorHref().endsWith("?" + key)) continue;
        QTextCursor c(b.document());
        c.setPosition(f.position() + 1);
        QTest::mouseClick(b.viewport(), Qt::LeftButton, {}, b.cursorRect(c).center());
        return;
      }
    ADD_FAILURE() << "no link to " << key.toStdString();
  }

  // The file name of the page on show.
  static std::string Shown(const frmReport& r) { return r.WebBrowser1->source().fileName().toStdString(); }

  std::string Reports(const std::string& name) const { return app / ("Reports/" + name); }

  static void FlushDeletes() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
};

}  // namespace cb::testing
