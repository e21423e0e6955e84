// SPDX-License-Identifier: GPL-3.0-or-later
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

using testing::RowName;
using testing::WhenModal;

class SetTemplateTest : public testing::EditorFixture {};

TEST_F(SetTemplateTest, ChosenTemplateStaysInForceWhenNewIsCancelled) {
  Start(3);
  Globals().Slides[2].Set(Field::Serial, "ABC-123");
  Mc().SlideTemplate(1);
  const std::int32_t inFile = OnDisk().slideTemplate;
  QString asked;
  WhenModal<frmSetSlideTemplate>([&asked](frmSetSlideTemplate* d) {
    WhenModal<frmCommonDialog>([&asked](frmCommonDialog* f) {
      asked = f->DialogTitle;
      f->cmdCancel->click();
    });
    d->optVEH->click();
    d->cmdOK->click();
  });
  Gallery().Item(MenuId::SlidesTemplate)->trigger();
  QCoreApplication::processEvents();  // the command runs once the menu is done
  EXPECT_EQ(asked, "New");
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

struct LoadRow {
  const char* name;
  std::int32_t code;
  const char* chosen;
  const char* end;  // the button or key that leaves the dialog
};

const LoadRow kLoadRows[] = {
    {"home", 1, "optHome", "cmdCancel"},
    {"real_estate_ok_unchanged_still_asks_for_a_new_file", 2, "optRE", "cmdOK"},
    {"car_yard_left_by_f1", 3, "optVEH", "F1"},
    {"unknown_code", 9, "optHome", "cmdCancel"},
};

class SetTemplateLoad : public SetTemplateTest, public ::testing::WithParamInterface<LoadRow> {};

// Cancel and F1 both leave the template alone and ask for no new file; OK always asks.
TEST_P(SetTemplateLoad, ShowsTheTemplateInForceAndLeavingChangesNothing) {
  const LoadRow& row = GetParam();
  Start(1);
  Mc().SlideTemplate(row.code);
  OpenHelp("help001.htm");
  QString asked;
  WhenModal<frmSetSlideTemplate>([&](frmSetSlideTemplate* d) {
    WhenModal<frmCommonDialog>([&asked](frmCommonDialog* f) {
      asked = f->DialogTitle;
      f->cmdCancel->click();
    });
    QStringList checked;
    for (QRadioButton* o : d->findChildren<QRadioButton*>())
      if (o->isChecked()) checked << o->objectName();
    EXPECT_EQ(checked, QStringList{row.chosen});
    if (std::string(row.end) == "cmdOK") return d->cmdOK->click();
    d->optVEH->setChecked(true);
    if (std::string(row.end) == "cmdCancel") return d->cmdCancel->click();
    EXPECT_TRUE(QTest::qWaitForWindowActive(d));  // F1 is the active window's
    QTest::keyClick(d->optVEH, Qt::Key_F1);
    if (d->isVisible()) d->cmdCancel->click();  // F1 went nowhere
  });
  Gallery().Item(MenuId::SlidesTemplate)->trigger();
  QCoreApplication::processEvents();
  EXPECT_EQ(asked, std::string(row.end) == "cmdOK" ? "New" : "");
  EXPECT_EQ(Mc().SlideTemplate(), row.code);
  EXPECT_EQ(HelpPage(), std::string(row.end) == "F1" ? "help015.htm" : "help001.htm");
}

INSTANTIATE_TEST_SUITE_P(Rows, SetTemplateLoad, ::testing::ValuesIn(kLoadRows), RowName());

}  // namespace
}  // namespace cb
