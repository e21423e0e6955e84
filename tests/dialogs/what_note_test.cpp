// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <functional>

#include "base/FaceMetrics.h"
#include "dialogs/dlgWhat.h"
#include "qt/LookAlike.h"
#include "qt/Twips.h"
#include "state/modGlobal.h"
#include "support/RowName.h"

namespace cb {
namespace {

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
