// SPDX-License-Identifier: GPL-3.0-or-later
// The JPEG head reader against crafted files, hostile ones among them, and
// the rule by which an embedded thumbnail stands for its picture.
#include <gtest/gtest.h>

#include "qt/ExifThumbnail.h"

namespace cb {
namespace {

using namespace std::string_literals;

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
      {"covers_a_small_cell", {160, 120}, {4000, 3000}, 1, {88, 90}, true},
      {"large_cell", {160, 120}, {4000, 3000}, 1, {370, 340}, false},
      {"turned_covers_a_tall_cell", {160, 120}, {4000, 3000}, 6, {100, 150}, true},
      {"unturned_misses_a_tall_cell", {160, 120}, {4000, 3000}, 1, {100, 150}, false},
      {"shape_within_one_percent", {160, 120}, {4032, 3000}, 1, {80, 60}, true},
      {"shape_off_by_two_percent", {160, 120}, {4080, 3000}, 1, {80, 60}, false},
      {"cropped_square", {160, 120}, {3000, 3000}, 1, {80, 60}, false},
      {"empty_thumbnail", {0, 0}, {4000, 3000}, 1, {0, 0}, false},
  };
  for (const auto& row : rows)
    EXPECT_EQ(ThumbnailServes(row.thumbnail, row.picture, row.orientation, row.cell), row.serves) << row.name;
}

}  // namespace
}  // namespace cb
