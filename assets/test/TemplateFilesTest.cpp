// SPDX-License-Identifier: GPL-3.0-or-later
// The installation's template files, read back through the program's own
// loader, and the pictures they and the chooser windows depend on.

#include <gtest/gtest.h>

#include <QDir>
#include <QImageReader>

#include <algorithm>
#include <set>
#include <string>

#include "base/Text.h"
#include "model/SlideRecord.h"
#include "state/SettingsStore.h"
#include "state/UIMainController.h"
#include "state/modGlobal.h"

namespace cb {
namespace {

const std::string kAppDir = CHATTELBOOK_APPDIR;

// Why a picture does not decode, or the empty string when it does at `size`.
std::string PictureFault(const std::string& path, QSize size = {}) {
  QImageReader reader(QString::fromStdString(path));
  const QImage image = reader.read();
  if (image.isNull()) return path + ": " + reader.errorString().toStdString();
  if (size.isValid() && image.size() != size) return path + ": unexpected size";
  return {};
}

std::string Trimmed(const SlideRecord& r, Field f) { return Trim(r.Get(f)); }

struct TemplateFile {
  const char* name;
  int slideTemplate;
};

void PrintTo(const TemplateFile& file, std::ostream* os) { *os << file.name; }

class TemplateFiles : public ::testing::TestWithParam<TemplateFile> {};

TEST_P(TemplateFiles, LoadUnderTheirTemplateWithPicturesThatDecode) {
  ModGlobal globals;
  MemorySettings settings;
  UIMainController controller(kAppDir, settings, globals);
  ASSERT_TRUE(controller.SetRegistryKeys(kAppDir + "/Files/" + GetParam().name));
  ErrorArray errors;
  ASSERT_TRUE(Report(controller.LoadSettings(), errors)) << errors[2];

  EXPECT_EQ(controller.SlideTemplate(), GetParam().slideTemplate);
  EXPECT_EQ(PictureFault(kAppDir + controller.GetGraphicsDirectory() + controller.BackgroundImage()), "");
  // The main window looks for its wallpaper under the lower-case spelling.
  EXPECT_EQ(PictureFault(kAppDir + "/wallpaper/" + controller.Wallpaper()), "");
  EXPECT_FALSE(controller.ReportFont().empty());

  const int count = controller.NumberOfRecords();
  EXPECT_GE(count, 12);
  EXPECT_LE(count, 20);
  ASSERT_EQ(globals.Slides.size(), static_cast<std::size_t>(count) + 1);
  std::set<std::string> categories, locations;
  for (int i = 1; i <= count; ++i) {
    const SlideRecord& slide = globals.Slides[static_cast<std::size_t>(i)];
    SCOPED_TRACE("slide " + std::to_string(i));
    EXPECT_EQ(PictureFault(kAppDir + controller.GetGalleryDirectory() + Trimmed(slide, Field::PictureFile), {1024, 768}), "");
    EXPECT_FALSE(Trimmed(slide, Field::SlideText).empty());
    // Blanks inside a grouping would be underscored by the slide editor's first OK.
    for (Field f : {Field::Category, Field::Location}) {
      EXPECT_FALSE(Trimmed(slide, f).empty());
      EXPECT_EQ(Trimmed(slide, f).find(' '), std::string::npos) << Trimmed(slide, f);
    }
    // The reports add up values; a value the editor would rewrite counts wrongly.
    const std::string value = Trimmed(slide, Field::Value);
    EXPECT_TRUE(!value.empty() && std::all_of(value.begin(), value.end(), ::isdigit)) << value;
    categories.insert(Trimmed(slide, Field::Category));
    locations.insert(Trimmed(slide, Field::Location));
  }
  // Reports group slides: most groups hold more than one.
  EXPECT_LE(categories.size() * 2, static_cast<std::size_t>(count));
  EXPECT_LE(locations.size() * 2, static_cast<std::size_t>(count));
}

INSTANTIATE_TEST_SUITE_P(Installation, TemplateFiles,
                         ::testing::Values(TemplateFile{"HomeSecurity.sif", 1}, TemplateFile{"RealEstate.sif", 2},
                                           TemplateFile{"CarYard.sif", 3}),
                         [](const auto& row) {
                           const std::string name = row.param.name;
                           return name.substr(0, name.find('.'));
                         });

TEST(Installation, FilesHoldOnlyTheTemplates) {
  const QStringList files = QDir(QString::fromStdString(kAppDir + "/Files")).entryList({"*.sif"}, QDir::Files, QDir::Name);
  EXPECT_EQ(files, QStringList({"CarYard.sif", "HomeSecurity.sif", "RealEstate.sif"}));
}

TEST(Installation, EveryFrameIsOfferedByTheChooser) {
  // The chooser offers the first fifteen "*.jpg" files that it finds.
  const QDir dir(QString::fromStdString(kAppDir + "/Background"));
  const QStringList frames = dir.entryList({"*.jpg"}, QDir::Files);
  EXPECT_GE(frames.size(), 6);
  EXPECT_LE(frames.size(), 15);
  EXPECT_EQ(dir.entryList(QDir::Files).size(), frames.size());
  for (const QString& frame : frames) EXPECT_EQ(PictureFault(dir.filePath(frame).toStdString()), "");
}

// Mean difference of grey between the pixels (x, y) and (x + dx, y + dy), wrapping at the edges,
// over the column x = `at` when dx is set, else over the row y = `at`.
double Step(const QImage& img, int at, int dx, int dy) {
  const int n = dx ? img.height() : img.width();
  double sum = 0;
  for (int k = 0; k < n; ++k) {
    const int x = dx ? at : k, y = dx ? k : at;
    sum += std::abs(qGray(img.pixel(x, y)) - qGray(img.pixel((x + dx) % img.width(), (y + dy) % img.height())));
  }
  return sum / n;
}

TEST(Installation, WallpapersTileWithoutASeam) {
  // The main window repeats a wallpaper from its top left: across the edge it
  // must change no more than between any two neighbouring columns or rows.
  const QDir dir(QString::fromStdString(kAppDir + "/Wallpaper"));
  const QStringList wallpapers = dir.entryList({"*.jpg"}, QDir::Files);
  EXPECT_GE(wallpapers.size(), 3);
  for (const QString& name : wallpapers) {
    const QImage img(dir.filePath(name));
    ASSERT_FALSE(img.isNull()) << name.toStdString();
    double across = 0, down = 0;
    for (int x = 0; x + 1 < img.width(); ++x) across = std::max(across, Step(img, x, 1, 0));
    for (int y = 0; y + 1 < img.height(); ++y) down = std::max(down, Step(img, y, 0, 1));
    EXPECT_LE(Step(img, img.width() - 1, 1, 0), across * 1.1) << name.toStdString();
    EXPECT_LE(Step(img, img.height() - 1, 0, 1), down * 1.1) << name.toStdString();
  }
}

TEST(Installation, GalleryNamesFitTheirField) {
  const QDir dir(QString::fromStdString(kAppDir + "/Gallery"));
  const QStringList pictures = dir.entryList(QDir::Files);
  EXPECT_FALSE(pictures.isEmpty());
  for (const QString& name : pictures) {
    EXPECT_LE(name.size(), static_cast<qsizetype>(LayoutOf(Field::PictureFile).width)) << name.toStdString();
    EXPECT_EQ(name, name.toLower());
    EXPECT_TRUE(name.endsWith(".jpg")) << name.toStdString();
  }
}

}  // namespace
}  // namespace cb
