// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The embedded browser of the report viewer. Links never navigate by
// themselves: a followed link, by mouse or by keyboard (Tab to it, Enter),
// comes out as its href as the page writes it, "#" and blanks included.
// Pages are read as Windows-1252, and the fonts they name fall back to free
// look-alikes.

#include <QTextBrowser>
#include <optional>
#include <string>

namespace cb {

class ReportBrowser : public QTextBrowser {
  Q_OBJECT
 public:
  explicit ReportBrowser(QWidget* parent = nullptr);

  // Shows the page file at `path`, read afresh even when it is the one shown.
  void ShowPage(const std::string& path);

 signals:
  void LinkFollowed(const QString& href);
  // The context menu's Print.
  void PrintRequested();

 protected:
  QVariant loadResource(int type, const QUrl& name) override;
  void resizeEvent(QResizeEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  void contextMenuEvent(QContextMenuEvent* e) override;

 private:
  void AnchorClicked();
  // The href of the link the keyboard has selected.
  QString HrefUnderCursor() const;

  std::optional<QPoint> releasedAt_;  // set while a mouse release is handled
  QString keyHref_;                   // the selected link's, while a key is handled
};

}  // namespace cb
