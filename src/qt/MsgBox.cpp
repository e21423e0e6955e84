// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/MsgBox.h"

#include <QApplication>
#include <QMessageBox>

namespace cb {
namespace {

MsgBoxHook& Hook() {
  static MsgBoxHook hook;
  return hook;
}

QMessageBox::Icon IconOf(int style) {
  switch (style & 0x70) {
    case vbCritical: return QMessageBox::Critical;
    case vbQuestion: return QMessageBox::Question;
    case vbExclamation: return QMessageBox::Warning;
    case vbInformation: return QMessageBox::Information;
    default: return QMessageBox::NoIcon;
  }
}

struct ButtonSet {
  int style;
  QMessageBox::StandardButtons buttons;
};

constexpr ButtonSet kButtonSets[] = {
    {vbOKOnly, QMessageBox::Ok},
    {vbOKCancel, QMessageBox::Ok | QMessageBox::Cancel},
    {vbYesNoCancel, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel},
    {vbYesNo, QMessageBox::Yes | QMessageBox::No},
};

int ResultOf(QMessageBox::StandardButton b) {
  switch (b) {
    case QMessageBox::Yes: return vbYes;
    case QMessageBox::No: return vbNo;
    case QMessageBox::Cancel: return vbCancel;
    default: return vbOK;
  }
}

}  // namespace

int MsgBox(const QString& text, int style, const QString& title) {
  if (Hook()) return Hook()(text, style, title);
  QMessageBox box(IconOf(style), title, text, QMessageBox::NoButton, QApplication::activeWindow());
  for (const auto& set : kButtonSets)
    if (set.style == (style & 0x7)) box.setStandardButtons(set.buttons);
  return ResultOf(static_cast<QMessageBox::StandardButton>(box.exec()));
}

void SetMsgBoxHook(MsgBoxHook hook) { Hook() = std::move(hook); }

}  // namespace cb
