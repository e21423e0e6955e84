// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Fonts for faces that the notes and pages name but this system may lack.
// A missing face is not left to the font system's first guess, which may be
// wider and push a note's last words out of its fixed box: a stand-in is
// chosen by measuring it against the face's own advance widths.

#include <QFont>
#include <QSize>
#include <QStringList>

namespace cb {

// `family` at `points` where it is installed. Otherwise, of its installed
// stand-ins, the one whose width of `sample` comes nearest the family's own
// without passing it; when every one passes it, the narrowest, made smaller
// until it does not. A family the table does not know is left as it is.
QFont LookAlike(const QString& family, double points, const QString& sample);
// The same, taking the families in `installed` to be the only ones on the system.
QFont LookAlike(const QString& family, double points, const QString& sample, const QStringList& installed);

// `font` made smaller, a quarter point at a time and a point at most, until
// `text` wrapped at the width of `box` fits in it; `font` itself when it fits
// already or will not fit within the point.
QFont FittedInto(const QFont& font, const QString& text, QSize box);

}  // namespace cb
