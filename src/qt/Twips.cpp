// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/Twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <cmath>

#include "base/Cp1252.h"

namespace cb {
namespace {

constexpr double kTwipsPerInch = 1440.0;

double DpiX() {
  const QScreen* s = QGuiApplication::primaryScreen();
  return s ? s->logicalDotsPerInchX() : 96.0;
}
double DpiY() {
  const QScreen* s = QGuiApplication::primaryScreen();
  return s ? s->logicalDotsPerInchY() : 96.0;
}

}  // namespace

int TwipsToPixelsX(double twips) { return static_cast<int>(std::lround(twips * DpiX() / kTwipsPerInch)); }
int TwipsToPixelsY(double twips) { return static_cast<int>(std::lround(twips * DpiY() / kTwipsPerInch)); }
double PixelsToTwipsX(int pixels) { return pixels * kTwipsPerInch / DpiX(); }
double PixelsToTwipsY(int pixels) { return pixels * kTwipsPerInch / DpiY(); }

QRect TwipsRect(double left, double top, double width, double height) {
  return {TwipsToPixelsX(left), TwipsToPixelsY(top), TwipsToPixelsX(width), TwipsToPixelsY(height)};
}

void CentreOnScreen(QWidget& w) {
  const QScreen* s = w.screen() ? w.screen() : QGuiApplication::primaryScreen();
  if (!s) return;
  const QRect screen = s->geometry();
  w.move(screen.left() + (screen.width() - w.width()) / 2, screen.top() + (screen.height() - w.height()) / 2);
}

QString ToQ(const std::string& cp1252) { return QString::fromStdString(Cp1252ToUtf8(cp1252)); }
std::string FromQ(const QString& text) { return Utf8ToCp1252Lossy(text.toStdString()); }
QString PathToQ(const std::string& path) { return QString::fromStdString(path); }
std::string PathFromQ(const QString& path) { return path.toStdString(); }
QString FilePath(const std::string& dir, const std::string& fieldName) { return PathToQ(dir) + ToQ(fieldName); }

}  // namespace cb
