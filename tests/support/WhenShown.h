// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Plays the user in a modal window that a call is about to open.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <string>
#include <type_traits>

namespace cb::testing {

// Runs `act` once a visible modal window that `wanted` accepts is up. After
// about five seconds without one it fails and closes whatever modal window
// stands in the way, so a wrong window cannot hang the run. A poll still
// waiting when its test ends is stopped there (see StopPolls).
inline void WhenModalIs(std::function<bool(QWidget&)> wanted, std::function<void(QWidget&)> act, std::string what) {
  auto* poll = new QTimer(qApp);
  poll->setObjectName("cb-poll");
  QObject::connect(poll, &QTimer::timeout, [=, ticksLeft = 1000]() mutable {
    QWidget* w = QApplication::activeModalWidget();
    const bool found = w && w->isVisible() && wanted(*w);
    if (!found && --ticksLeft > 0) return;
    poll->stop();
    poll->deleteLater();
    if (found) return act(*w);
    ADD_FAILURE() << what << " never showed";
    if (w) w->close();
  });
  poll->start(5);
}

// The modal window whose object name is `name`.
inline void WhenShown(const QString& name, std::function<void(QWidget&)> act) {
  WhenModalIs([name](QWidget& w) { return w.objectName() == name; }, std::move(act), name.toStdString());
}

// The next modal window of type T.
template <class T = QWidget>
void WhenModal(std::type_identity_t<std::function<void(T*)>> act) {
  WhenModalIs([](QWidget& w) { return qobject_cast<T*>(&w) != nullptr; },
              [act](QWidget& w) { act(qobject_cast<T*>(&w)); }, T::staticMetaObject.className());
}

inline void StopPolls() {
  for (QTimer* t : qApp->findChildren<QTimer*>("cb-poll", Qt::FindDirectChildrenOnly)) delete t;
}

}  // namespace cb::testing
