// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The title picture shown while the program starts. A click closes it early.

#include <QLabel>

namespace cb {

class frmSplash : public QLabel {
  Q_OBJECT
 public:
  frmSplash();

 protected:
  void mousePressEvent(QMouseEvent* e) override;
};

}  // namespace cb
