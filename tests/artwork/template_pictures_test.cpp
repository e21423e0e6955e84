#include "artwork/TemplatePictures.h"

#include <gtest/gtest.h>

#include <QImage>

namespace cb {
namespace {

// The share of the square that the drawing covers.
double Covered(const QPixmap& pm) {
  const QImage image = pm.toImage().convertToFormat(QImage::Format_ARGB32);
  int opaque = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) opaque += qAlpha(image.pixel(x, y)) > 128;
  return double(opaque) / (image.width() * image.height());
}

TEST(TemplatePictures, EachTemplateHasAPictureOfItsOwnAtTheSizeAsked) {
  QImage drawn[3];
  for (int code = 1; code <= 3; ++code) {
    const QPixmap pm = TemplatePicture(code, 32);
    ASSERT_EQ(pm.size(), QSize(32, 32)) << code;
    EXPECT_GT(Covered(pm), 0.3) << code;  // a picture, not a speck
    EXPECT_LT(Covered(pm), 0.9) << code;  // on a transparent ground
    drawn[code - 1] = pm.toImage();
  }
  EXPECT_NE(drawn[0], drawn[1]);
  EXPECT_NE(drawn[1], drawn[2]);
  EXPECT_NE(drawn[0], drawn[2]);
  EXPECT_TRUE(TemplatePicture(0, 32).isNull());
  EXPECT_TRUE(TemplatePicture(4, 32).isNull());
}

}  // namespace
}  // namespace cb
