// SPDX-License-Identifier: GPL-3.0-or-later
// The undo history at 32,767 slides, on disk: a save with its step beside
// the save alone, an undo beside a save, and the history's check at open
// (the stamp holding) beside the load. The edit is one slide's value.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>

#include "Smoke.h"
#include "storage/DataAccess.h"
#include "storage/SifReader.h"
#include "storage/SlideHistory.h"

namespace {

using namespace cb;
namespace fs = std::filesystem;

class Collection {
 public:
  Collection() : slides_(kMaxRecords + 1) {
    fs::create_directories(dir_);
    for (long i = 1; i <= kMaxRecords; ++i) {
      SlideRecord& r = slides_[static_cast<std::size_t>(i)];
      const std::string n = std::to_string(i);
      r.Set(Field::PictureFile, "IMG_" + n + ".jpg");
      r.Set(Field::SlideText, "Oak chair, Windsor style, bought " + n);
      r.Set(Field::Category, "Category " + std::to_string(i % 97));
      r.Set(Field::Serial, "SN" + std::to_string(i * 7919));
      r.Set(Field::Value, std::to_string(i % 2000) + ".50");
    }
    ok_ = DataAccess().SaveSettings(path(), settings_, slides_).ok();
  }
  ~Collection() { fs::remove_all(dir_); }

  bool ok() const { return ok_; }
  std::string path() const { return (dir_ / "Big.sif").string(); }
  std::string folder() const { return SlideHistory::FolderOf(path()); }

  // Gives slide 16,000 another value.
  void EditSlide() {
    SlideRecord& r = slides_[kSlide];
    r.Set(Field::Value, r.Get(Field::Value).starts_with("1.00") ? "2.00" : "1.00");
  }
  Status Save() { return DataAccess().SaveSettings(path(), settings_, slides_); }
  // The program's save of an edit: the step kept, then the file replaced.
  Status SaveWithStep(SlideHistory& history) {
    EditSlide();
    return DataAccess().SaveSettings(path(), settings_, slides_, history, "Edit Slide");
  }

 private:
  fs::path dir_ = fs::temp_directory_path() / ("chattelbook-history-" + std::to_string(::getpid()));
  SifSettings settings_{0, "Frame2.jpg", "Blue Sky.jpg", 1, "Arial"};
  SlideArray slides_;
  static constexpr std::size_t kSlide = 16000;
  bool ok_ = false;
};

Collection& Big() {
  static Collection c;
  return c;
}

std::uintmax_t FolderBytes(const std::string& folder) {
  std::uintmax_t bytes = 0;
  std::error_code ec;
  for (const auto& e : fs::directory_iterator(folder, ec)) bytes += e.is_regular_file() ? e.file_size() : 0;
  return bytes;
}

void BM_SavePlain(benchmark::State& state) {
  for (auto _ : state) {
    Big().EditSlide();
    if (!Big().Save().ok()) return state.SkipWithError("the save failed");
  }
}

void BM_SaveWithStep(benchmark::State& state) {
  SlideHistory history(Env::Default(), Big().path());
  if (history.Open() != SlideHistory::Fit::Fits || !Big().SaveWithStep(history).ok())
    return state.SkipWithError("the first step failed");
  const std::uintmax_t was = FolderBytes(Big().folder());
  if (!Big().SaveWithStep(history).ok() || history.UndoName() != "Edit Slide")
    return state.SkipWithError("the save kept no step");
  state.counters["step_bytes"] = static_cast<double>(FolderBytes(Big().folder()) - was);
  for (auto _ : state)
    if (!Big().SaveWithStep(history).ok()) return state.SkipWithError("the save with its step failed");
}

// Undo and redo in turn, the same work each way: the file read, the step
// made on its bytes in place, the file written.
void BM_Undo(benchmark::State& state) {
  SlideHistory history(Env::Default(), Big().path());
  if (history.Open() != SlideHistory::Fit::Fits || (!history.UndoName() && !Big().SaveWithStep(history).ok()))
    return state.SkipWithError("no step to undo");
  bool back = true;
  for (auto _ : state) {
    if (!DataAccess().StepHistory(Big().path(), history, back).ok()) return state.SkipWithError("the undo failed");
    back = !back;
  }
}

void BM_OpenCheck(benchmark::State& state) {
  for (auto _ : state) {
    SlideHistory history(Env::Default(), Big().path());
    if (history.Open() != SlideHistory::Fit::Fits || !history.UndoName())
      return state.SkipWithError("the history does not fit");
  }
}

void BM_Load(benchmark::State& state) {
  const SifPaths paths{Big().path(), "Big.sif", Big().path()};
  for (auto _ : state) {
    SifSettings settings;
    SlideArray slides(1);
    if (!DataAccess().LoadSettings(paths, settings, slides).ok() || slides.size() != kMaxRecords + 1)
      return state.SkipWithError("the load failed");
  }
}

BENCHMARK(BM_SavePlain)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(bench::MinTime(2));
BENCHMARK(BM_SaveWithStep)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(bench::MinTime(2));
BENCHMARK(BM_Undo)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(bench::MinTime(2));
BENCHMARK(BM_OpenCheck)->Unit(benchmark::kMicrosecond)->UseRealTime()->MinTime(bench::MinTime(1));
BENCHMARK(BM_Load)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(bench::MinTime(1));

}  // namespace
