// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QImage>
#include <QPixmap>
#include <QSet>

#include "artwork/ProgramIcon.h"
#include "artwork/TemplatePictures.h"
#include "artwork/ToolbarIcons.h"

namespace cb {
namespace {

const char* const kKeys[] = {"New",    "Open",       "Edit", "Report", "Zoom",     "Unzoom",
                             "Window", "Background", "Help", "Print",  "Previous", "Next"};

// What a picture holds: opaque and half-clear pixels, opaque colours, and whether all is grey.
struct Survey {
  int opaque = 0, partial = 0, colours = 0;
  bool grey = true;
};

Survey Look(const QPixmap& pm) {
  const QImage image = pm.toImage().convertToFormat(QImage::Format_ARGB32);
  Survey s;
  QSet<QRgb> seen;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const QRgb c = image.pixel(x, y);
      const int a = qAlpha(c);
      s.partial += a > 0 && a < 255;
      if (a == 255) ++s.opaque, seen.insert(c);
      if (a > 0 && (std::abs(qRed(c) - qGreen(c)) > 1 || std::abs(qGreen(c) - qBlue(c)) > 1)) s.grey = false;
    }
  s.colours = static_cast<int>(seen.size());
  return s;
}

TEST(ToolbarIcon, EveryKeyDrawsAtEverySizeAndRatio) {
  for (const char* key : kKeys) {
    const QIcon icon = ToolbarIcon(key);
    ASSERT_FALSE(icon.isNull()) << key;
    for (int size : {16, 24, 32, 48})
      for (double ratio : {1.0, 2.0}) {
        SCOPED_TRACE(testing::Message() << key << " at " << size << " px, ratio " << ratio);
        const QPixmap normal = icon.pixmap(QSize(size, size), ratio, QIcon::Normal);
        const QPixmap disabled = icon.pixmap(QSize(size, size), ratio, QIcon::Disabled);
        const int device = static_cast<int>(size * ratio);
        EXPECT_EQ(normal.size(), QSize(device, device));
        EXPECT_EQ(disabled.size(), QSize(device, device));
        EXPECT_EQ(normal.deviceIndependentSize(), QSizeF(size, size));
        const Survey n = Look(normal), d = Look(disabled);
        EXPECT_GT(n.opaque, device * device / 10);
        EXPECT_GE(n.colours, 3);
        EXPECT_FALSE(n.grey);
        EXPECT_GE(d.colours, 2);
        EXPECT_TRUE(d.grey);
        // The cascade is all straight edges: on the pixel grid nothing needs smoothing.
        if (std::string(key) == "Window") {
          EXPECT_EQ(n.partial, 0);
        }
      }
  }
}

TEST(ToolbarIcon, UnknownKeysAndTemplatesGiveNothing) {
  // "Back" is the button's key; its picture goes by "Background".
  for (const char* key : {"", "Back", "new", "HELP", "Zoom ", "print", "Save"})
    EXPECT_TRUE(ToolbarIcon(key).isNull()) << '"' << key << '"';
  for (int code = 1; code <= 3; ++code) {
    const QPixmap pm = TemplatePicture(code, 32);
    EXPECT_EQ(pm.size(), QSize(32, 32)) << code;
    EXPECT_GE(Look(pm).colours, 3) << code;
  }
  EXPECT_TRUE(TemplatePicture(0, 32).isNull());
  EXPECT_TRUE(TemplatePicture(4, 32).isNull());
}

struct Probe {
  double x, y;  // as a fraction of the side
  bool opaque;
  const char* where;
};

// At every size the tile is clear around its rounded corners and solid inside.
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
