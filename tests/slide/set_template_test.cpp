#include <QCoreApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "dialogs/HelpRoutine.h"
#include "dialogs/frmCommonDialog.h"
#include "slide/EditorFixture.h"
#include "slide/frmSetSlideTemplate.h"
#include "support/RowName.h"

namespace cb {
namespace {

using testing::WhenModal;

using testing::RowName;

class SetTemplateTest : public testing::EditorFixture {
 protected:
  // Chooses `option` in the template dialog opened from the gallery's menu,
  // presses OK and cancels the New File dialog that follows. Returns that
  // dialog's title, or nothing when none came.
  QString ChooseAndCancelNew(const char* option) {
    QString asked;
    WhenModal<frmSetSlideTemplate>([&asked, option](frmSetSlideTemplate* d) {
      WhenModal<frmCommonDialog>([&asked](frmCommonDialog* f) {
        asked = f->DialogTitle;
        f->cmdCancel->click();
      });
      d->findChild<QRadioButton*>(option)->click();
      d->cmdOK->click();
    });
    Gallery().Item(MenuId::SlidesTemplate)->trigger();
    QCoreApplication::processEvents();  // the command runs once the menu is done
    return asked;
  }
};

TEST_F(SetTemplateTest, ChosenTemplateStaysInForceWhenNewIsCancelled) {
  Start(3);
  Globals().Slides[2].Set(Field::Serial, "ABC-123");
  Mc().SlideTemplate(1);
  const std::int32_t inFile = OnDisk().slideTemplate;
  EXPECT_EQ(ChooseAndCancelNew("optVEH"), "New");
  EXPECT_EQ(Mc().SlideTemplate(), 3);
  EXPECT_EQ(Mc().NumberOfRecords(), 3);  // the old gallery stays open
  // Its editor now shows the car yard's labels over the old values...
  QPointer<frmEditSlide> e = OpenEditor(2);
  ASSERT_TRUE(e);
  EXPECT_EQ(e->txtSerial->text(), "ABC-123");
  EXPECT_EQ(e->txtSerial->accessibleName(), "Regn #");
  EXPECT_EQ(OnDisk().slideTemplate, inFile);  // the choice itself rewrites nothing
  // ...and the next save writes the new code into the old file.
  e->cmdOK->click();
  EXPECT_EQ(OnDisk().slideTemplate, 3);
}

TEST_F(SetTemplateTest, OkWithTheTemplateUnchangedStillAsksForANewFile) {
  Start(2);
  Mc().SlideTemplate(2);
  EXPECT_EQ(ChooseAndCancelNew("optRE"), "New");
  EXPECT_EQ(Mc().SlideTemplate(), 2);
}

struct LoadRow {
  const char* name;
  std::int32_t code;
  const char* chosen;
  bool endWithF1;  // else Cancel
};

const LoadRow kLoadRows[] = {
    {"home", 1, "optHome", false},
    {"real_estate", 2, "optRE", false},
    {"car_yard_left_by_f1", 3, "optVEH", true},
    {"unknown_code", 9, "optHome", false},
};

class SetTemplateLoad : public SetTemplateTest, public ::testing::WithParamInterface<LoadRow> {};

// Cancel and F1 both leave the template alone and ask for no new file.
TEST_P(SetTemplateLoad, ShowsTheTemplateInForceAndLeavingChangesNothing) {
  const LoadRow& row = GetParam();
  Start(1);
  Mc().SlideTemplate(row.code);
  OpenHelp("help001.htm");
  bool asked = false;
  WhenModal<frmSetSlideTemplate>([&](frmSetSlideTemplate* d) {
    WhenModal<frmCommonDialog>([&asked](frmCommonDialog* f) {
      asked = true;
      f->cmdCancel->click();
    });
    QStringList checked;
    for (QRadioButton* o : d->findChildren<QRadioButton*>())
      if (o->isChecked()) checked << o->objectName();
    EXPECT_EQ(checked, QStringList{row.chosen});
    d->optVEH->setChecked(true);
    if (row.endWithF1)
      QTest::keyClick(d->optVEH, Qt::Key_F1);
    else
      d->cmdCancel->click();
  });
  Gallery().Item(MenuId::SlidesTemplate)->trigger();
  QCoreApplication::processEvents();
  EXPECT_FALSE(asked);
  EXPECT_EQ(Mc().SlideTemplate(), row.code);
  EXPECT_EQ(HelpPage(), row.endWithF1 ? "help015.htm" : "help001.htm");
}

INSTANTIATE_TEST_SUITE_P(Rows, SetTemplateLoad, ::testing::ValuesIn(kLoadRows), RowName());

}  // namespace
}  // namespace cb
