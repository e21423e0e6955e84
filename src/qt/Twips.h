// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Window measures are kept in twips (1440 an inch) and turned into pixels
// at the widget with the screen's logical DPI.

#include <QPoint>
#include <QRect>
#include <QString>
#include <string>
#include <string_view>

#include "model/Geometry.h"

class QWidget;

namespace cb {

int TwipsToPixelsX(double twips);
int TwipsToPixelsY(double twips);
double PixelsToTwipsX(int pixels);
double PixelsToTwipsY(int pixels);

// A rectangle given in twips, as pixels.
QRect TwipsRect(double left, double top, double width, double height);
inline QRect TwipsRect(const ElementRect& r) { return TwipsRect(r.Left, r.Top, r.Width, r.Height); }

// Moves a top-level window to the centre of its screen.
void CentreOnScreen(QWidget& w);

// The program's text (Windows-1252 bytes) as a QString, and back.
QString ToQ(const std::string& cp1252);
std::string FromQ(const QString& text);
// A table's own text (ASCII or UTF-8) as a QString.
inline QString Utf8ToQ(std::string_view utf8) { return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())); }

// Paths are the file system's own bytes (UTF-8), not the files' code page.
QString PathToQ(const std::string& path);
std::string PathFromQ(const QString& path);
// The file named by a record's field (Windows-1252) in directory `dir`.
QString FilePath(const std::string& dir, const std::string& fieldName);

}  // namespace cb
