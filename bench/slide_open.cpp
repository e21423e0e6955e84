// SPDX-License-Identifier: GPL-3.0-or-later
// Opening a slide whose picture is far larger than the window, driven
// through the real gallery and slide window offscreen in a 1920x1080 main
// window: a click's ShowSlide until the window has drawn its picture. Beside
// it the floor: the same file read and decoded once by TurboJPEG at the
// scale that covers the picture element. A third run opens a 200-megapixel
// picture and reports the memory the opening took at its peak. All times
// are wall-clock.

#include <benchmark/benchmark.h>
#include <turbojpeg.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <string>

#include "Smoke.h"
#include "support/LargeJpeg.h"
#include "frame/Forms.h"
#include "frame/MDIMain.h"
#include "gallery/frmGallery.h"
#include "qt/OpenForms.h"
#include "qt/StretchImage.h"
#include "slide/frmSlide.h"
#include "state/SettingsStore.h"
#include "state/modGlobal.h"

namespace {

struct Picture {
  const char* name;
  int width, height;
};
constexpr Picture k48MP{"slide48mp.jpg", 8000, 6000};
constexpr Picture k200MP{"slide200mp.jpg", 16000, 12500};

// Bump the folder's version when the pictures change, so a stale set is not measured.
QString PictureDir() { return QDir::tempPath() + "/chattelbook-bench-slide-v1"; }

// Written once into the temporary folder (quality 90): two gradients under
// per-pixel noise, so the file is the size a camera writes and the decoder
// does a camera picture's work. Made whole under another name, then renamed.
bool MakePicture(const Picture& p) {
  const QString path = PictureDir() + "/" + p.name;
  if (QImageReader(path).size() == QSize(p.width, p.height)) return true;
  QDir().mkpath(PictureDir());
  std::uint32_t seed = 12345;
  const auto row = [&](int y, unsigned char* rgb) {
    for (int x = 0; x < p.width; ++x, rgb += 3) {
      seed = seed * 1664525u + 1013904223u;
      rgb[0] = static_cast<unsigned char>(x * 200 / p.width + (seed >> 28));
      rgb[1] = static_cast<unsigned char>(y * 200 / p.height + ((seed >> 24) & 15));
      rgb[2] = static_cast<unsigned char>(90 + ((x / 97 + y / 89) % 7) * 20 + ((seed >> 20) & 15));
    }
  };
  const QString part = path + ".part";
  return cb::testing::WriteLargeJpeg(part.toStdString(), p.width, p.height, 90, row) &&
         (QFile::remove(path) || !QFile::exists(path)) && QFile::rename(part, path);
}

// A collection of one slide, whose picture is named anew before each open,
// in an installation of its own.
struct Installation {
  QTemporaryDir root;
  cb::MemorySettings settings;

  bool Make() {
    const std::string app = root.path().toStdString() + "/app";
    qputenv("XDG_CACHE_HOME", (root.path() + "/cache").toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", (root.path() + "/config").toLocal8Bit());
    for (const char* dir : {"/Files", "/Background"}) QDir().mkpath(QString::fromStdString(app + dir));
    if (!QFile::link(PictureDir(), QString::fromStdString(app + "/Gallery"))) return false;
    cb::ModGlobal& g = cb::Globals();
    g.MainController = std::make_unique<cb::UIMainController>(app, settings, g);
    g.MainController->SetRegistryKeys(app + "/Files/Slide.sif");
    g.Slides.assign(2, cb::SlideRecord());
    g.Slides[1].Set(cb::Field::PictureFile, k48MP.name);
    g.Slides[1].Set(cb::Field::SlideText, "Camera picture");
    g.MainController->NumberOfRecords(1);
    cb::ErrorArray errors;
    return Report(g.MainController->SaveSettings(), errors);
  }
};

void CloseSlide() {
  if (QWidget* slide = cb::FindOpenForm("frmSlide")) delete slide->parentWidget();
  QApplication::processEvents();
}

// A click on the gallery's first cell, up to the slide window's first paint;
// null when no picture was drawn.
cb::frmSlide* OpenSlide(const Picture& p) {
  cb::Globals().Slides[1].Set(cb::Field::PictureFile, p.name);
  cb::TheMDIMain().fGallery()->ShowSlide(1);
  auto* slide = qobject_cast<cb::frmSlide*>(cb::FindOpenForm("frmSlide"));
  if (!slide) return nullptr;
  slide->repaint();
  return slide->Image1->Held().eighths > 0 ? slide : nullptr;
}

void BM_OpenSlide48MP(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    CloseSlide();
    state.ResumeTiming();
    if (!OpenSlide(k48MP)) return state.SkipWithError("the slide window drew no picture");
  }
}

// The picture element's size on the first opening, in device pixels.
QSize theElement;

// The least any opening can take: read the file and decode it whole at the
// smallest of TurboJPEG's scales that covers the element.
void BM_OpenSlide48MPFloor(benchmark::State& state) {
  std::vector<unsigned char> pixels;
  for (auto _ : state) {
    QFile f(PictureDir() + "/" + k48MP.name);
    if (!f.open(QIODevice::ReadOnly)) return state.SkipWithError("the picture is gone");
    const QByteArray data = f.readAll();
    const auto* bytes = reinterpret_cast<const unsigned char*>(data.constData());
    const auto size = static_cast<unsigned long>(data.size());
    tjhandle tj = tjInitDecompress();
    int w = 0, h = 0, sub = 0, colours = 0;
    tjDecompressHeader3(tj, bytes, size, &w, &h, &sub, &colours);
    int count = 0;
    const tjscalingfactor* factors = tjGetScalingFactors(&count);
    tjscalingfactor scale{1, 1};
    for (int i = 0; i < count; ++i) {
      const int sw = TJSCALED(w, factors[i]), sh = TJSCALED(h, factors[i]);
      if (sw >= theElement.width() && sh >= theElement.height() && sw < TJSCALED(w, scale)) scale = factors[i];
    }
    const int sw = TJSCALED(w, scale), sh = TJSCALED(h, scale);
    pixels.resize(std::size_t(sw) * std::size_t(sh) * 4);
    const int failed = tjDecompress2(tj, bytes, size, pixels.data(), sw, 0, sh, TJPF_BGRX, 0);
    tjDestroy(tj);
    if (failed) return state.SkipWithError("TurboJPEG did not decode the picture");
    benchmark::DoNotOptimize(pixels.data());
  }
}

// A /proc/self/status line ("VmHWM", "VmRSS") in MiB.
double StatusMiB(const std::string& key) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.rfind(key + ":", 0) == 0) return std::stod(line.substr(key.size() + 1)) / 1024;
  return 0;
}

// One opening, with the high-water mark set back to what the process holds
// just before, so `peak_MiB` is what the opening itself took on top. Run it
// alone (--benchmark_filter=200MP): in a process that has opened and closed
// slides before, the allocator hands back memory it kept.
void BM_OpenSlide200MP(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    CloseSlide();
    std::ofstream("/proc/self/clear_refs") << "5";
    const double before = StatusMiB("VmRSS");
    state.ResumeTiming();
    if (!OpenSlide(k200MP)) return state.SkipWithError("the slide window drew no picture");
    state.counters["peak_MiB"] = StatusMiB("VmHWM") - before;
  }
}

BENCHMARK(BM_OpenSlide48MP)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(cb::bench::MinTime(2.0));
BENCHMARK(BM_OpenSlide48MPFloor)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(cb::bench::MinTime(2.0));
BENCHMARK(BM_OpenSlide200MP)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

}  // namespace

int main(int argc, char** argv) {
  // The offscreen platform cannot raise windows and says so at every activation.
  static QtMessageHandler others = qInstallMessageHandler([](QtMsgType t, const QMessageLogContext& c, const QString& s) {
    if (!s.contains("does not support raise()") && others) others(t, c, s);
  });
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  if (!MakePicture(k48MP) || !MakePicture(k200MP)) {
    fprintf(stderr, "could not write the pictures into %s\n", qPrintable(PictureDir()));
    return 1;
  }
  Installation installation;
  if (!installation.Make()) {
    fprintf(stderr, "could not make the installation\n");
    return 1;
  }
  cb::TheMDIMain().resize(1920, 1080);
  cb::TheMDIMain().show();
  QApplication::processEvents();  // the window is exposed, so a repaint paints
  const cb::frmSlide* slide = OpenSlide(k48MP);
  if (!slide) {
    fprintf(stderr, "the slide window drew no picture\n");
    return 1;
  }
  theElement = slide->Image1->size() * slide->Image1->devicePixelRatio();
  printf("picture element: %dx%d, decoded at %d/8\n", theElement.width(), theElement.height(),
         slide->Image1->Held().eighths);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  cb::UnloadForms();
  printf("peak memory of the process: %.0f MiB\n", StatusMiB("VmHWM"));
  return 0;
}
