// The report chooser: the kind of report by template, the font kept in the
// file's header, OK and Help.

#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>

#include "ReportWindowFixture.h"
#include "qt/OpenForms.h"
#include "reports/frmSelectReport.h"

namespace cb {
namespace {

using testing::WhenModal;

using testing::ReadFile;

class SelectReportTest : public testing::ReportWindowFixture {
 protected:
  // The report font as the file on disk holds it.
  std::string StoredFont() {
    ModGlobal other;
    UIMainController mc(app.str(), settings, other);
    ErrorArray errors;
    EXPECT_TRUE(Report(mc.LoadSettings(), errors)) << errors[2];
    return mc.ReportFont();
  }
};

TEST_F(SelectReportTest, TheFirstOptionIsCaptionedByTemplate) {
  StartInventory();
  struct Row {
    std::int32_t slideTemplate;
    const char* caption;
    std::int32_t after;
  };
  const Row rows[] = {{1, "Report By Location", 1},
                      {2, "Report By Suburb", 2},
                      {3, "Report By Year", 3},
                      {0, "Report By Location", 1},
                      {9, "Report By Location", 1}};
  for (const Row& row : rows) {
    Mc().SlideTemplate(row.slideTemplate);
    frmSelectReport dialog;
    EXPECT_EQ(dialog.optLocation->text(), row.caption) << row.slideTemplate;
    EXPECT_TRUE(dialog.optLocation->isChecked());
    EXPECT_EQ(dialog.optCategory->text(), "Report By Category");
    EXPECT_EQ(Mc().SlideTemplate(), row.after);
  }
  EXPECT_EQ(StoredFont(), "");  // the correction stays in memory
}

TEST_F(SelectReportTest, APickedFontIsSavedInTheFileATypedOneServesOneReport) {
  StartInventory();
  Mc().ReportFont("");
  {
    frmSelectReport dialog;
    EXPECT_EQ(dialog.cboFont->currentText(), "Arial Narrow");
    dialog.cboFont->setCurrentIndex(2);
    emit dialog.cboFont->activated(2);
    dialog.cmdCancel->click();  // the pick is already kept
  }
  EXPECT_EQ(StoredFont(), "Courier New");

  WhenModal([](QWidget* w) {
    auto* dialog = qobject_cast<frmSelectReport*>(w);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->cboFont->currentText(), "Courier New");
    dialog->optCategory->setChecked(true);
    dialog->cboFont->setEditText("Comic Sans MS");
    dialog->cmdOK->click();
  });
  TheMDIMain().Toolbar1_ButtonClick(ToolbarButton::Report);
  auto* report = qobject_cast<frmReport*>(FindOpenForm("frmReport"));
  ASSERT_NE(report, nullptr);
  EXPECT_EQ(report->WebBrowser1->documentTitle(), "Report By Category");
  EXPECT_NE(ReadFile(Reports("Report1.htm")).find("face='Comic Sans MS'"), std::string::npos);
  EXPECT_EQ(StoredFont(), "Courier New");
}

}  // namespace
}  // namespace cb
