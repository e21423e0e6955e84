// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The window flags every fixed-size dialog of the program shares.

#include <Qt>

namespace cb {

// A dialog of fixed size with a title and a close button, and no minimise or maximise.
inline constexpr Qt::WindowFlags kFixedDialog = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                                Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint |
                                                Qt::MSWindowsFixedSizeDialogHint;

}  // namespace cb
