// SPDX-License-Identifier: GPL-3.0-or-later
// The gallery's page fill with camera pictures, driven through the real
// frmGallery offscreen on a 1920x1080 screen: a first visit with every cache
// empty, with the gallery filling the screen and at its opening size (where
// the pictures' embedded thumbnails serve), a revisit, a one-column step once the look-ahead has settled, a new
// session that finds the thumbnails on disk; beside them the decode floor
// (fifteen reduced decodes straight through TurboJPEG on two threads) and
// the peer vipsthumbnail on two processes. All are wall-clock times.

#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <turbojpeg.h>

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPainter>
#include <QProcess>
#include <QRadialGradient>
#include <QScrollBar>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <thread>

#include "Smoke.h"
#include "frame/Forms.h"
#include "frame/MDIMain.h"
#include "gallery/frmGallery.h"
#include "qt/ExifThumbnail.h"
#include "qt/GalleryPictures.h"
#include "qt/StretchImage.h"
#include "state/SettingsStore.h"
#include "state/modGlobal.h"
#include "storage/SifReader.h"

namespace {

constexpr int kPictures = 30;
constexpr int kPage = 15;
constexpr QSize kPictureSize{4000, 3000};
constexpr int kQuality = 90;
// The thumbnail cameras embed in the EXIF segment.
constexpr QSize kThumbnailSize{160, 120};
// 1920x1080 split five across and three down.
constexpr QSize kCellBound{384, 360};

// Bump the folder's version when the pictures change, so a stale set is not measured.
QString PictureDir() { return QDir::tempPath() + "/chattelbook-bench-gallery-v3"; }

// Gradients, soft blobs and per-pixel sensor noise: enough detail that the
// JPEG is the size a camera writes, not a few kilobytes of flat colour.
QImage CameraLikePicture(int seed) {
  QImage img(kPictureSize, QImage::Format_RGB32);
  QPainter p(&img);
  QLinearGradient sky(0, 0, kPictureSize.width(), kPictureSize.height());
  sky.setColorAt(0, QColor::fromHsv((seed * 37) % 360, 120, 230));
  sky.setColorAt(1, QColor::fromHsv((seed * 37 + 150) % 360, 200, 60));
  p.fillRect(img.rect(), sky);
  std::uint32_t s = 2463534242u + static_cast<std::uint32_t>(seed) * 7919u;
  const auto next = [&s] {  // xorshift32: fast and repeatable
    s ^= s << 13;
    s ^= s >> 17;
    s ^= s << 5;
    return s;
  };
  p.setPen(Qt::NoPen);
  for (int i = 0; i < 40; ++i) {
    const QPointF c(next() % kPictureSize.width(), next() % kPictureSize.height());
    const qreal r = 100 + next() % 900;
    QRadialGradient g(c, r);
    g.setColorAt(0, QColor::fromHsv(next() % 360, next() % 256, next() % 256, 200));
    g.setColorAt(1, Qt::transparent);
    p.setBrush(g);
    p.drawEllipse(c, r, r);
  }
  p.end();
  for (int y = 0; y < img.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(img.scanLine(y));
    for (int x = 0; x < img.width(); ++x) {
      const std::uint32_t n = next();
      // Sum of two small uniforms: roughly bell-shaped, -15..+15 levels.
      const auto noise = [n](int shift) { return int((n >> shift) & 15) + int((n >> (shift + 4)) & 15) - 15; };
      const QRgb v = line[x];
      line[x] = qRgb(qBound(0, qRed(v) + noise(0), 255), qBound(0, qGreen(v) + noise(8), 255),
                     qBound(0, qBlue(v) + noise(16), 255));
    }
  }
  return img;
}

QByteArray JpegBytes(const QImage& image, int quality) {
  QBuffer out;
  out.open(QIODevice::WriteOnly);
  image.save(&out, "JPEG", quality);
  return out.data();
}

// The picture as a camera writes it: the EXIF segment with its thumbnail
// straight after the start marker.
QByteArray CameraJpeg(const QImage& picture) {
  const QByteArray thumbnail = JpegBytes(picture.scaled(kThumbnailSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation), 85);
  const std::string exif = cb::ExifSegment(1, {thumbnail.constData(), std::size_t(thumbnail.size())});
  const QByteArray jpeg = JpegBytes(picture, kQuality);
  return jpeg.left(2) + QByteArray::fromStdString(exif) + jpeg.mid(2);
}

// The pictures, written once and kept in the temporary folder; a file is
// only ever seen complete, so an interrupted run leaves no half picture.
QStringList CameraPictures() {
  static QStringList paths;
  if (!paths.isEmpty()) return paths;
  const QString dir = PictureDir();
  QDir().mkpath(dir);
  QStringList made;
  for (int i = 0; i < kPictures; ++i) {
    const QString path = QString("%1/picture%2.jpg").arg(dir).arg(i + 1, 2, 10, QChar('0'));
    if (QImageReader(path).size() != kPictureSize) {
      const QString part = path + ".part";
      const QByteArray bytes = CameraJpeg(CameraLikePicture(i));
      QFile out(part);
      if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size()) return {};
      out.close();
      QFile::remove(path);
      if (!QFile::rename(part, path)) return {};
    }
    made << path;
  }
  paths = made;
  return paths;
}

// An installation whose collection names the camera pictures in place (the
// gallery folder is a link to them), with a settings and a cache folder of
// its own.
struct Installation {
  QTemporaryDir root;
  std::string app = root.path().toStdString() + "/app";
  QString thumbnails = root.path() + "/cache/thumbnails";
  cb::MemorySettings settings;

  bool Make() {
    qputenv("XDG_CACHE_HOME", (root.path() + "/cache").toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", (root.path() + "/config").toLocal8Bit());
    QDir().mkpath(QString::fromStdString(app + "/Files"));
    QDir().mkpath(QString::fromStdString(app + "/Background"));
    if (!QFile::link(PictureDir(), QString::fromStdString(app + "/Gallery"))) return false;
    cb::ModGlobal& g = cb::Globals();
    g.MainController = std::make_unique<cb::UIMainController>(app, settings, g);
    cb::UIMainController& mc = *g.MainController;
    mc.SetRegistryKeys(app + "/Files/Camera.sif");
    g.Slides.assign(1, cb::SlideRecord());
    for (int i = 1; i <= kPictures; ++i) {
      cb::SlideRecord r;
      r.Set(cb::Field::PictureFile, QString("picture%1.jpg").arg(i, 2, 10, QChar('0')).toStdString());
      r.Set(cb::Field::SlideText, "Picture " + std::to_string(i));
      g.Slides.push_back(r);
    }
    mc.NumberOfRecords(kPictures);
    cb::ErrorArray errors;
    return Report(mc.SaveSettings(), errors);
  }
};

Installation* theInstallation = nullptr;

void EmptyCaches() {
  cb::GalleryPictures::Instance().WaitForIdle();
  cb::GalleryPictures::Instance().Clear();
  QDir(theInstallation->thumbnails).removeRecursively();
}

// The gallery made anew on its first page, as every command that changes the
// collection does, filling the main window or at its opening size; false
// when a cell came up empty.
bool LoadFirstPage(bool fillTheScreen = true) {
  cb::TheMDIMain().RebuildGallery();
  cb::frmGallery* gallery = cb::TheMDIMain().fGallery();
  if (!gallery) return false;
  gallery->parentWidget()->setWindowState(fillTheScreen ? Qt::WindowMaximized : Qt::WindowNoState);
  for (int i = 1; i <= kPage; ++i)
    if (!gallery->Image1(i)->HasPicture()) return false;
  return true;
}

void FirstVisit(benchmark::State& state, bool fillTheScreen) {
  for (auto _ : state) {
    state.PauseTiming();
    EmptyCaches();
    state.ResumeTiming();
    if (!LoadFirstPage(fillTheScreen)) return state.SkipWithError("a cell stayed empty");
  }
  const QSize cell = cb::TheMDIMain().fGallery()->Image1(1)->size();
  state.SetLabel(QString("cells %1x%2").arg(cell.width()).arg(cell.height()).toStdString());
}

void BM_FirstVisit(benchmark::State& state) { FirstVisit(state, true); }
// Cells smaller than the thumbnails: no picture is decoded.
void BM_FirstVisitSmallCells(benchmark::State& state) { FirstVisit(state, false); }

void BM_Revisit(benchmark::State& state) {
  LoadFirstPage();
  for (auto _ : state)
    if (!LoadFirstPage()) return state.SkipWithError("a cell stayed empty");
}

void BM_ScrollStep(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    LoadFirstPage();
    cb::GalleryPictures::Instance().WaitForIdle();
    state.ResumeTiming();
    QScrollBar* bar = cb::TheMDIMain().fGallery()->FlatScrollBar1;
    bar->setValue(bar->minimum() + bar->singleStep());  // one column right of the fresh bar
    state.PauseTiming();
    const bool shifted = cb::Globals().MainController->CurrentlyActiveBase() == 4;
    state.ResumeTiming();
    if (!shifted) return state.SkipWithError("the step did not move the page");
  }
}

void BM_NewSession(benchmark::State& state) {
  LoadFirstPage();
  for (auto _ : state) {
    state.PauseTiming();
    cb::GalleryPictures::Instance().WaitForIdle();
    cb::GalleryPictures::Instance().Clear();
    state.ResumeTiming();
    if (!LoadFirstPage()) return state.SkipWithError("a cell stayed empty");
  }
}

// The least any page fill can take: read and decode each file at the scale
// that covers the cell, nothing else, split over two threads.
void BM_DecodeFloor(benchmark::State& state) {
  const QStringList paths = CameraPictures().mid(0, kPage);
  std::vector<QByteArray> files;
  for (auto _ : state) {
    std::atomic<bool> ok = true;
    const auto work = [&](int first) {
      tjhandle tj = tjInitDecompress();
      std::vector<unsigned char> pixels;
      for (int i = first; i < kPage; i += 2) {
        QFile f(paths[i]);
        if (!f.open(QIODevice::ReadOnly)) ok = false;
        const QByteArray data = f.readAll();
        const auto* bytes = reinterpret_cast<const unsigned char*>(data.constData());
        int w = 0, h = 0, sub = 0, cs = 0;
        tjDecompressHeader3(tj, bytes, static_cast<unsigned long>(data.size()), &w, &h, &sub, &cs);
        const tjscalingfactor eighth{1, 8};
        const int sw = TJSCALED(w, eighth), sh = TJSCALED(h, eighth);
        if (sw < kCellBound.width() || sh < kCellBound.height()) ok = false;
        pixels.resize(std::size_t(sw) * std::size_t(sh) * 4);
        if (tjDecompress2(tj, bytes, static_cast<unsigned long>(data.size()), pixels.data(), sw, 0, sh, TJPF_BGRX, 0))
          ok = false;
        benchmark::DoNotOptimize(pixels.data());
      }
      tjDestroy(tj);
    };
    std::thread second(work, 1);
    work(0);
    second.join();
    if (!ok) return state.SkipWithError("a picture did not decode at 1/8");
  }
}

// vipsthumbnail over the page split into two runs at once, each writing its
// thumbnails into a fresh folder.
void BM_Vipsthumbnail2(benchmark::State& state) {
  const QString vips = QStandardPaths::findExecutable("vipsthumbnail");
  if (vips.isEmpty()) return state.SkipWithError("vipsthumbnail is not installed (Debian: libvips-tools)");
  const QStringList paths = CameraPictures().mid(0, kPage);
  const QString size = QString("%1x%2").arg(kCellBound.width()).arg(kCellBound.height());
  for (auto _ : state) {
    state.PauseTiming();
    QTemporaryDir out;
    std::vector<std::unique_ptr<QProcess>> runs;
    state.ResumeTiming();
    constexpr int kProcesses = 2;
    const int share = (kPage + kProcesses - 1) / kProcesses;
    for (int i = 0; i < kProcesses; ++i) {
      QStringList args{"--size", size, "-o", out.path() + "/%s.jpg"};
      args << paths.mid(i * share, share);
      runs.push_back(std::make_unique<QProcess>());
      runs.back()->start(vips, args);
    }
    for (auto& run : runs) {
      if (!run->waitForFinished(-1) || run->exitStatus() != QProcess::NormalExit || run->exitCode() != 0)
        return state.SkipWithError("vipsthumbnail failed");
    }
    state.PauseTiming();
    if (QDir(out.path()).entryList(QDir::Files).size() != kPage)
      return state.SkipWithError("vipsthumbnail did not write every thumbnail");
    runs.clear();
    state.ResumeTiming();
  }
}

// A keystroke in the find bar over a full collection of 32,767 slides (the
// camera pictures named again and again) while the pictures of the matches'
// first page are cached: the query, the cells and the status text. It must
// be drawn within one frame, 16 ms.
void BM_FindKeystroke(benchmark::State& state) {
  cb::ModGlobal& g = cb::Globals();
  const cb::SlideArray kept = g.Slides;
  g.Slides.assign(1, cb::SlideRecord());
  for (int i = 1; i <= cb::kMaxRecords; ++i) {
    cb::SlideRecord r;
    r.Set(cb::Field::PictureFile, QString("picture%1.jpg").arg(i % kPictures + 1, 2, 10, QChar('0')).toStdString());
    r.Set(cb::Field::SlideText, "Picture " + std::to_string(i));
    r.Set(cb::Field::Location, i % 4 ? "Lounge" : "Garage");
    r.Set(cb::Field::Value, std::to_string(i % 1000));
    g.Slides.push_back(r);
  }
  g.MainController->NumberOfRecords(cb::kMaxRecords);
  LoadFirstPage(false);
  cb::frmGallery* gallery = cb::TheMDIMain().fGallery();
  gallery->mnuEditFind_Click();
  // Each keystroke types or takes back the last character.
  const QString typed[] = {"location:garage picture 12 value>5", "location:garage picture 1 value>5"};
  for (const QString& text : typed) gallery->txtFind->setText(text);
  cb::GalleryPictures::Instance().WaitForIdle();
  int k = 0;
  for (auto _ : state) {
    gallery->txtFind->setText(typed[k++ % 2]);
    gallery->repaint();  // the frame itself: cells, bar and count drawn
  }
  state.SetLabel(gallery->lblFound->text().toStdString() + "; one frame is 16 ms");
  gallery->CloseFindBar();
  g.Slides = kept;
  g.MainController->NumberOfRecords(kPictures);
  LoadFirstPage();
}

BENCHMARK(BM_FirstVisit)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(cb::bench::MinTime(2.0));
BENCHMARK(BM_FirstVisitSmallCells)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(cb::bench::MinTime(2.0));
BENCHMARK(BM_Revisit)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(cb::bench::MinTime(1.0));
BENCHMARK(BM_ScrollStep)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(cb::bench::MinTime(2.0));
BENCHMARK(BM_NewSession)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(cb::bench::MinTime(2.0));
BENCHMARK(BM_DecodeFloor)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(cb::bench::MinTime(2.0));
BENCHMARK(BM_FindKeystroke)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(cb::bench::MinTime(1.0));
BENCHMARK(BM_Vipsthumbnail2)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(cb::bench::MinTime(2.0));

// The screen the cells are measured on: 1920x1080 at 96 dpi.
QString ScreenConfig(const QTemporaryDir& dir) {
  const QString path = dir.path() + "/screen.json";
  QFile f(path);
  if (f.open(QIODevice::WriteOnly))
    f.write(R"({"screens":[{"name":"bench","x":0,"y":0,"width":1920,"height":1080,"logicalDpi":96}]})");
  return path;
}

// The offscreen platform cannot raise windows and says so at every activation.
QtMessageHandler otherMessages = nullptr;
void QuietRaise(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (text.contains("does not support raise()")) return;
  if (otherMessages) otherMessages(type, context, text);
}

}  // namespace

int main(int argc, char** argv) {
  otherMessages = qInstallMessageHandler(QuietRaise);
  const QTemporaryDir config;
  qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + ScreenConfig(config)).toLocal8Bit());
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  if (CameraPictures().isEmpty()) {
    fprintf(stderr, "could not write the pictures into %s\n", qPrintable(PictureDir()));
    return 1;
  }
  Installation installation;
  theInstallation = &installation;
  if (!installation.Make()) {
    fprintf(stderr, "could not make the installation\n");
    return 1;
  }
  if (cb::GalleryCellBound() != kCellBound) {
    fprintf(stderr, "the screen gives cells of %dx%d, not 384x360\n", cb::GalleryCellBound().width(),
            cb::GalleryCellBound().height());
    return 1;
  }
  cb::TheMDIMain().resize(1920, 1080);
  cb::TheMDIMain().show();
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  cb::GalleryPictures::Instance().WaitForIdle();
  cb::UnloadForms();
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  printf("peak memory of the process: %ld MiB\n", usage.ru_maxrss / 1024);
  return 0;
}
