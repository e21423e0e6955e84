// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Printing a viewer's page: the print dialog, which on Linux also prints to
// a PDF file, then the document laid out on the printer's pages.

#include <QString>
#include <string_view>

class QPrinter;
class QTextBrowser;
class QTextDocument;

namespace cb {

// The Print command: a message when the browser has no page to print, else
// the print dialog and, when it is accepted, the print, with a message when
// that fails, whose advice names `topic` ("report", "help topic").
void PrintBrowser(QTextBrowser& browser, std::string_view topic);

// Prints `document` on `printer`, already set up; the description of what
// went wrong, or an empty string.
QString PrintDocument(const QTextDocument& document, QPrinter& printer);

}  // namespace cb
