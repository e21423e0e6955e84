#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include "dialogs/dlgWhat.h"
#include "qt/Twips.h"
#include "state/modGlobal.h"

namespace cb {
namespace {

// A window of the program with a button, and a note opened over it at the last press.
class WhatNoteTest : public ::testing::Test {
 protected:
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

TEST_F(WhatNoteTest, SizeAndPlaceComeFromTheCallerInTwips) {
  ASSERT_TRUE(note->isVisible());
  EXPECT_EQ(note->geometry(), QRect(TwipsToPixelsX(1500), TwipsToPixelsY(3000), TwipsToPixelsX(3900),
                                    TwipsToPixelsY(1300)));
  EXPECT_EQ(note->lblBack->geometry(), note->rect());
  const int bx = TwipsToPixelsX(20), by = TwipsToPixelsY(20);
  EXPECT_EQ(note->lblWhat->geometry(), note->rect().adjusted(bx, by, -bx, -by));
  EXPECT_EQ(note->lblWhat->text(), "Expanded version of a gallery slide. ");
}

TEST_F(WhatNoteTest, AClickOnTheNoteTakesItAway) {
  QTest::mouseClick(note->lblWhat, Qt::LeftButton);
  EXPECT_TRUE(Gone());
  EXPECT_EQ(clicks, 0);
}

TEST_F(WhatNoteTest, AClickElsewhereTakesItAwayAndStillDoesItsWork) {
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_TRUE(Gone());
  EXPECT_EQ(clicks, 1);
}

TEST_F(WhatNoteTest, LosingTheFocusTakesItAway) {
  ASSERT_TRUE(note->isActiveWindow());
  QTest::mouseMove(note->lblWhat);  // the mouse moving over it changes nothing
  EXPECT_FALSE(Gone());
  QApplication::setActiveWindow(&window);
  EXPECT_TRUE(Gone());
}

}  // namespace
}  // namespace cb
