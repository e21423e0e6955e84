// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The search of the open windows by object name ("frmSlide").

#include <QString>

class QWidget;

namespace cb {

// The open window whose object name is `name`, or null.
QWidget* FindOpenForm(const QString& name);

}  // namespace cb
