// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Parts of the houses and flats of the sample gallery, all in front
// elevation: walls, roofs, windows, doors and what grows and stands around.

#include <QPainter>

#include "artwork/Paint.h"

namespace cb::assets {

enum class Cladding { Brick, Weatherboard, Render, Panels };
// A wall face of `cladding` in `colour` over `shape`, whose bounds are `r`.
void WallFace(QPainter& p, const QPainterPath& shape, const QRectF& r, Cladding cladding, const QColor& colour,
              quint32 seed);
// The shadow that eaves or a balcony throw on the wall below `y`, across `left`..`right`.
void EaveShadow(QPainter& p, double left, double right, double y, double depth);

enum class RoofKind { Hip, Gable, Flat, Skillion };
enum class Covering { Tiles, Iron };
// A roof over walls spanning `left`..`right` whose top is at `eave`. A gable
// fills its triangle with the wall; a skillion rises to the right.
struct RoofShape {
  RoofKind kind;
  Covering covering;
  QColor colour;
  double height;
  double overhang = 22;
};
void Roof(QPainter& p, const RoofShape& roof, double left, double right, double eave, Cladding gableWall,
          const QColor& wallColour, const QColor& trim);

// A window of `across` by `down` panes with a trim; arched at the top when asked.
void Window(QPainter& p, const QRectF& r, const QColor& trim, int across, int down, bool arched = false);
// A panelled front door with its frame and a light beside it.
void Door(QPainter& p, const QRectF& r, const QColor& colour, const QColor& trim);
// A ribbed roller or panel door of a garage.
void GarageDoor(QPainter& p, const QRectF& r, const QColor& colour);

// Suburban setting: sky, distant trees, lawn from `horizon` down.
void Suburb(QPainter& p, double horizon, const QColor& skyTop, const QColor& skyLow, const QColor& lawn, quint32 seed);
// A paved path or drive from `top` (its near end at the picture's foot).
void Paving(QPainter& p, double topLeft, double topRight, double top, double bottomLeft, double bottomRight,
            const QColor& colour);
void PicketFence(QPainter& p, double left, double right, double base, double height, const QColor& colour);
// A slender, dark, upright tree.
void Cypress(QPainter& p, QPointF base, double height);
void Palm(QPainter& p, QPointF base, double height, double lean);

}  // namespace cb::assets
