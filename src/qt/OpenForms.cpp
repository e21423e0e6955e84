// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/OpenForms.h"

#include <QApplication>
#include <QWidget>

namespace cb {

QWidget* FindOpenForm(const QString& name) {
  for (QWidget* w : QApplication::allWidgets())
    if (w->objectName() == name) return w;
  return nullptr;
}

}  // namespace cb
