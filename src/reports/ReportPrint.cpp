#include "reports/ReportPrint.h"

#include <QFile>
#include <QPrintDialog>
#include <QPrinter>
#include <QTextBrowser>
#include <QTextFrame>
#include <memory>

#include "app/MDIMainRules.h"
#include "qt/MsgBox.h"

namespace cb {
namespace {

constexpr char kPrintDisabled[] = "The Print command is currently disabled.";
constexpr char kPrintError[] = "Print command Error: ";
constexpr char kPrintAdvice[] =
    "\n\nChattelbook is having problems sending commands\n"
    "directly to the printer.  Try right-clicking on the\n"
    "report and selecting the 'Print' option.";
constexpr char kPrinterFailed[] = "The printer could not take the document.";

}  // namespace

QString PrintDocument(const QTextDocument& document, QPrinter& printer) {
  // The PDF engine only warns on the console when its file cannot be made.
  if (printer.outputFormat() == QPrinter::PdfFormat) {
    QFile probe(printer.outputFileName());
    if (!probe.open(QIODevice::WriteOnly)) return probe.errorString();
  }
  // Paper gets the text and tables without the page's background, as web browsers print.
  const std::unique_ptr<QTextDocument> copy(document.clone());
  QTextFrameFormat page = copy->rootFrame()->frameFormat();
  page.clearBackground();
  copy->rootFrame()->setFrameFormat(page);
  copy->print(&printer);
  return printer.printerState() == QPrinter::Error ? QString(kPrinterFailed) : QString();
}

void PrintBrowser(QTextBrowser& browser, PrintAdvice advice) {
  if (browser.document()->isEmpty()) {
    MsgBox(kPrintDisabled, vbOKOnly, kAppTitle);
    return;
  }
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(browser.documentTitle());
  QPrintDialog dialog(&printer, browser.window());
  if (dialog.exec() != QDialog::Accepted) return;
  const QString error = PrintDocument(*browser.document(), printer);
  if (error.isEmpty()) return;
  MsgBox(kPrintError + error + (advice == PrintAdvice::ContextMenu ? kPrintAdvice : ""), vbOKOnly, kAppTitle);
}

}  // namespace cb
