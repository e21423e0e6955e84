// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ProgramIcon.h"

#include <gtest/gtest.h>

#include <QImage>

namespace cb {
namespace {

struct Probe {
  double x, y;  // as a fraction of the side
  bool opaque;
  const char* where;
};

// Points that show the tile is drawn where it belongs at every size: clear
// around its rounded corners, solid inside.
constexpr Probe kProbes[] = {
    {0.0, 0.0, false, "the corner outside the tile"},
    {1.0, 1.0, false, "the opposite corner"},
    {0.5, 0.5, true, "the picture in the middle"},
    {0.12, 0.5, true, "the tile's left edge"},
    {0.78, 0.8, true, "the price tag"},
};

TEST(ProgramIcon, EverySizeIsTheTileOnAClearGround) {
  for (const int size : {16, 22, 32, 48, 128, 256}) {
    const QImage image = PaintProgramIcon(size).convertToFormat(QImage::Format_ARGB32);
    ASSERT_EQ(image.size(), QSize(size, size));
    for (const auto& p : kProbes) {
      SCOPED_TRACE(std::to_string(size) + " px, " + p.where);
      const int alpha = qAlpha(image.pixel(static_cast<int>(p.x * (size - 1)), static_cast<int>(p.y * (size - 1))));
      EXPECT_EQ(alpha, p.opaque ? 255 : 0);
    }
  }
  EXPECT_GE(ProgramIcon().availableSizes().size(), 4);
}

}  // namespace
}  // namespace cb
