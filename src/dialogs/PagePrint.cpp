// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/PagePrint.h"

#include <QFile>
#include <QPrintDialog>
#include <QPrinter>
#include <QTextBrowser>
#include <QTextFrame>
#include <memory>

#include "model/PrintText.h"
#include "qt/MsgBox.h"
#include "state/MDIMainRules.h"

namespace cb {
namespace {

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

void PrintBrowser(QTextBrowser& browser, std::string_view topic) {
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
  MsgBox(QString::fromStdString(PrintErrorText(error.toStdString(), topic)), vbOKOnly, kAppTitle);
}

}  // namespace cb
