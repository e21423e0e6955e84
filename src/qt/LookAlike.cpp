// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/LookAlike.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <optional>

#include "base/FaceMetrics.h"
#include "qt/Twips.h"

namespace cb {
namespace {

constexpr double kStep = 0.25, kMostShrink = 1.0, kSmallest = 1.0;  // points
constexpr int kWrapped = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;

QFont Face(const QString& family, double points) {
  QFont font(family);
  font.setPointSizeF(points);
  return font;
}

double Width(const QString& family, double points, const QString& sample) {
  return QFontMetricsF(Face(family, points)).horizontalAdvance(sample);
}

}  // namespace

QFont LookAlike(const QString& family, double points, const QString& sample) {
  QStringList installed;
  if (QFontDatabase::hasFamily(family)) installed << family;
  if (const NamedFace* face = FindNamedFace(family.toStdString()))
    for (const std::string_view f : StandIns(*face))
      if (QFontDatabase::hasFamily(Utf8ToQ(f))) installed << Utf8ToQ(f);
  return LookAlike(family, points, sample, installed);
}

QFont LookAlike(const QString& family, double points, const QString& sample, const QStringList& installed) {
  const NamedFace* face = FindNamedFace(family.toStdString());
  if (!face || installed.contains(family)) return Face(family, points);
  const QString line = sample.simplified();  // measured as one line, as the table counts it
  // A point is 20 twips.
  const double own = WidthInEms(*face, line.toStdString()) * points * 20 / PixelsToTwipsY(1);
  QStringList standIns;
  for (const std::string_view f : StandIns(*face))
    if (installed.contains(Utf8ToQ(f))) standIns << Utf8ToQ(f);
  if (standIns.isEmpty()) standIns << QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
  std::optional<QString> nearest, narrowest;
  double nearestWidth = 0, narrowestWidth = 0;
  for (const QString& f : standIns) {
    const double w = Width(f, points, line);
    if (w <= own && (!nearest || w > nearestWidth)) {
      nearest = f;
      nearestWidth = w;
    }
    if (!narrowest || w < narrowestWidth) {
      narrowest = f;
      narrowestWidth = w;
    }
  }
  if (nearest) return Face(*nearest, points);
  double smaller = points * own / narrowestWidth;
  while (smaller > kSmallest && Width(*narrowest, smaller, line) > own) smaller -= kStep;
  return Face(*narrowest, smaller);
}

QFont FittedInto(const QFont& font, const QString& text, QSize box) {
  const QRectF room(QPointF(), box);
  for (double shrink = 0; shrink <= kMostShrink; shrink += kStep) {
    QFont smaller = font;
    smaller.setPointSizeF(font.pointSizeF() - shrink);
    if (room.contains(QFontMetricsF(smaller).boundingRect(room, kWrapped, text))) return smaller;
  }
  return font;
}

}  // namespace cb
