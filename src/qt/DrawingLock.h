// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Holds a window's drawing while its elements change, so it repaints once;
// released on every way out of the scope.

#include <QPointer>
#include <QWidget>

namespace cb {

class DrawingLock {
 public:
  explicit DrawingLock(QWidget* w) : w_(w) {
    if (w_) w_->setUpdatesEnabled(false);
  }
  ~DrawingLock() {
    if (w_) w_->setUpdatesEnabled(true);
  }
  DrawingLock(const DrawingLock&) = delete;
  DrawingLock& operator=(const DrawingLock&) = delete;

 private:
  QPointer<QWidget> w_;
};

}  // namespace cb
