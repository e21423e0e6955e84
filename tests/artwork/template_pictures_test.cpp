#include "artwork/TemplatePictures.h"

#include <gtest/gtest.h>

#include <QImage>

namespace cb {
namespace {

TEST(TemplatePictures, EachTemplateHasAPictureOfItsOwnAtTheSizeAsked) {
  QImage drawn[3];
  for (int code = 1; code <= 3; ++code) {
    const QPixmap pm = TemplatePicture(code, 32);
    ASSERT_EQ(pm.size(), QSize(32, 32)) << code;
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
