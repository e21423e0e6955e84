#pragma once
// Plays the user in a modal window that a call is about to open.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <type_traits>

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

// Runs `act` on the next modal window of type T once it is up. A poll that
// never fires is ended with the test (see StopPolls).
template <class T = QWidget>
void WhenModal(std::type_identity_t<std::function<void(T*)>> act) {
  auto* poll = new QTimer(qApp);
  poll->setObjectName("cb-poll");
  QObject::connect(poll, &QTimer::timeout, [poll, act] {
    if (auto* d = qobject_cast<T*>(QApplication::activeModalWidget())) {
      poll->stop();
      poll->deleteLater();
      act(d);
    }
  });
  poll->start(5);
}

inline void StopPolls() {
  for (QTimer* t : qApp->findChildren<QTimer*>("cb-poll", Qt::FindDirectChildrenOnly)) delete t;
}

}  // namespace cb::testing
