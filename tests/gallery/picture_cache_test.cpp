// SPDX-License-Identifier: GPL-3.0-or-later
// The gallery's picture cache: memory bound, stale files, honest desktop and camera thumbnails.
#include <gtest/gtest.h>

#include <QBuffer>
#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>
#include <QScrollBar>
#include <QUrl>

#include "qt/ExifThumbnail.h"
#include "qt/GalleryPictures.h"
#include "qt/Thumbnails.h"
#include "support/GalleryFixture.h"
#include "support/TempDir.h"

namespace cb {
namespace {

using namespace std::string_literals;
using testing::GalleryFixture;
using testing::TempDir;

constexpr QSize kBound{40, 30};

// Moves the file's modification time, as a copy over it a little later would.
void Touch(const QString& path, int seconds) {
  QFile f(path);
  ASSERT_TRUE(f.open(QIODevice::ReadWrite));
  ASSERT_TRUE(f.setFileTime(QDateTime::currentDateTime().addSecs(seconds), QFileDevice::FileModificationTime));
}

QByteArray Jpeg(QSize size, QColor colour) {
  QImage picture(size, QImage::Format_RGB32);
  picture.fill(colour);
  QBuffer out;
  out.open(QIODevice::WriteOnly);
  picture.save(&out, "jpg", 95);
  return out.data();
}

// A JPEG in `colour`; given an orientation, it carries a camera's blue 160x120 thumbnail.
QString WritePicture(const std::string& path, QColor colour, QSize size = {80, 60}, int orientation = 0) {
  const QByteArray picture = Jpeg(size, colour);
  const std::string exif = orientation ? ExifSegment(orientation, Jpeg({160, 120}, Qt::blue).toStdString()) : "";
  testing::WriteFile(path, picture.left(2).toStdString() + exif + picture.mid(2).toStdString());
  return QString::fromStdString(path);
}

// Which of the two a JPEG's colour came from.
const char* RedOrBlue(QColor c) {
  return c.red() > 200 && c.blue() < 60 ? "red" : c.blue() > 200 && c.red() < 60 ? "blue" : "other";
}

QColor Centre(const QImage& image) { return image.pixelColor(image.width() / 2, image.height() / 2); }

class PictureCacheTest : public ::testing::Test {
 protected:
  TempDir files, thumbs;
  Thumbnails store{QString::fromStdString(thumbs.str())};
};

TEST_F(PictureCacheTest, StaysWithinItsBoundOverAThousandPictures) {
  const std::size_t limit = 64 * 1024;
  GalleryPictures pictures(limit, store);
  for (int i = 0; i < 1000; ++i) {
    const QString path = WritePicture(files / ("p" + std::to_string(i) + ".jpg"), QColor::fromHsv(i % 360, 200, 200));
    QImage out;
    ASSERT_EQ(pictures.Get(path, out, kBound), RtError::None);
    ASSERT_LE(pictures.MemoryUsed(), limit) << "after picture " << i;
  }
  EXPECT_EQ(pictures.Decodes(), 1000);
  pictures.WaitForIdle();
  // The newest are still held; the oldest went first.
  QImage out;
  pictures.Get(QString::fromStdString(files / "p999.jpg"), out, kBound);
  EXPECT_EQ(pictures.Decodes(), 1000);
  pictures.Clear();
  pictures.Get(QString::fromStdString(files / "p999.jpg"), out, kBound);
  EXPECT_EQ(pictures.Decodes(), 1000) << "a valid thumbnail stands in for the decode";
}

// Held pictures are not decoded again, failures never held; thumbnails follow the desktop's standard.
TEST_F(PictureCacheTest, HoldsPicturesButNotFailuresAndWritesThumbnails) {
  GalleryPictures pictures(1 << 20, store);
  const QSize noThumbnail{1100, 500};  // beyond every thumbnail folder
  const QString path = WritePicture(files / "tv.jpg", Qt::red);
  QImage out;
  ASSERT_EQ(pictures.Get(path, out, noThumbnail), RtError::None);
  ASSERT_EQ(pictures.Get(path, out, noThumbnail), RtError::None);
  EXPECT_EQ(pictures.Decodes(), 1);
  testing::WriteFile(files / "bad.jpg", "not a picture");
  const QString bad = QString::fromStdString(files / "bad.jpg");
  const RtError first = pictures.Get(bad, out, kBound);
  EXPECT_NE(first, RtError::None);
  EXPECT_EQ(pictures.Get(bad, out, kBound), first);

  const QString set = WritePicture(files / "tv set.jpg", Qt::red, {800, 600});
  ASSERT_EQ(pictures.Get(set, out, kBound), RtError::None);
  pictures.WaitForIdle();
  const QByteArray uri = QUrl::fromLocalFile(set).toEncoded();
  const QString thumb = QString::fromStdString(thumbs / "normal/") +
                        QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex() + ".png";
  const QImage stored(thumb, "png");
  ASSERT_FALSE(stored.isNull()) << thumb.toStdString();
  EXPECT_EQ(stored.text("Thumb::URI"), QString::fromLatin1(uri));
  EXPECT_EQ(stored.text("Thumb::MTime"), QString::number(QFileInfo(set).lastModified().toSecsSinceEpoch()));
  EXPECT_EQ(stored.size(), QSize(128, 96));
  EXPECT_EQ(QFile::permissions(thumb) & (QFileDevice::ReadOther | QFileDevice::ReadGroup), 0);
}

TEST_F(PictureCacheTest, CameraThumbnailOnlyWhereItServes) {
  const struct {
    const char* name;
    QSize picture;  // a size other than 4:3 leaves the thumbnail stale, as a crop does
    int orientation;
    QSize cell;
    bool fromThumbnail, upright;
  } rows[] = {
      {"small_cell", {800, 600}, 1, {80, 60}, true, false},
      {"cell_as_large_as_the_thumbnail", {800, 600}, 1, {160, 120}, true, false},
      {"cell_larger_than_the_thumbnail", {800, 600}, 1, {161, 120}, false, false},
      {"cropped_picture_stale_thumbnail", {600, 600}, 1, {80, 60}, false, false},
      {"turned_thumbnail", {800, 600}, 6, {60, 80}, true, true},
      {"turned_decode", {800, 600}, 6, {300, 400}, false, true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    GalleryPictures pictures(1 << 20, store);  // each its own file: no thumbnail of another row stands in
    const QString path = WritePicture(files / (row.name + std::string(".jpg")), Qt::red, row.picture, row.orientation);
    QImage out;
    ASSERT_EQ(pictures.Get(path, out, {400, 400}, row.cell), RtError::None);
    EXPECT_STREQ(RedOrBlue(Centre(out)), row.fromThumbnail ? "blue" : "red");
    EXPECT_EQ(pictures.Decodes(), row.fromThumbnail ? 0 : 1);
    EXPECT_EQ(out.height() > out.width(), row.upright) << out.width() << "x" << out.height();
    EXPECT_TRUE(Covers(out.size(), row.cell));
  }
}

class GalleryCacheTest : public GalleryFixture {};

// A cell shown from the thumbnail keeps it while it grows within it, and decodes once larger.
TEST_F(GalleryCacheTest, CellTakesTheDecodeOnlyWhenItOutgrowsTheThumbnail) {
  Start(1);
  WritePicture(app / "Gallery/p1.png", Qt::red, {1600, 1200}, 1);
  Touch(QString::fromStdString(app / "Gallery/p1.png"), 10);
  TheMDIMain().resize(1600, 1000);
  TheMDIMain().RebuildGallery();
  QWidget* frame = Gallery().parentWidget();
  const int decodes = GalleryPictures::Instance().Decodes();
  const auto cell = [&] { return Gallery().Image1(1)->size(); };
  const QSize first = cell();
  EXPECT_STREQ(RedOrBlue(Centre(Gallery().Image1(1)->Picture())), "blue");
  frame->resize(frame->width() + 5 * (155 - first.width()), frame->height());
  ASSERT_GT(cell().width(), first.width());
  ASSERT_TRUE(Covers({160, 120}, cell())) << cell().width() << "x" << cell().height();
  EXPECT_STREQ(RedOrBlue(Centre(Gallery().Image1(1)->Picture())), "blue");
  frame->resize(1500, 900);
  ASSERT_GT(cell().width(), 160);
  EXPECT_STREQ(RedOrBlue(Centre(Gallery().Image1(1)->Picture())), "red");
  EXPECT_EQ(GalleryPictures::Instance().Decodes(), decodes + 1);
}

// The load decodes a column ahead, yet a step sees a file deleted or replaced since.
TEST_F(GalleryCacheTest, StepSeesFilesDeletedOrReplacedAfterCaching) {
  answer = vbNo;
  Start(20);
  GalleryPictures::Instance().WaitForIdle();
  QImage red(6, 4, QImage::Format_RGB32);
  red.fill(Qt::red);
  const QString p16 = QString::fromStdString(app / "Gallery/p16.png");
  ASSERT_TRUE(red.save(p16));
  Touch(p16, 10);
  ASSERT_TRUE(QFile::remove(QString::fromStdString(app / "Gallery/p17.png")));
  Gallery().FlatScrollBar1->setValue(2);  // one column right of the fresh bar
  ASSERT_EQ(messages.size(), 1);
  EXPECT_TRUE(messages[0].startsWith("Slide Not Found: The file 'p17.png'"));
  EXPECT_EQ(Mc().NumberOfRecords(), 19);
  ASSERT_EQ(Shown()[12], 16);
  EXPECT_EQ(Centre(Gallery().Image1(13)->Picture()), QColor(Qt::red));
  EXPECT_EQ(Centre(Gallery().Image1(12)->Picture()), QColor(Qt::darkCyan));
}

// The JPEG head reader against crafted and hostile files, and when a thumbnail stands for its picture.
const std::string kSoi = "\xFF\xD8"s;
const std::string kThumb = "\xFF\xD8\xFF\xD9"s;  // the least a JPEG can be
const std::string kJfif = "\xFF\xE0\x00\x10JFIF\0\x01\x01\0\0\x01\0\x01\0\0"s;
// A frame header of 4000 x 3000, then the scan.
const std::string kFrame = "\xFF\xC0\x00\x0B\x08\x0B\xB8\x0F\xA0\x01\x01\x11\x00\xFF\xDA"s;
// Where the writer's little-endian segment puts things, counted from the file's start.
constexpr std::size_t kTiff = 12, kIfd0Offset = kTiff + 4, kIfd0Count = kTiff + 8, kThumbAtValue = kTiff + 36,
                      kThumbLengthValue = kTiff + 48, kThumbAt = kTiff + 56;

std::string Camera(int orientation = 6) { return kSoi + ExifSegment(orientation, kThumb) + kFrame; }

// `bytes` with the little-endian number `v` written over `width` bytes at `at`.
std::string Patched(std::string bytes, std::size_t at, std::uint32_t v, int width = 4) {
  for (int i = 0; i < width; ++i) bytes[at + std::size_t(i)] = char((v >> (8 * i)) & 0xFF);
  return bytes;
}

JpegHead Read(const std::string& bytes) {
  return ReadJpegHead({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}

// Big-endian, written out by hand: orientation 3, the thumbnail at 56.
const std::string kBigEndian = kSoi + "\xFF\xE1\x00\x44"s + "Exif\0\0"s + "MM\x00\x2A\x00\x00\x00\x08"s +
                               "\x00\x01\x01\x12\x00\x03\x00\x00\x00\x01\x00\x03\x00\x00\x00\x00\x00\x1A"s +
                               "\x00\x02\x02\x01\x00\x04\x00\x00\x00\x01\x00\x00\x00\x38"s +
                               "\x02\x02\x00\x04\x00\x00\x00\x01\x00\x00\x00\x04\x00\x00\x00\x00"s + kThumb + kFrame;

TEST(HeadTest, ReadsWhatLiesWithinTheBytes) {
  const struct {
    const char* name;
    std::string bytes;
    int width, orientation;
    std::size_t thumbnailAt;  // 0 for none
  } rows[] = {
      {"little_endian", Camera(), 4000, 6, kThumbAt},
      {"big_endian", kBigEndian, 4000, 3, kThumbAt},
      {"after_jfif", kSoi + kJfif + ExifSegment(8, kThumb, true) + kFrame, 4000, 8, kThumbAt + kJfif.size()},
      {"no_exif", kSoi + kJfif + kFrame, 4000, 1, 0},
      {"orientation_out_of_range", Camera(9), 4000, 1, kThumbAt},
      {"thumbnail_past_the_end", Patched(Camera(), kThumbAtValue, 0xFFFFFFF0), 4000, 6, 0},
      {"thumbnail_longer_than_segment", Patched(Camera(), kThumbLengthValue, 5), 4000, 6, 0},
      {"thumbnail_not_a_jpeg", Patched(Camera(), kThumbAtValue, 52), 4000, 6, 0},
      {"ifd0_past_the_end", Patched(Camera(), kIfd0Offset, 0x7FFFFFFF), 4000, 1, 0},
      {"entry_count_past_the_end", Patched(Camera(), kIfd0Count, 0xFFFF, 2), 4000, 1, 0},
      {"segment_length_past_the_end", kSoi + "\xFF\xE1\xFF\xFF"s + "Exif\0\0II"s, 0, 1, 0},
      {"not_a_jpeg", "GIF89a" + Camera().substr(2), 0, 1, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const JpegHead head = Read(row.bytes);
    EXPECT_EQ(head.size.width, row.width);
    EXPECT_EQ(head.size.height, row.width ? 3000 : 0);
    EXPECT_EQ(head.orientation, row.orientation);
    EXPECT_EQ(head.thumbnailAt, row.thumbnailAt);
    EXPECT_EQ(head.thumbnailLength, row.thumbnailAt ? kThumb.size() : 0);
  }
}

// A head cut anywhere never reads past the cut nor names bytes beyond it.
TEST(HeadCutTest, EveryCutIsSafe) {
  const std::string whole = Camera();
  for (std::size_t cut = 0; cut < whole.size(); ++cut) {
    const JpegHead head = Read(whole.substr(0, cut));
    EXPECT_LE(head.thumbnailAt + head.thumbnailLength, cut);
    EXPECT_EQ(head.thumbnailLength != 0, cut >= kThumbAt + kThumb.size()) << "cut at " << cut;
    EXPECT_EQ(head.size.width != 0, cut >= whole.size() - 2 - 4) << "cut at " << cut;
  }
}

TEST(ServeTest, SameShapeAndCoveringOnceTurned) {
  const struct {
    const char* name;
    PixelSize thumbnail, picture;
    int orientation;
    PixelSize cell;
    bool serves;
  } rows[] = {
      {"turned_covers_a_tall_cell", {160, 120}, {4000, 3000}, 6, {100, 150}, true},
      {"unturned_misses_a_tall_cell", {160, 120}, {4000, 3000}, 1, {100, 150}, false},
      {"shape_within_one_percent", {160, 120}, {4032, 3000}, 1, {80, 60}, true},
      {"shape_off_by_two_percent", {160, 120}, {4080, 3000}, 1, {80, 60}, false},
      {"empty_thumbnail", {0, 0}, {4000, 3000}, 1, {0, 0}, false},
  };
  for (const auto& row : rows)
    EXPECT_EQ(ThumbnailServes(row.thumbnail, row.picture, row.orientation, row.cell), row.serves) << row.name;
}

}  // namespace
}  // namespace cb
