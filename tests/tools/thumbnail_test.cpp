// SPDX-License-Identifier: GPL-3.0-or-later
// The thumbnail a file manager shows for a slide file: its size and shape,
// pictures turned upright, the grid, and the icon when no picture reads.

#include <gmock/gmock.h>

#include <QBuffer>
#include <QImage>

#include "SifTools.h"
#include "artwork/ProgramIcon.h"

namespace cb::sif::testing {
namespace {

using namespace std::string_literals;

// An EXIF segment (APP1) holding nothing but orientation 6: the camera was
// turned, and the picture is shown turned a quarter clockwise. Little-endian
// TIFF, IFD0 at 8 with one entry: tag 0x0112, a SHORT, 6.
const std::string kTurnedClockwise =
    "\xFF\xE1\x00\x22"s
    "Exif\0\0II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0\x06\0\0\0\0\0\0\0"s;

struct Picture {
  int width, height;
  bool turned = false;
};

// A JPEG of the picture as stored: red above, blue below.
std::string Jpeg(const Picture& p) {
  QImage image(p.width, p.height, QImage::Format_RGB32);
  image.fill(Qt::blue);
  for (int y = 0; y < p.height / 2; ++y)
    for (int x = 0; x < p.width; ++x) image.setPixel(x, y, qRgb(255, 0, 0));
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "JPEG", 95);
  return bytes.toStdString().insert(2, p.turned ? kTurnedClockwise : "");  // after the start marker
}

// A probe's point and what it shows: 'r' red, 'b' blue, ' ' nothing.
struct Probe {
  int x, y;
  char seen;
};

struct ThumbnailRow {
  const char* name;
  std::vector<Picture> pictures;  // one slide each, named 0.jpg, 1.jpg, ...
  int size;
  QSize expected;
  std::vector<Probe> probes;
};

const ThumbnailRow kRows[] = {
    {"one picture fills the size, keeping its shape", {{400, 200}}, 128, {128, 64}, {{64, 10, 'r'}, {64, 54, 'b'}}},
    {"a turned camera's picture comes out upright", {{200, 100, true}}, 128, {64, 128}, {{48, 64, 'r'}, {16, 64, 'b'}}},
    {"the first four fill it, smaller ones kept their size",
     {{100, 100, true}, {100, 100}, {100, 100}, {100, 100}, {100, 100}},
     256,
     {256, 256},
     {{28, 30, 'b'}, {100, 100, 'r'}, {192, 160, 'r'}, {192, 224, 'b'}, {10, 10, ' '}}},
};

char Seen(QRgb p) {
  if (qAlpha(p) == 0) return ' ';
  if (qRed(p) > 200 && qBlue(p) < 60) return 'r';
  return qBlue(p) > 200 && qRed(p) < 60 ? 'b' : '?';
}

// Runs thumbnail on Files/x.sif, whose slides name `pictures` in the
// gallery beside its folder; "" names a slide with no picture.
QImage Thumbnail(const Scratch& dir, const std::vector<std::string>& pictures, int size) {
  std::vector<SlideText> slides;
  for (const auto& p : pictures) slides.push_back({p, "Slide"});
  WriteAsProgram(dir / "Files/x.sif", {}, slides);
  const Outcome r = RunProcess({"thumbnail", dir / "Files/x.sif", dir / "x.png", "--size", std::to_string(size)});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.err, "");
  return QImage(QString::fromStdString(dir / "x.png"));
}

TEST(Thumbnail, SizeShapeOrientationAndGrid) {
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    Scratch dir;
    std::vector<std::string> names;
    for (const auto& p : row.pictures) {
      names.push_back(std::to_string(names.size()) + ".jpg");
      WriteFile(dir / ("Gallery/" + names.back()), Jpeg(p));
    }
    const QImage image = Thumbnail(dir, names, row.size);
    EXPECT_EQ(image.size(), row.expected);
    for (const auto& [x, y, seen] : row.probes) EXPECT_EQ(Seen(image.pixel(x, y)), seen) << x << "," << y;
  }
}

TEST(Thumbnail, TheProgramsIconWhenNoPictureReads) {
  Scratch dir;
  WriteFile(dir / "Gallery/notes.jpg", "not a picture");
  fs::create_directories(dir / "Gallery/folder.jpg");
  WriteFile(dir / "secret.jpg", Jpeg({100, 100}));
  const QImage image = Thumbnail(dir, {"", "missing.jpg", "notes.jpg", "folder.jpg", "../secret.jpg"}, 128);
  EXPECT_EQ(image.convertToFormat(QImage::Format_ARGB32), PaintProgramIcon(128).convertToFormat(QImage::Format_ARGB32));
}

}  // namespace
}  // namespace cb::sif::testing
