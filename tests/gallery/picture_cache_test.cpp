// SPDX-License-Identifier: GPL-3.0-or-later
// The gallery's picture cache: memory bound, files changed or gone behind it,
// and the desktop's thumbnails kept honest.
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

QString WritePicture(const TempDir& dir, const std::string& name, QColor colour, QSize size = {80, 60}) {
  testing::WriteFile(dir / name, Jpeg(size, colour).toStdString());
  return QString::fromStdString(dir / name);
}

// Which of the two a JPEG's colour came from.
const char* RedOrBlue(QColor c) {
  return c.red() > 200 && c.blue() < 60 ? "red" : c.blue() > 200 && c.red() < 60 ? "blue" : "other";
}

// A red picture of `size` carrying, as cameras do, a blue 160x120 thumbnail.
QString WriteCameraPicture(const std::string& path, QSize size, int orientation = 1) {
  const QByteArray thumbnail = Jpeg({160, 120}, Qt::blue);
  const QByteArray picture = Jpeg(size, Qt::red);
  testing::WriteFile(path, picture.left(2).toStdString() +
                               ExifSegment(orientation, {thumbnail.constData(), std::size_t(thumbnail.size())}) +
                               picture.mid(2).toStdString());
  return QString::fromStdString(path);
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
    const QString path = WritePicture(files, "p" + std::to_string(i) + ".jpg", QColor::fromHsv(i % 360, 200, 200));
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

// Held pictures are not decoded again; a failure is never held. Thumbnails
// follow the desktop's standard.
TEST_F(PictureCacheTest, HoldsPicturesButNotFailuresAndWritesThumbnails) {
  GalleryPictures pictures(1 << 20, store);
  const QSize noThumbnail{1100, 500};  // beyond every thumbnail folder
  const QString path = WritePicture(files, "tv.jpg", Qt::red);
  QImage out;
  ASSERT_EQ(pictures.Get(path, out, noThumbnail), RtError::None);
  ASSERT_EQ(pictures.Get(path, out, noThumbnail), RtError::None);
  EXPECT_EQ(pictures.Decodes(), 1);
  testing::WriteFile(files / "bad.jpg", "not a picture");
  const QString bad = QString::fromStdString(files / "bad.jpg");
  const RtError first = pictures.Get(bad, out, kBound);
  EXPECT_NE(first, RtError::None);
  EXPECT_EQ(pictures.Get(bad, out, kBound), first);

  const QString set = WritePicture(files, "tv set.jpg", Qt::red, {800, 600});
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
    const QString path = WriteCameraPicture(files / (row.name + std::string(".jpg")), row.picture, row.orientation);
    QImage out;
    ASSERT_EQ(pictures.Get(path, out, {400, 400}, row.cell), RtError::None);
    EXPECT_STREQ(RedOrBlue(Centre(out)), row.fromThumbnail ? "blue" : "red");
    EXPECT_EQ(pictures.Decodes(), row.fromThumbnail ? 0 : 1);
    EXPECT_EQ(out.height() > out.width(), row.upright) << out.width() << "x" << out.height();
    EXPECT_TRUE(Covers(out.size(), row.cell));
  }
}

class GalleryCacheTest : public GalleryFixture {};

// A cell first shown from the thumbnail keeps it while the window grows
// within it, and takes the decode once the cell is larger.
TEST_F(GalleryCacheTest, CellTakesTheDecodeOnlyWhenItOutgrowsTheThumbnail) {
  Start(1);
  WriteCameraPicture(app / "Gallery/p1.png", {1600, 1200});
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

// The load decodes the next column ahead; a step then finds it in memory,
// yet a file deleted or replaced meanwhile is seen as it is now.
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

}  // namespace
}  // namespace cb
