// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/ExifThumbnail.h"

#include <algorithm>
#include <optional>

namespace cb {
namespace {

constexpr std::uint8_t kMarker = 0xFF;
constexpr std::uint8_t kSoi = 0xD8, kEoi = 0xD9, kSos = 0xDA, kApp1 = 0xE1;
constexpr std::string_view kExifHeader{"Exif\0\0", 6};
constexpr std::uint16_t kTiffMagic = 42;
constexpr std::uint16_t kOrientationTag = 0x0112;
constexpr std::uint16_t kThumbnailAtTag = 0x0201, kThumbnailLengthTag = 0x0202;
constexpr std::uint16_t kShort = 3, kLong = 4;
constexpr std::size_t kEntrySize = 12;

// Reads of fixed width at an offset, each refused past the end.
class Bytes {
 public:
  Bytes(std::span<const std::uint8_t> data, bool bigEndian) : data_(data), big_(bigEndian) {}

  std::size_t size() const { return data_.size(); }
  bool Has(std::uint64_t at, std::uint64_t n) const { return at <= data_.size() && n <= data_.size() - at; }

  std::optional<std::uint32_t> Read(std::uint64_t at, int n) const {
    if (!Has(at, std::uint64_t(n))) return std::nullopt;
    std::uint32_t v = 0;
    for (int i = 0; i < n; ++i) {
      const std::uint8_t b = data_[std::size_t(at) + std::size_t(big_ ? i : n - 1 - i)];
      v = (v << 8) | b;
    }
    return v;
  }
  std::optional<std::uint32_t> U16(std::uint64_t at) const { return Read(at, 2); }
  std::optional<std::uint32_t> U32(std::uint64_t at) const { return Read(at, 4); }

 private:
  std::span<const std::uint8_t> data_;
  bool big_;
};

// Calls `entry(tag, value)` for each entry of the IFD at `at` whose value is
// one SHORT or LONG; returns the next IFD's offset, 0 when none or unreadable.
template <typename Entry>
std::uint32_t ReadIfd(const Bytes& tiff, std::uint32_t at, Entry entry) {
  const auto count = tiff.U16(at);
  if (!count) return 0;
  const std::uint64_t first = std::uint64_t(at) + 2;
  // A count that runs past the end marks the whole directory as broken.
  if (!tiff.Has(first, kEntrySize * *count)) return 0;
  for (std::uint32_t i = 0; i < *count; ++i) {
    const std::uint64_t e = first + kEntrySize * i;
    const std::uint32_t tag = *tiff.U16(e), type = *tiff.U16(e + 2), n = *tiff.U32(e + 4);
    if (n != 1 || (type != kShort && type != kLong)) continue;
    entry(tag, *(type == kShort ? tiff.U16(e + 8) : tiff.U32(e + 8)));
  }
  return tiff.U32(first + kEntrySize * *count).value_or(0);
}

// Fills the orientation and thumbnail of `head` from the TIFF structure at
// `start` of `file`.
void ReadExif(std::span<const std::uint8_t> file, std::size_t start, JpegHead& head) {
  const std::span<const std::uint8_t> data = file.subspan(start);
  if (data.size() < 8 || data[0] != data[1] || (data[0] != 'I' && data[0] != 'M')) return;
  const Bytes tiff(data, data[0] == 'M');
  if (tiff.U16(2) != kTiffMagic) return;
  std::uint32_t at = 0, length = 0;
  const std::uint32_t ifd1 = ReadIfd(tiff, *tiff.U32(4), [&](std::uint32_t tag, std::uint32_t v) {
    if (tag == kOrientationTag && v >= 1 && v <= 8) head.orientation = int(v);
  });
  if (ifd1 == 0) return;
  ReadIfd(tiff, ifd1, [&](std::uint32_t tag, std::uint32_t v) {
    if (tag == kThumbnailAtTag) at = v;
    if (tag == kThumbnailLengthTag) length = v;
  });
  if (length < 4 || !tiff.Has(at, length) || data[at] != kMarker || data[at + 1] != kSoi) return;
  head.thumbnailAt = start + at;
  head.thumbnailLength = length;
}

// Frame headers: C0 to CF but for C4 (Huffman tables), C8 and CC (arithmetic coding).
constexpr bool IsFrameHeader(std::uint8_t m) { return m >= 0xC0 && m <= 0xCF && m != 0xC4 && m != 0xC8 && m != 0xCC; }
// Markers that stand alone, without a length.
constexpr bool StandsAlone(std::uint8_t m) { return m == 0x01 || (m >= 0xD0 && m <= 0xD7); }

void Put(std::string& out, std::uint32_t v, int n, bool big) {
  for (int i = 0; i < n; ++i) out += char((v >> (8 * (big ? n - 1 - i : i))) & 0xFF);
}

}  // namespace

JpegHead ReadJpegHead(std::span<const std::uint8_t> bytes) {
  JpegHead head;
  const Bytes file(bytes, true);
  if (file.U16(0) != std::uint32_t{kMarker << 8 | kSoi}) return head;
  bool exifSeen = false;
  std::size_t pos = 2;
  while (file.Has(pos, 4) && bytes[pos] == kMarker) {
    const std::uint8_t marker = bytes[pos + 1];
    if (marker == kMarker) {  // fill byte
      ++pos;
      continue;
    }
    if (StandsAlone(marker)) {
      pos += 2;
      continue;
    }
    if (marker == kSos || marker == kEoi) break;
    const std::uint32_t length = *file.U16(pos + 2);
    if (length < 2) break;
    if (IsFrameHeader(marker)) {
      if (file.Has(pos + 5, 4)) head.size = {int(*file.U16(pos + 7)), int(*file.U16(pos + 5))};
      break;
    }
    const std::size_t payload = pos + 4, end = pos + 2 + length;
    if (marker == kApp1 && !exifSeen && file.Has(payload, kExifHeader.size()) &&
        std::string_view(reinterpret_cast<const char*>(bytes.data() + payload), kExifHeader.size()) == kExifHeader) {
      exifSeen = true;
      const std::size_t tiff = payload + kExifHeader.size();
      ReadExif(bytes.first(std::min(end, bytes.size())), std::min(tiff, std::min(end, bytes.size())), head);
    }
    pos = end;
  }
  return head;
}

bool ThumbnailServes(PixelSize thumbnail, PixelSize picture, int orientation, PixelSize cell) {
  if (thumbnail.width <= 0 || thumbnail.height <= 0 || picture.width <= 0 || picture.height <= 0) return false;
  const std::int64_t across = std::int64_t(thumbnail.width) * picture.height;
  const std::int64_t down = std::int64_t(picture.width) * thumbnail.height;
  if ((across > down ? across - down : down - across) * 100 > down) return false;
  const PixelSize shown = TurnsOnSide(orientation) ? PixelSize{thumbnail.height, thumbnail.width} : thumbnail;
  return shown.width >= cell.width && shown.height >= cell.height;
}

std::string ExifSegment(int orientation, std::string_view thumbnail, bool bigEndian) {
  // IFD0 at 8 with one entry, IFD1 after it with two, the thumbnail last.
  constexpr std::uint32_t kIfd0 = 8, kIfd1 = kIfd0 + 2 + kEntrySize + 4, kThumbnail = kIfd1 + 2 + 2 * kEntrySize + 4;
  std::string tiff = bigEndian ? "MM" : "II";
  const auto put = [&](std::uint32_t v, int n) { Put(tiff, v, n, bigEndian); };
  const auto entry = [&](std::uint16_t tag, std::uint16_t type, std::uint32_t value) {
    put(tag, 2);
    put(type, 2);
    put(1, 4);
    if (type == kShort) {
      put(value, 2);
      put(0, 2);
    } else {
      put(value, 4);
    }
  };
  put(kTiffMagic, 2);
  put(kIfd0, 4);
  put(1, 2);
  entry(kOrientationTag, kShort, std::uint32_t(orientation));
  put(kIfd1, 4);
  put(2, 2);
  entry(kThumbnailAtTag, kLong, kThumbnail);
  entry(kThumbnailLengthTag, kLong, std::uint32_t(thumbnail.size()));
  put(0, 4);
  tiff += thumbnail;
  if (2 + kExifHeader.size() + tiff.size() > 0xFFFF) return {};  // beyond what one segment holds
  std::string segment{char(kMarker), char(kApp1)};
  Put(segment, std::uint32_t(2 + kExifHeader.size() + tiff.size()), 2, true);
  segment += kExifHeader;
  return segment + tiff;
}

}  // namespace cb
