// SPDX-License-Identifier: GPL-3.0-or-later
// The template files are written through the program's own storage code, so
// their bytes are exactly what the program itself would save.

#include <QFile>
#include <QTextStream>

#include <cstdio>
#include <optional>

#include "Assets.h"
#include "base/Cp1252.h"
#include "model/SlideRecord.h"
#include "state/SettingsStore.h"
#include "state/UIMainController.h"
#include "state/modGlobal.h"

namespace cb::assets {
namespace {

// The slide tables name their columns after the record's fields.
constexpr Field kSlideColumns[] = {Field::PictureFile, Field::SlideText, Field::Category, Field::Location,
                                   Field::Make,        Field::Model,     Field::Serial,   Field::Value};
const QStringList kFileColumns{"File", "SlideTemplate", "BackgroundImage", "Wallpaper", "ReportFont"};

struct Row {
  int line;
  QStringList cells;
};

bool Complain(const QString& where, const QString& what) {
  std::fprintf(stderr, "%s: %s\n", qPrintable(where), qPrintable(what));
  return false;
}

std::nullopt_t Refuse(const QString& where, const QString& what) {
  Complain(where, what);
  return std::nullopt;
}

// The rows of a tab-separated table whose heading must be `columns`; blank
// lines and lines starting with "#" are notes.
std::optional<QList<Row>> ReadTable(const QString& path, const QStringList& columns) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return Refuse(path, "cannot be read");
  QTextStream in(&file);
  QList<Row> rows;
  bool heading = true;
  for (int line = 1; !in.atEnd(); ++line) {
    const QString text = in.readLine();
    if (text.trimmed().isEmpty() || text.startsWith('#')) continue;
    const QStringList cells = text.split('\t');
    const QString where = QString("%1:%2").arg(path).arg(line);
    if (heading) {
      if (cells != columns) return Refuse(where, "the heading must be: " + columns.join(" "));
      heading = false;
    } else if (cells.size() != columns.size()) {
      return Refuse(where, QString("%1 cells where %2 are wanted").arg(cells.size()).arg(columns.size()));
    } else {
      rows.append({line, cells});
    }
  }
  return rows;
}

// The value in the files' code page, refused when the field would not keep
// it as written: too long, not in Windows-1252, or changed by the scrambling
// (a leading blank costs the last character; a code 224 reads back as padding).
std::optional<std::string> FieldText(const QString& value, std::string_view field, std::size_t width,
                                     const QString& where) {
  const auto bytes = Utf8ToCp1252(value.toStdString());
  const QString name = QString::fromUtf8(field.data(), static_cast<qsizetype>(field.size()));
  if (!bytes) return Refuse(where, name + " \"" + value + "\" has a character outside Windows-1252");
  if (bytes->size() > width)
    return Refuse(where, QString("%1 \"%2\" is %3 characters; the field holds %4").arg(name, value).arg(bytes->size()).arg(width));
  if (bytes->starts_with(' ') || bytes->find('\xE0') != std::string::npos)
    return Refuse(where, name + " \"" + value + "\" would not survive a save and a load");
  return bytes;
}

bool ReadSlides(const QString& path, const Made& made, SlideArray& slides) {
  QStringList columns;
  for (Field f : kSlideColumns) columns << QString::fromUtf8(LayoutOf(f).name.data());
  const auto rows = ReadTable(path, columns);
  if (!rows) return false;
  slides.assign(1, SlideRecord());
  for (const Row& row : *rows) {
    const QString where = QString("%1:%2").arg(path).arg(row.line);
    SlideRecord record;
    for (int c = 0; c < row.cells.size(); ++c) {
      const FieldLayout& entry = LayoutOf(kSlideColumns[c]);
      const auto text = FieldText(row.cells[c], entry.name, entry.width, where);
      if (!text) return false;
      record.Set(entry.field, *text);
    }
    if (!made.pictures.contains(row.cells[0])) return Complain(where, "no gallery picture " + row.cells[0]);
    slides.push_back(record);
  }
  return true;
}

std::optional<TemplateFile> ReadFile(const QString& dataDir, const Row& row, const Made& made) {
  const QString where = QString("%1/Templates.tsv:%2").arg(dataDir).arg(row.line);
  TemplateFile file;
  file.file = row.cells[0];
  bool numeric = false;
  file.slideTemplate = row.cells[1].toInt(&numeric);
  if (!numeric) return Refuse(where, "SlideTemplate is no number");
  if (!made.frames.contains(row.cells[2])) return Refuse(where, "no frame " + row.cells[2]);
  if (!made.wallpapers.contains(row.cells[3])) return Refuse(where, "no wallpaper " + row.cells[3]);
  const auto background = FieldText(row.cells[2], "BackgroundImage", LayoutOf(Field::PictureFile).width, where);
  const auto wallpaper = FieldText(row.cells[3], "Wallpaper", LayoutOf(Field::SlideText).width, where);
  const auto font = FieldText(row.cells[4], "ReportFont", LayoutOf(Field::Make).width, where);
  if (!background || !wallpaper || !font) return std::nullopt;
  file.backgroundImage = *background;
  file.wallpaper = *wallpaper;
  file.reportFont = *font;
  if (!ReadSlides(dataDir + "/" + QString(file.file).replace(".sif", ".tsv"), made, file.slides)) return std::nullopt;
  return file;
}

}  // namespace

std::optional<std::vector<TemplateFile>> ReadTemplates(const QString& dataDir, const Made& made) {
  const auto rows = ReadTable(dataDir + "/Templates.tsv", kFileColumns);
  if (!rows) return std::nullopt;
  std::vector<TemplateFile> files;
  for (const Row& row : *rows) {
    auto file = ReadFile(dataDir, row, made);
    if (!file) return std::nullopt;
    files.push_back(std::move(*file));
  }
  return files;
}

bool WriteTemplates(const QString& appDir, const std::vector<TemplateFile>& files) {
  for (const TemplateFile& file : files) {
    ModGlobal globals;
    globals.Slides = file.slides;
    MemorySettings settings;
    UIMainController controller(appDir.toStdString(), settings, globals);
    const QString path = appDir + "/Files/" + file.file;
    // A save keeps the tail of a longer old file; start from nothing.
    QFile::remove(path);
    controller.SetRegistryKeys(path.toStdString());
    controller.SlideTemplate(file.slideTemplate);
    controller.BackgroundImage(file.backgroundImage);
    controller.Wallpaper(file.wallpaper);
    controller.ReportFont(file.reportFont);
    ErrorArray errors;
    if (!Report(controller.SaveSettings(), errors))
      return Complain(path, QString::fromStdString("error " + errors[0] + ": " + errors[2]));
  }
  return true;
}

}  // namespace cb::assets
