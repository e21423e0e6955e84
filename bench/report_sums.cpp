// SPDX-License-Identifier: GPL-3.0-or-later
// The summary report's sums and page. The program makes them in one pass
// over the slides; the peer is the literal triple loop (groups x entries x
// slides) with a search per slide for the key lists, from the tests.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <random>

#include "LiteralReport.h"
#include "model/Categories.h"
#include "reports/SummaryPage.h"
#include "reports/UIReportController.h"
#include "reports/ValueMatrix.h"
#include "state/SettingsStore.h"
#include "state/UIMainController.h"
#include "state/modGlobal.h"

namespace {

using namespace cb;

SlideArray Inventory(int slides, int categories, int locations) {
  std::mt19937 rng(2001);
  std::uniform_int_distribution<int> cents(0, 500000);
  SlideArray s(1);
  for (int i = 0; i < slides; ++i) {
    SlideRecord r;
    // Every key occurs, then the rest fall at random.
    const int c = i < categories ? i : static_cast<int>(rng() % static_cast<unsigned>(categories));
    const int l = i < locations ? i : static_cast<int>(rng() % static_cast<unsigned>(locations));
    r.Set(Field::PictureFile, "p" + std::to_string(i) + ".jpg");
    r.Set(Field::SlideText, "Slide " + std::to_string(i));
    r.Set(Field::Category, "Category " + std::to_string(c));
    r.Set(Field::Location, "Location " + std::to_string(l));
    r.Set(Field::Value, std::to_string(cents(rng) / 100) + "." + std::to_string(cents(rng) % 100));
    s.push_back(r);
  }
  return s;
}

// The whole summary report by category, file included, at the format's limit.
void BM_SummaryReportAtLimit(benchmark::State& state) {
  const auto dir = std::filesystem::temp_directory_path() / ("chattelbook-bench-" + std::to_string(::getpid()));
  std::filesystem::create_directories(dir);
  MemorySettings settings;
  ModGlobal g;
  UIMainController mc(dir.string(), settings, g);
  mc.SlideInformationFilePath("/home/ann/Chattelbook/Files/Bench.sif");
  mc.SlideTemplate(1);
  g.Slides = Inventory(32767, 2000, 1000);
  ReportLocale locale;
  locale.generalDate = [] { return std::string("22/11/2026 20:07:34"); };
  UIReportController reports(mc, g.Slides, g.ErrorInfo, locale);
  reports.ReportFont("Arial Narrow");
  for (auto _ : state) {
    if (!reports.CreateReportByCategory()) state.SkipWithError("the report was not written");
  }
  state.counters["page_bytes"] = static_cast<double>(std::filesystem::file_size(dir / "Reports" / "Report1.htm"));
  std::filesystem::remove_all(dir);
}
BENCHMARK(BM_SummaryReportAtLimit)->Unit(benchmark::kMillisecond);

constexpr int kSmallSlides = 2000, kSmallCategories = 200, kSmallLocations = 100;

// Keys, sums and rows the program's way, on the size the peer can finish.
void BM_FastPath(benchmark::State& state) {
  const SlideArray slides = Inventory(kSmallSlides, kSmallCategories, kSmallLocations);
  ReportLocale locale;
  for (auto _ : state) {
    KeyList categories(1), locations(1);
    GetCategories(slides, categories);
    GetLocations(slides, locations);
    ValueMatrix m(static_cast<std::int32_t>(categories.size()) - 1, static_cast<std::int32_t>(locations.size()) - 1);
    SumValues(slides, Field::Category, Field::Location, categories, locations, m);
    SummaryPageInput in;
    in.matrix = &m;
    in.groups = &categories;
    in.entries = &locations;
    in.groupLabel = "Location";
    in.font = "Arial Narrow";
    in.filePath = "/home/ann/Chattelbook/Files/Bench.sif";
    in.locale = &locale;
    benchmark::DoNotOptimize(WriteSummaryPage(in));
  }
}
BENCHMARK(BM_FastPath)->Unit(benchmark::kMillisecond);

// The peer: the literal loops on the same inventory.
void BM_LiteralTripleLoop(benchmark::State& state) {
  const SlideArray slides = Inventory(kSmallSlides, kSmallCategories, kSmallLocations);
  ReportLocale locale;
  for (auto _ : state) {
    KeyList categories(1), locations(1);
    literal::Keys(slides, Field::Category, categories);
    literal::Keys(slides, Field::Location, locations);
    ValueMatrix m(static_cast<std::int32_t>(categories.size()) - 1, static_cast<std::int32_t>(locations.size()) - 1);
    literal::Sums(slides, Field::Category, Field::Location, categories, locations, m);
    benchmark::DoNotOptimize(
        literal::Rows(m, categories, locations, "Arial Narrow", "/home/ann/Chattelbook/Files/Bench.sif", locale));
  }
}
BENCHMARK(BM_LiteralTripleLoop)->Unit(benchmark::kMillisecond);

}  // namespace
