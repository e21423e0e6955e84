// SPDX-License-Identifier: GPL-3.0-or-later
// The slide window draws its picture from the file: one too large to decode whole
// opens at the scale the window needs and shows every pixel zoomed in, within the budget.

#include <QImageWriter>
#include <QTest>
#include <filesystem>
#include <optional>

#include "qt/OpenForms.h"
#include "qt/PictureSource.h"
#include "slide/frmSlide.h"
#include "support/GalleryFixture.h"
#include "support/LargeJpeg.h"

namespace cb {
namespace {

constexpr int kBigW = 8000, kBigH = 6000;
constexpr std::array<unsigned char, 3> kRust{200, 60, 40};

// The 48-megapixel picture, written once for every test.
std::string BigJpeg() {
  static const testing::TempDir dir;
  static const std::string path = dir / "big.jpg";
  static const bool written = testing::WriteLargeJpeg(path, kBigW, kBigH, 90, testing::CheckerCorner(kBigW, 64, kRust));
  EXPECT_TRUE(written);
  return path;
}

// A point of the picture element, as fractions of its size, and its colour (none: the background).
struct Sample {
  double fx, fy;
  std::optional<QColor> colour;
};

// Within what JPEG's losses give; a grey blur of black and white is 128 off.
bool Near(const QColor& a, const QColor& b) {
  return std::abs(a.red() - b.red()) < 48 && std::abs(a.green() - b.green()) < 48 && std::abs(a.blue() - b.blue()) < 48;
}

class SlidePictureTest : public testing::GalleryFixture {
 protected:
  // Opens the slide in `cell`, with `name` as its picture file unless empty.
  frmSlide* Open(const std::string& name, int cell = 1) {
    if (!name.empty()) Globals().Slides[cell].Set(Field::PictureFile, name);
    QTest::mouseClick(Gallery().Image1(cell), Qt::LeftButton);
    return qobject_cast<frmSlide*>(FindOpenForm("frmSlide"));
  }
  std::string GalleryFile(const std::string& name) { return app / ("Gallery/" + name); }

  void ExpectDrawn(frmSlide* slide, const std::vector<Sample>& samples) {
    const QImage shot = slide->grab().toImage();
    const QRect e = slide->Image1->geometry();
    for (const Sample& s : samples) {
      const QColor got = shot.pixelColor(e.x() + int(s.fx * e.width()), e.y() + int(s.fy * e.height()));
      const QColor want = s.colour.value_or(slide->palette().color(QPalette::Window));
      EXPECT_TRUE(Near(got, want)) << s.fx << "," << s.fy << " drawn " << got.name().toStdString() << " not "
                                   << want.name().toStdString();
    }
  }
};

TEST_F(SlidePictureTest, OpensEachKindOfPicture) {
  const QColor rust(kRust[0], kRust[1], kRust[2]);
  const struct {
    const char* name;
    std::string file;
    std::function<void(const std::string&)> write;
    std::vector<Sample> samples;
  } rows[] = {
      // clang-format off
      {"jpeg_of_48_megapixels", "big.jpg",
       [](const std::string& to) { std::filesystem::create_symlink(BigJpeg(), to); }, {{0.5, 0.5, rust}}},
      {"bmp", "flat.bmp",
       [](const std::string& to) {
         QImage i(300, 200, QImage::Format_RGB32);
         i.fill(Qt::darkGreen);
         i.save(QString::fromStdString(to), "BMP");
       },
       {{0.5, 0.5, QColor(Qt::darkGreen)}}},
      {"gif", "dot.gif",  // one red pixel
       [](const std::string& to) {
         testing::WriteFile(to, QByteArray::fromBase64("R0lGODlhAQABAIAAAP8AAAAAACwAAAAAAQABAAACAkQBADs=").toStdString());
       },
       {{0.5, 0.5, QColor(Qt::red)}}},
      {"jpeg_turned_by_exif", "turned.jpg",  // stored left half black: upright, the top half
       [](const std::string& to) {
         QImage i(64, 32, QImage::Format_RGB32);
         i.fill(Qt::white);
         for (int y = 0; y < 32; ++y)
           for (int x = 0; x < 32; ++x) i.setPixel(x, y, qRgb(0, 0, 0));
         QImageWriter w(QString::fromStdString(to), "jpeg");
         w.setTransformation(QImageIOHandler::TransformationRotate90);
         w.write(i);
       },
       {{0.5, 0.2, QColor(Qt::black)}, {0.5, 0.8, QColor(Qt::white)}}},
      {"not_a_picture", "junk.jpg", [](const std::string& to) { testing::WriteFile(to, "no picture here"); },
       {{0.5, 0.5, std::nullopt}}},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Start(1);
    row.write(GalleryFile(row.file));
    frmSlide* slide = Open(row.file);
    ASSERT_NE(slide, nullptr);
    EXPECT_EQ(slide->windowTitle(), "Slide 1 - Slide 1");
    ExpectDrawn(slide, row.samples);
    UnloadForms();
  }
}

// Clicks by the corner ((0, 0) counts as the centre) zoom in until a picture pixel spans six:
// the checkerboard is drawn pixel for pixel, not as a coarse decode's grey.
TEST_F(SlidePictureTest, ZoomedInShowsEveryPixelWithinTheBudget) {
  Start(1);
  std::filesystem::create_symlink(BigJpeg(), GalleryFile("big.jpg"));
  frmSlide* slide = Open("big.jpg");
  ASSERT_NE(slide, nullptr);
  slide->grab();
  EXPECT_LT(slide->Image1->Held().eighths, 8);
  EXPECT_LE(double(slide->Image1->Picture().sizeInBytes()), kDecodePixels * 4);
  while (slide->Image1->width() < 6 * kBigW) QTest::mouseClick(slide->Image1, Qt::LeftButton, {}, QPoint(1, 1));
  std::vector<Sample> samples;
  const double px = 1.0 / kBigW, py = 1.0 / kBigH;
  for (int y = 0; y < 6; ++y)
    for (int x = 0; x < 6; ++x)
      samples.push_back({(x + 0.5) * px, (y + 0.5) * py, QColor((x + y) % 2 ? Qt::black : Qt::white)});
  ExpectDrawn(slide, samples);
  EXPECT_EQ(slide->Image1->Held().eighths, 8);
  EXPECT_LE(double(slide->Image1->Picture().sizeInBytes()), kDecodePixels * 4);
}

// An open window shows the next slide's picture only when it decodes.
TEST_F(SlidePictureTest, ReusedWindowKeepsItsPictureWhenTheNextDoesNotDecode) {
  Start(2);
  testing::WriteFile(GalleryFile("p2.png"), "no picture here");
  Open("", 1);
  frmSlide* slide = Open("", 2);
  ASSERT_NE(slide, nullptr);
  EXPECT_EQ(slide->windowTitle(), "Slide 2 - Slide 2");
  ExpectDrawn(slide, {{0.5, 0.5, QColor(Qt::darkCyan)}});
}

}  // namespace
}  // namespace cb
