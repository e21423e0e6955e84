// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The program's one message box: text, style and title in, the button out.
// Tests answer it through a hook instead of a modal loop.

#include <QString>
#include <functional>

namespace cb {

enum MsgBoxStyle {
  vbOKOnly = 0,
  vbOKCancel = 1,
  vbYesNoCancel = 3,
  vbYesNo = 4,
  vbCritical = 16,
  vbQuestion = 32,
  vbExclamation = 48,
  vbInformation = 64,
};

enum MsgBoxResult { vbOK = 1, vbCancel = 2, vbYes = 6, vbNo = 7 };

using MsgBoxHook = std::function<int(const QString& text, int style, const QString& title)>;

// Shows the message and returns the button pressed (vbOK, vbYes, ...).
int MsgBox(const QString& text, int style, const QString& title);

// Replaces the box by `hook` until reset with an empty hook.
void SetMsgBoxHook(MsgBoxHook hook);

}  // namespace cb
