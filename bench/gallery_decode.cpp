// A gallery page: fifteen camera-sized JPEGs brought down to the largest cell
// of a 1920x1080 screen. The program decodes at reduced scale on both cores;
// beside it the whole decode then scale, the same reduced decode on one
// thread, and the peer vipsthumbnail (Debian's libvips-tools) as one process
// and as two. All are wall-clock times for the whole page.

#include <benchmark/benchmark.h>

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QProcess>
#include <QRadialGradient>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <cstdint>
#include <cstdio>
#include <memory>

#include "qt/DecodePictures.h"
#include "qt/LoadPicture.h"

namespace {

constexpr int kPagePictures = 15;
constexpr QSize kPictureSize{4000, 3000};
constexpr int kQuality = 90;
// 1920x1080 split five across and three down.
constexpr QSize kCellBound{384, 360};

// Bump the folder's version when the pictures change, so a stale cache is
// not measured.
QString PictureDir() { return QDir::tempPath() + "/chattelbook-bench-gallery-v1"; }

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

// The page's files, written once and kept in the temporary folder; a file
// is only ever seen complete, so an interrupted run leaves no half picture.
QStringList PagePictures() {
  static QStringList paths;
  if (!paths.isEmpty()) return paths;
  const QString dir = PictureDir();
  QDir().mkpath(dir);
  QStringList made;
  for (int i = 0; i < kPagePictures; ++i) {
    const QString path = QString("%1/picture%2.jpg").arg(dir).arg(i + 1, 2, 10, QChar('0'));
    if (QImageReader(path).size() != kPictureSize) {
      const QString part = path + ".part";
      if (!CameraLikePicture(i).save(part, "JPEG", kQuality)) return {};
      QFile::remove(path);
      if (!QFile::rename(part, path)) return {};
    }
    made << path;
  }
  paths = made;
  return paths;
}

// Reports the page's size in pictures per second beside the time.
void CountPictures(benchmark::State& state) {
  state.counters["pictures"] =
      benchmark::Counter(double(state.iterations()) * kPagePictures, benchmark::Counter::kIsRate);
}

// A decode that came back empty or at the wrong size would make a fast,
// meaningless figure.
bool FitsCell(const QImage& img) {
  return !img.isNull() && img.width() >= kCellBound.width() / 2 && img.width() <= kCellBound.width() * 2 &&
         img.height() >= kCellBound.height() / 2 && img.height() <= kCellBound.height() * 2;
}

void BM_WholeDecodeThenScale(benchmark::State& state) {
  const QStringList paths = PagePictures();
  if (paths.isEmpty()) return state.SkipWithError("could not write the pictures");
  for (auto _ : state) {
    for (const QString& path : paths) {
      const QImage cell = QImage(path).scaled(kCellBound, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
      if (!FitsCell(cell)) return state.SkipWithError("a picture did not decode");
      benchmark::DoNotOptimize(cell.constBits());
    }
  }
  CountPictures(state);
}

void BM_ScaledDecodeOneThread(benchmark::State& state) {
  const QStringList paths = PagePictures();
  if (paths.isEmpty()) return state.SkipWithError("could not write the pictures");
  for (auto _ : state) {
    for (const QString& path : paths) {
      QImage cell;
      if (cb::LoadPicture(path, cell, kCellBound) != cb::RtError::None || !FitsCell(cell))
        return state.SkipWithError("a picture did not decode");
      benchmark::DoNotOptimize(cell.constBits());
    }
  }
  CountPictures(state);
}

void BM_DecodePictures(benchmark::State& state) {
  const QStringList paths = PagePictures();
  if (paths.isEmpty()) return state.SkipWithError("could not write the pictures");
  for (auto _ : state) {
    const std::vector<cb::DecodedPicture> page = cb::DecodePictures(paths, kCellBound);
    for (const cb::DecodedPicture& d : page)
      if (d.error != cb::RtError::None || !FitsCell(d.image)) return state.SkipWithError("a picture did not decode");
    benchmark::DoNotOptimize(page.data());
  }
  CountPictures(state);
}

// vipsthumbnail over the page split into `processes` runs at once, each
// writing its thumbnails into a fresh folder.
void BM_Vipsthumbnail(benchmark::State& state) {
  const QString vips = QStandardPaths::findExecutable("vipsthumbnail");
  if (vips.isEmpty()) return state.SkipWithError("vipsthumbnail is not installed (Debian: libvips-tools)");
  const QStringList paths = PagePictures();
  if (paths.isEmpty()) return state.SkipWithError("could not write the pictures");
  const int processes = static_cast<int>(state.range(0));
  const QString size = QString("%1x%2").arg(kCellBound.width()).arg(kCellBound.height());
  for (auto _ : state) {
    state.PauseTiming();
    QTemporaryDir out;
    std::vector<std::unique_ptr<QProcess>> runs;
    state.ResumeTiming();
    const int share = (kPagePictures + processes - 1) / processes;
    for (int i = 0; i < processes; ++i) {
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
    if (QDir(out.path()).entryList(QDir::Files).size() != kPagePictures)
      return state.SkipWithError("vipsthumbnail did not write every thumbnail");
    runs.clear();
    state.ResumeTiming();
  }
  CountPictures(state);
}

// A page takes from a few hundred milliseconds to over a second; two seconds
// gives several pages each, and the decodes on other threads count only in
// wall-clock time.
BENCHMARK(BM_WholeDecodeThenScale)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);
BENCHMARK(BM_ScaledDecodeOneThread)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);
BENCHMARK(BM_DecodePictures)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);
BENCHMARK(BM_Vipsthumbnail)->ArgName("processes")->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);

}  // namespace

int main(int argc, char** argv) {
  // Painting the pictures and the image plugins want an application; no
  // window is shown.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  if (PagePictures().isEmpty()) {
    fprintf(stderr, "could not write the pictures into %s\n", qPrintable(PictureDir()));
    return 1;
  }
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
