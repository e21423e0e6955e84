// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A borderless what's-this note, placed from the screen's top left corner
// at the caller's twips. A click on it, a click anywhere else, or the note
// losing the focus takes it away; a click elsewhere still does its own work.

#include <QWidget>

class QLabel;

namespace cb {

class dlgWhat : public QWidget {
  Q_OBJECT
 public:
  // The note stays above `owner`, the active window by default.
  explicit dlgWhat(QWidget* owner = nullptr);

  QString WhatText;
  void SetHeight(long twips) { height_ = twips; }
  void SetWidth(long twips) { width_ = twips; }
  void SetLeft(long twips) { left_ = twips; }
  void SetTop(long twips) { top_ = twips; }

  // Loads the note from the members and shows it without waiting.
  void Show();

  QLabel* lblBack;
  QLabel* lblWhat;

 protected:
  void resizeEvent(QResizeEvent* e) override;
  void changeEvent(QEvent* e) override;
  bool eventFilter(QObject* watched, QEvent* e) override;

 private:
  long height_ = 2490, width_ = 5010, left_ = 0, top_ = 0;
  bool wasActive_ = false;
};

// Makes and shows a note of the given size at the last mouse press.
dlgWhat* ShowWhat(long heightTwips, long widthTwips, const QString& text);

}  // namespace cb
