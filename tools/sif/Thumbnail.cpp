// SPDX-License-Identifier: GPL-3.0-or-later
#include "Thumbnail.h"

#include <QCommandLineParser>
#include <QImage>
#include <QImageReader>
#include <QPainter>

#include <filesystem>
#include <vector>

#include "artwork/ProgramIcon.h"
#include "base/Cp1252.h"
#include "base/Text.h"
#include "pack/ClaimContent.h"
#include "pack/SifFile.h"
#include "qt/OutputFile.h"

namespace cb::sif {
namespace {

using pack::DefaultGalleryDir;
using pack::ReadSif;
using pack::SifDocument;

constexpr int kDefaultSide = 256;
constexpr int kMinSide = 16, kMaxSide = 4096;
constexpr std::size_t kGrid = 4;  // 2 x 2

// The gallery's files that the first slides name and that look like
// pictures, up to kGrid. A name with a "/" would lead out of the gallery.
std::vector<QString> FirstPictures(const SifDocument& doc, const std::string& sifPath) {
  const std::filesystem::path gallery = DefaultGalleryDir(sifPath);
  std::vector<QString> paths;
  for (std::size_t i = 1; i < doc.Slides.size() && paths.size() < kGrid; ++i) {
    const std::string name = Cp1252ToUtf8(Trim(StripAtNul(doc.Slides[i].Get(Field::PictureFile))));
    if (name.empty() || name.find('/') != std::string::npos) continue;
    const QString path = QString::fromStdString((gallery / name).string());
    if (QImageReader(path).canRead()) paths.push_back(path);
  }
  return paths;
}

// The picture upright and within `side` x `side`, decoded no larger than
// shown; null when it does not decode. The decoder scales before it turns
// the picture, which a square box allows.
QImage Fitted(const QString& path, int side) {
  QImageReader reader(path);
  reader.setAutoTransform(true);
  if (const QSize stored = reader.size(); stored.width() > side || stored.height() > side)
    reader.setScaledSize(stored.scaled(side, side, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
  return reader.read();
}

QImage Thumbnail(const std::vector<QString>& paths, int side) {
  if (paths.size() == 1)
    if (QImage alone = Fitted(paths[0], side); !alone.isNull()) return alone;
  const int cell = side / 2;
  QImage sheet(2 * cell, 2 * cell, QImage::Format_ARGB32_Premultiplied);
  sheet.fill(Qt::transparent);
  QPainter painter(&sheet);
  bool drawn = false;
  for (std::size_t i = 0; i < paths.size(); ++i) {
    const QImage picture = Fitted(paths[i], cell);
    if (picture.isNull()) continue;
    const QPoint corner(int(i % 2) * cell, int(i / 2) * cell);
    painter.drawImage(corner + QPoint((cell - picture.width()) / 2, (cell - picture.height()) / 2), picture);
    drawn = true;
  }
  return drawn ? sheet : PaintProgramIcon(side);
}

}  // namespace

int RunThumbnail(const QStringList& args, const CommandIo& io) {
  QCommandLineParser p;
  const QCommandLineOption size(QString("size"), "the longest side in pixels", "N", QString::number(kDefaultSide));
  p.addOption(size);
  p.addHelpOption();
  if (!p.parse(args)) return UsageError(io, p.errorText().toStdString());
  if (p.isSet("help")) {
    io.out << io.usage;
    return kExitOk;
  }
  const QStringList files = p.positionalArguments();
  if (files.size() != 2) return UsageError(io, "thumbnail takes FILE.sif and OUT.png");
  bool number = false;
  const int side = p.value(size).toInt(&number);
  if (!number || side < kMinSide || side > kMaxSide)
    return UsageError(io, "--size takes a number from " + std::to_string(kMinSide) + " to " + std::to_string(kMaxSide));

  const std::string sifPath = files[0].toStdString();
  SifDocument doc;
  std::string message;
  if (!ReadSif(sifPath, doc, message)) return DataError(io, message);
  const QImage thumbnail = Thumbnail(FirstPictures(doc, sifPath), side);
  OutputFile out(files[1]);
  if (!out.open() || !thumbnail.save(&out.device(), "PNG") || !out.commit())
    return DataError(io, files[1].toStdString() + ": cannot be written");
  return kExitOk;
}

}  // namespace cb::sif
