#pragma once
// A borderless what's-this note, placed from the screen's top left corner
// at the caller's twips and gone at the next click anywhere.

#include <QWidget>

class QLabel;

namespace cb {

class dlgWhat : public QWidget {
  Q_OBJECT
 public:
  dlgWhat();

  QString WhatText;
  void SetHeight(long twips) { height_ = twips; }
  void SetWidth(long twips) { width_ = twips; }
  void SetLeft(long twips) { left_ = twips; }
  void SetTop(long twips) { top_ = twips; }

  // Loads the note from the members and shows it without waiting.
  void Show();

 protected:
  void resizeEvent(QResizeEvent* e) override;
  bool eventFilter(QObject* watched, QEvent* e) override;

 private:
  QLabel* lblBack;
  QLabel* lblWhat;
  long height_ = 2490, width_ = 5010, left_ = 0, top_ = 0;
};

// Makes and shows a note of the given size at the last mouse press.
void ShowWhat(long heightTwips, long widthTwips, const QString& text);

}  // namespace cb
