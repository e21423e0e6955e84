#include "artwork/ProgramIcon.h"

#include <gtest/gtest.h>

#include <QImage>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "support/TempDir.h"

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

// The scalable icon and the painted sizes come from one table; drawn by
// another renderer, the SVG must give the same picture.
TEST(ProgramIcon, SvgDrawsTheSamePictureAsThePainter) {
  if (std::system("command -v rsvg-convert >/dev/null") != 0) GTEST_SKIP() << "rsvg-convert is not installed";
  testing::TempDir dir;
  const std::string svg = dir / "icon.svg", png = dir / "icon.png";
  std::ofstream(svg) << ProgramIconSvg();
  const std::string command = "rsvg-convert -w 128 -h 128 -o '" + png + "' '" + svg + "'";
  ASSERT_EQ(std::system(command.c_str()), 0);
  const QImage theirs = QImage(QString::fromStdString(png)).convertToFormat(QImage::Format_ARGB32);
  const QImage ours = PaintProgramIcon(128).convertToFormat(QImage::Format_ARGB32);
  ASSERT_EQ(theirs.size(), ours.size());
  int differing = 0;
  for (int y = 0; y < 128; ++y)
    for (int x = 0; x < 128; ++x) {
      const QRgb a = theirs.pixel(x, y), b = ours.pixel(x, y);
      const int d = std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                              std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - qAlpha(b))});
      if (d > 48) ++differing;  // antialiased edges may differ a little
    }
  EXPECT_LT(differing, 128 * 128 / 100);
}

}  // namespace
}  // namespace cb
