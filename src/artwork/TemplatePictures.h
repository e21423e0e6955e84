// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The small pictures beside the three slide templates in the template
// dialog, drawn in code: a house behind a padlock (Home Security), a house
// with a sale board (Real Estate) and a car (Car Yard).

#include <QPixmap>
#include <cstdint>

namespace cb {

// The picture of template `code` (1 to 3), `side` pixels square on a
// transparent ground; a null pixmap for any other code.
QPixmap TemplatePicture(std::int32_t code, int side);

}  // namespace cb
