// SPDX-License-Identifier: GPL-3.0-or-later
// Loading a Slide Information File of 32,767 slides, the most a file holds,
// the program's way and as `chattelbook-sif export` does it, against the
// physical floor: the same file read whole into memory, as `cat` reads it.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QStringList>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>
#include <string>

#include "Commands.h"
#include "storage/DataAccess.h"

namespace {

using namespace cb;

// A full file: every slide different, with text beyond ASCII, commas and
// quotes in places, and some fields left empty, as a real inventory has.
class BigFile {
 public:
  BigFile() {
    std::filesystem::create_directories(dir_);
    SlideArray slides(kMaxRecords + 1);
    for (long i = 1; i <= kMaxRecords; ++i) {
      SlideRecord& r = slides[static_cast<std::size_t>(i)];
      const std::string n = std::to_string(i);
      r.Set(Field::PictureFile, "IMG_" + n + ".jpg");
      r.Set(Field::SlideText, i % 7 ? "Oak chair, \"Windsor\" style, bought " + n : "Caf\xE9 table \x80 " + n);
      r.Set(Field::Category, "Category " + std::to_string(i % 97));
      r.Set(Field::Location, i % 5 ? "Room " + std::to_string(i % 31) : "");
      r.Set(Field::Make, "Ercol");
      r.Set(Field::Model, i % 3 ? "Model " + std::to_string(i % 500) : "");
      r.Set(Field::Serial, "SN" + std::to_string(i * 7919));
      r.Set(Field::Value, std::to_string(i % 2000) + ".50");
    }
    const SifSettings settings{0, "Frame2.jpg", "Blue Sky.jpg", 1, "Arial"};
    ok_ = DataAccess().SaveSettings(path(), settings, slides).ok();
  }
  ~BigFile() { std::filesystem::remove_all(dir_); }

  bool ok() const { return ok_; }
  std::string path() const { return (dir_ / "Big.sif").string(); }

 private:
  std::filesystem::path dir_ =
      std::filesystem::temp_directory_path() / ("chattelbook-sif-load-" + std::to_string(::getpid()));
  bool ok_ = false;
};

const BigFile& File() {
  static const BigFile file;
  return file;
}

// The floor: open, size, and one read of the whole file into a new buffer.
void BM_ReadWhole(benchmark::State& state) {
  const std::string path = File().path();
  for (auto _ : state) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat st {};
    if (fd < 0 || ::fstat(fd, &st) != 0) return state.SkipWithError("the file cannot be read");
    const auto size = static_cast<std::size_t>(st.st_size);
    const std::unique_ptr<char[]> buffer(new char[size]);
    std::size_t done = 0;
    for (ssize_t got = 1; done < size && got > 0; done += static_cast<std::size_t>(got))
      got = ::read(fd, buffer.get() + done, size - done);
    ::close(fd);
    if (done != size) return state.SkipWithError("the file was read short");
    benchmark::DoNotOptimize(buffer.get());
  }
}

// The program's load: settings and every slide decoded into the collection.
void BM_Load(benchmark::State& state) {
  const std::string path = File().path();
  const SifPaths paths{path, std::filesystem::path(path).filename().string(), path};
  for (auto _ : state) {
    SifSettings settings;
    SlideArray slides(1);
    if (!DataAccess().LoadSettings(paths, settings, slides).ok() || slides.size() != kMaxRecords + 1)
      return state.SkipWithError("the load failed");
    benchmark::DoNotOptimize(slides.data());
  }
}

// `chattelbook-sif export Big.sif > /dev/null`, in this process.
void BM_LoadExportCsv(benchmark::State& state) {
  const QStringList args{"chattelbook-sif", "export", QString::fromStdString(File().path())};
  std::ofstream devNull("/dev/null", std::ios::binary);
  std::ostringstream err;
  std::istringstream in;
  for (auto _ : state)
    if (sif::RunSif(args, devNull, err, in) != sif::kExitOk) return state.SkipWithError(err.str().c_str());
}

BENCHMARK(BM_ReadWhole)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_Load)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_LoadExportCsv)->Unit(benchmark::kMillisecond)->UseRealTime();

// The console's table, then each benchmark's time as a multiple of the floor's.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  RatioReporter() : ConsoleReporter(OO_Tabular) {}  // no colours: the figures go into logs
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& r : runs)
      if (!r.error_occurred && r.run_type == Run::RT_Iteration) times_[r.benchmark_name()] = r.GetAdjustedRealTime();
    ConsoleReporter::ReportRuns(runs);
  }
  void Finalize() override {
    ConsoleReporter::Finalize();
    const auto floor = times_.find("BM_ReadWhole/real_time");
    if (floor == times_.end()) return;
    for (const auto& [name, time] : times_)
      if (name != floor->first) std::printf("%s: %.2fx the floor\n", name.c_str(), time / floor->second);
  }

 private:
  std::map<std::string, double> times_;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  if (!File().ok()) {
    std::fprintf(stderr, "could not write %s\n", File().path().c_str());
    return 1;
  }
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
