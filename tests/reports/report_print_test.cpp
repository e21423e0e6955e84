// Print: the print dialog to a PDF file, and its failure.

#include <QComboBox>
#include <QLineEdit>
#include <QPrintDialog>

#include "ReportWindowFixture.h"
#include "dialogs/PagePrint.h"

namespace cb {
namespace {

using testing::WhenModal;

using testing::ReadFile;

class ReportPrintTest : public testing::ReportWindowFixture {
 protected:
  // Prints the viewer's page through the dialog, to a PDF file at `path`.
  void PrintTo(frmReport& r, const std::string& path) {
    bool dialogSeen = false;
    WhenModal([&](QWidget* w) {
      auto* dialog = qobject_cast<QPrintDialog*>(w);
      ASSERT_NE(dialog, nullptr);
      dialogSeen = true;
      auto* printers = dialog->findChild<QComboBox*>("printers");
      ASSERT_NE(printers, nullptr);
      printers->setCurrentIndex(printers->findText("Print to File (PDF)"));
      auto* file = dialog->findChild<QLineEdit*>("filename");
      ASSERT_NE(file, nullptr);
      file->setText(QString::fromStdString(path));
      dialog->accept();
    });
    r.PrintButton->trigger();
    EXPECT_TRUE(dialogSeen);
  }
};

// To a PDF file, then to a folder that is not there: the failure says why and what else to try.
TEST_F(ReportPrintTest, PrintWritesAPdfOrSaysWhyNot) {
  StartInventory();
  frmReport* r = OpenReport();
  ASSERT_NE(r, nullptr);
  PrintTo(*r, app / "summary.pdf");
  const std::string pdf = ReadFile(app / "summary.pdf");
  EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
  EXPECT_NE(pdf.find("/Title (\xFE\xFF"), std::string::npos);  // the page title names the document
  EXPECT_TRUE(messages.isEmpty()) << messages.join("\n").toStdString();

  PrintTo(*r, app / "no such folder/summary.pdf");
  ASSERT_EQ(messages.size(), 1);
  EXPECT_TRUE(messages[0].startsWith("Chattelbook: Print command Error: ")) << messages[0].toStdString();
  EXPECT_TRUE(
      messages[0].endsWith("\n\nChattelbook is having problems sending commands\n"
                           "directly to the printer.  Try right-clicking on the\n"
                           "report and selecting the 'Print' option."));
}

}  // namespace
}  // namespace cb
