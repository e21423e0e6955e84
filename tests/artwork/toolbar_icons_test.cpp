#include "artwork/ToolbarIcons.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QSet>

#include <cstdlib>

namespace cb {
namespace {

const char* const kKeys[] = {"New",    "Open",       "Edit", "Report", "Zoom",     "Unzoom",
                             "Window", "Background", "Help", "Print",  "Previous", "Next"};
constexpr int kSizes[] = {16, 24, 32, 48};
constexpr double kRatios[] = {1.0, 2.0};

// What a picture holds, pixel by pixel.
struct Survey {
  int opaque = 0;   // alpha 255
  int partial = 0;  // neither clear nor opaque
  int colours = 0;  // distinct colours among the opaque pixels
  bool grey = true; // every visible pixel has red = green = blue, give or take rounding
};

Survey Look(const QPixmap& pm) {
  const QImage image = pm.toImage().convertToFormat(QImage::Format_ARGB32);
  Survey s;
  QSet<QRgb> seen;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QRgb c = image.pixel(x, y);
      const int a = qAlpha(c);
      if (a == 255) {
        ++s.opaque;
        seen.insert(c);
      } else if (a > 0) {
        ++s.partial;
      }
      if (a > 0 && (std::abs(qRed(c) - qGreen(c)) > 1 || std::abs(qGreen(c) - qBlue(c)) > 1)) s.grey = false;
    }
  }
  s.colours = seen.size();
  return s;
}

QImage Pixels(const QPixmap& pm) { return pm.toImage().convertToFormat(QImage::Format_ARGB32); }

TEST(ToolbarIcon, EveryKeyDrawsAtEverySizeAndRatio) {
  for (const char* key : kKeys) {
    const QIcon icon = ToolbarIcon(key);
    ASSERT_FALSE(icon.isNull()) << key;
    for (int size : kSizes) {
      for (double ratio : kRatios) {
        SCOPED_TRACE(testing::Message() << key << " at " << size << " px, ratio " << ratio);
        const QPixmap normal = icon.pixmap(QSize(size, size), ratio, QIcon::Normal);
        const QPixmap disabled = icon.pixmap(QSize(size, size), ratio, QIcon::Disabled);
        const QSize device(static_cast<int>(size * ratio), static_cast<int>(size * ratio));
        EXPECT_EQ(normal.size(), device);
        EXPECT_EQ(disabled.size(), device);
        EXPECT_EQ(normal.deviceIndependentSize(), QSizeF(size, size));

        const Survey n = Look(normal);
        const Survey d = Look(disabled);
        EXPECT_GT(n.opaque, device.width() * device.height() / 10);
        EXPECT_GE(n.colours, 3);
        EXPECT_FALSE(n.grey);
        EXPECT_GE(d.colours, 2);
        EXPECT_TRUE(d.grey);
        EXPECT_NE(Pixels(normal), Pixels(disabled));
      }
    }
  }
}

TEST(ToolbarIcon, NinePicturesAreNineDifferentDrawings) {
  QList<QImage> drawn;
  for (const char* key : kKeys) drawn.append(Pixels(ToolbarIcon(key).pixmap(QSize(24, 24), 1.0)));
  for (qsizetype i = 0; i < drawn.size(); ++i)
    for (qsizetype j = i + 1; j < drawn.size(); ++j) EXPECT_NE(drawn[i], drawn[j]) << kKeys[i] << " and " << kKeys[j];
}

// The cascade is all straight edges: on the pixel grid nothing needs smoothing.
TEST(ToolbarIcon, StraightEdgesFallOnWholePixels) {
  const QIcon icon = ToolbarIcon("Window");
  for (int size : kSizes)
    for (double ratio : kRatios)
      EXPECT_EQ(Look(icon.pixmap(QSize(size, size), ratio)).partial, 0) << size << " px, ratio " << ratio;
}

TEST(ToolbarIcon, PaintingOnAHighDensityDeviceUsesItsPixels) {
  const QIcon icon = ToolbarIcon("Report");
  QImage target(48, 48, QImage::Format_ARGB32_Premultiplied);
  target.setDevicePixelRatio(2.0);
  target.fill(Qt::transparent);
  {
    QPainter p(&target);
    icon.paint(&p, QRect(0, 0, 24, 24));
  }
  const QImage expected = Pixels(icon.pixmap(QSize(24, 24), 2.0));
  QImage painted = target.convertToFormat(QImage::Format_ARGB32);
  painted.setDevicePixelRatio(expected.devicePixelRatio());
  EXPECT_EQ(painted, expected);
}

TEST(ToolbarIcon, OddShapedRequestsKeepTheirSize) {
  const QPixmap wide = ToolbarIcon("Help").pixmap(QSize(40, 24), 1.0);
  EXPECT_EQ(wide.size(), QSize(40, 24));
  const QImage image = Pixels(wide);
  // The picture stands in the middle: the outer columns stay clear.
  for (int y = 0; y < image.height(); ++y) {
    EXPECT_EQ(qAlpha(image.pixel(0, y)), 0);
    EXPECT_EQ(qAlpha(image.pixel(image.width() - 1, y)), 0);
  }
  EXPECT_GT(Look(wide).opaque, 0);
}

TEST(ToolbarIcon, UnknownKeysGiveANullIcon) {
  // "Back" is the button's key; its picture goes by "Background".
  const char* const unknown[] = {"", "Back", "new", "HELP", "Zoom ", "print", "Save"};
  for (const char* key : unknown) EXPECT_TRUE(ToolbarIcon(key).isNull()) << '"' << key << '"';
}

}  // namespace
}  // namespace cb
