// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/ReportBrowser.h"

#include <QContextMenuEvent>
#include <QFile>
#include <QFont>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <algorithm>

#include "qt/Twips.h"
#include "reports/ViewerRules.h"

namespace cb {
namespace {

constexpr char kPrintItem[] = "Print";

QString Latin(std::string_view s) { return QString::fromLatin1(s.data(), static_cast<qsizetype>(s.size())); }

// Qt takes a substitute only for a family that is not installed, so a real
// "Arial Narrow" still wins.
void InstallFontFallbacks() {
  static const bool installed = [] {
    for (const std::string_view face : kReportFonts) {
      QStringList families;
      for (const std::string_view f : FontFallbacks(face)) families << Latin(f);
      QFont::insertSubstitutions(Latin(face), families);
    }
    return true;
  }();
  (void)installed;
}

}  // namespace

ReportBrowser::ReportBrowser(QWidget* parent) : QTextBrowser(parent) {
  InstallFontFallbacks();
  setOpenLinks(false);
  setOpenExternalLinks(false);
  setLineWrapMode(QTextEdit::FixedPixelWidth);  // the width is the view's, less the pixel (see resizeEvent)
  connect(this, &QTextBrowser::anchorClicked, this, &ReportBrowser::AnchorClicked);
}

void ReportBrowser::ShowPage(const std::string& path) {
  const QUrl url = QUrl::fromLocalFile(PathToQ(path));
  if (url == source())
    reload();
  else
    setSource(url);
}

QVariant ReportBrowser::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::HtmlResource || !name.isLocalFile()) return QTextBrowser::loadResource(type, name);
  QFile file(name.toLocalFile());
  if (!file.open(QIODevice::ReadOnly)) return {};
  const QByteArray bytes = file.readAll();
  return ToQ(RowsOpened(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
}

// The toolkit rounds a page's percentage columns up, so a page that fits
// could lay out a fraction of a pixel wider than its view and get a
// horizontal scroll bar; laid out a pixel narrower, it keeps within the view.
void ReportBrowser::resizeEvent(QResizeEvent* e) {
  setLineWrapColumnOrWidth(std::max(0, viewport()->width() - 1));
  QTextBrowser::resizeEvent(e);
}

void ReportBrowser::mouseReleaseEvent(QMouseEvent* e) {
  releasedAt_ = e->position().toPoint();
  QTextBrowser::mouseReleaseEvent(e);
  releasedAt_.reset();
}

// The toolkit drops the selection of the link before it reports it.
void ReportBrowser::keyPressEvent(QKeyEvent* e) {
  keyHref_ = HrefUnderCursor();
  QTextBrowser::keyPressEvent(e);
  keyHref_.clear();
}

// The toolkit hands over the link as a parsed URL, which loses a "#" to the
// fragment; the raw href is read where the link was activated.
void ReportBrowser::AnchorClicked() {
  const QString href = releasedAt_ ? anchorAt(*releasedAt_) : keyHref_;
  if (!href.isEmpty()) emit LinkFollowed(href);
}

QString ReportBrowser::HrefUnderCursor() const {
  QTextCursor c = textCursor();
  if (c.selectionStart() != c.position()) c.setPosition(c.selectionStart());
  c.movePosition(QTextCursor::NextCharacter);
  return c.charFormat().anchorHref();
}

void ReportBrowser::contextMenuEvent(QContextMenuEvent* e) {
  QMenu* menu = createStandardContextMenu(e->pos());
  menu->addSeparator();
  menu->addAction(kPrintItem, this, &ReportBrowser::PrintRequested);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->popup(e->globalPos());
}

}  // namespace cb
