// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Writes a JPEG of any size a row at a time through libjpeg, so a picture of
// hundreds of megapixels costs one row of memory to make.

#include <array>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include <jpeglib.h>  // after <cstdio>, which it needs

namespace cb::testing {

// `row(y, rgb)` fills row y, three bytes a pixel. False when the file cannot
// be written.
inline bool WriteLargeJpeg(const std::string& path, int width, int height, int quality,
                           const std::function<void(int, unsigned char*)>& row) {
  std::FILE* f = std::fopen(path.c_str(), "wb");
  if (!f) return false;
  jpeg_error_mgr error;
  jpeg_compress_struct c{};
  c.err = jpeg_std_error(&error);
  jpeg_create_compress(&c);
  jpeg_stdio_dest(&c, f);
  c.image_width = static_cast<JDIMENSION>(width);
  c.image_height = static_cast<JDIMENSION>(height);
  c.input_components = 3;
  c.in_color_space = JCS_RGB;
  jpeg_set_defaults(&c);
  jpeg_set_quality(&c, quality, TRUE);
  jpeg_start_compress(&c, TRUE);
  std::vector<unsigned char> line(static_cast<std::size_t>(width) * 3);
  while (c.next_scanline < c.image_height) {
    row(static_cast<int>(c.next_scanline), line.data());
    JSAMPROW p = line.data();
    jpeg_write_scanlines(&c, &p, 1);
  }
  jpeg_finish_compress(&c);
  jpeg_destroy_compress(&c);
  return std::fclose(f) == 0;
}

// Flat `rgb` with a one-pixel black and white checkerboard in the top left
// `checker` x `checker` pixels (black where x + y is odd).
inline std::function<void(int, unsigned char*)> CheckerCorner(int width, int checker,
                                                              std::array<unsigned char, 3> rgb) {
  return [=](int y, unsigned char* line) {
    for (int x = 0; x < width; ++x)
      for (int c = 0; c < 3; ++c) line[x * 3 + c] = (x < checker && y < checker) ? ((x + y) % 2 ? 0 : 255) : rgb[c];
  };
}

}  // namespace cb::testing
