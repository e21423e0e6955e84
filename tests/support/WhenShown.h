#pragma once
// Plays the user in a modal window that a call is about to open.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <functional>

namespace cb::testing {

// Runs `act` once a modal window named `name` is up and visible; a failure,
// and the window closed, when none comes within about five seconds.
inline void WhenShown(const QString& name, std::function<void(QWidget&)> act, int triesLeft = 500) {
  QTimer::singleShot(10, [=] {
    QWidget* w = QApplication::activeModalWidget();
    if (w && w->objectName() == name && w->isVisible()) return act(*w);
    if (triesLeft > 0) return WhenShown(name, act, triesLeft - 1);
    ADD_FAILURE() << name.toStdString() << " never showed";
    if (w) w->close();
  });
}

}  // namespace cb::testing
