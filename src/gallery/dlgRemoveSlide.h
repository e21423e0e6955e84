// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The question before a slide leaves the collection.

#include <QDialog>

class QLabel;
class QPushButton;

namespace cb {

class dlgRemoveSlide : public QDialog {
  Q_OBJECT
 public:
  dlgRemoveSlide();
  bool Confirmed = false;
  QLabel* Label1;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
  QPushButton* cmdHelp;
};

}  // namespace cb
