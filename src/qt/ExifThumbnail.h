// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What a JPEG file's head says about it: the picture's size from its frame
// header, and from the EXIF segment (APP1) its orientation and the small JPEG
// a camera embeds as a thumbnail. Plain bytes in, every read bounds-checked:
// the file may be anything.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace cb {

struct PixelSize {
  int width = 0;
  int height = 0;
};

struct JpegHead {
  PixelSize size;            // 0 x 0 when no frame header lies within the bytes
  int orientation = 1;       // EXIF orientation 1 to 8; 1 when absent or out of range
  std::size_t thumbnailAt = 0;      // the embedded JPEG's bytes within the input;
  std::size_t thumbnailLength = 0;  // length 0 when there is none
};

// Reads the segments of the JPEG starting `bytes` up to its frame header.
// A head cut short gives what lay before the cut; a thumbnail is given only
// when all its bytes lie within `bytes` and start like a JPEG.
JpegHead ReadJpegHead(std::span<const std::uint8_t> bytes);

// True when orientations 5 to 8, which turn the picture on its side.
constexpr bool TurnsOnSide(int orientation) { return orientation >= 5 && orientation <= 8; }

// True when a thumbnail of `thumbnail` pixels stands for a picture of
// `picture` pixels: the same shape within 1 %, and once turned by the
// picture's `orientation` at least `cell` in both directions.
bool ThumbnailServes(PixelSize thumbnail, PixelSize picture, int orientation, PixelSize cell);

// The APP1 segment a camera writes before its frame header: TIFF in the
// given byte order, IFD0 holding `orientation`, IFD1 pointing at `thumbnail`
// (a JPEG of its own). For pictures made by tests and benchmarks.
std::string ExifSegment(int orientation, std::string_view thumbnail, bool bigEndian = false);

}  // namespace cb
