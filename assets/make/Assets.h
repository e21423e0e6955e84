// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The installation's pictures and template files. Each writer fills one
// folder of the application directory and reports a failure on stderr.

#include <QPainter>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/SlideRecord.h"

namespace cb::assets {

// Sample gallery pictures are 4:3, saved at this JPEG quality.
inline constexpr int kPictureWidth = 1024;
inline constexpr int kPictureHeight = 768;
inline constexpr int kJpegQuality = 85;

// The file names of the pictures that each writer makes.
QStringList FrameNames();
QStringList WallpaperNames();
QStringList GalleryNames();

// Each draws its pictures into `dir`; false, with a message on stderr, when
// one could not be written.
bool WriteFrames(const QString& dir);
bool WriteWallpapers(const QString& dir);
bool WriteGallery(const QString& dir);

// What the template files may name: pictures that the writers above make.
struct Made {
  QStringList frames;
  QStringList wallpapers;
  QStringList pictures;
};

// One template file as its tables describe it, its text in Windows-1252.
struct TemplateFile {
  QString file;
  std::int32_t slideTemplate = 0;
  std::string backgroundImage, wallpaper, reportFont;
  SlideArray slides;
};

// Reads `dataDir`/Templates.tsv and, for each file it lists, the slide table
// named after it. Nothing, with the file and line on stderr, when a value is
// too long for its field, would change in a save and a load, or names a
// picture that is not made.
std::optional<std::vector<TemplateFile>> ReadTemplates(const QString& dataDir, const Made& made);

// Writes each file into `appDir`/Files/ through the program's own storage,
// replacing what was there; false, with a message, on failure.
bool WriteTemplates(const QString& appDir, const std::vector<TemplateFile>& files);

}  // namespace cb::assets
