// SPDX-License-Identifier: GPL-3.0-or-later
// Finding slides in a full file of 32,767: a query of three words and a
// field, as the find bar runs it per keystroke, against the physical floor,
// one scan of the same folded text for one word. Beside them the index's
// build, set against the load that precedes it, and its memory.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <random>
#include <string>

#include "Smoke.h"
#include "find/FindBytes.h"
#include "find/SlideQuery.h"
#include "storage/DataAccess.h"

namespace {

using namespace cb;

constexpr std::string_view kQuery = "drill bosch cordless location:garage";
constexpr std::string_view kScanWord = "cordless";  // the query's longest word, which it scans for first

struct Kind {
  const char* text;
  const char* category;
  std::array<const char*, 4> makes;
  std::array<const char*, 3> locations;
};

// Things a household lists, tools among them; Windows-1252 bytes.
constexpr Kind kKinds[] = {
    {"Cordless drill", "Tools", {"Bosch", "Makita", "DeWalt", "Ryobi"}, {"Garage", "Garage", "Workshop"}},
    {"Hammer drill", "Tools", {"Bosch", "Makita", "Hilti", "Metabo"}, {"Garage", "Workshop", "Cellar"}},
    {"Cordless screwdriver", "Tools", {"Bosch", "Makita", "Wera", "Ryobi"}, {"Garage", "Garage", "Kitchen"}},
    {"Drill press", "Tools", {"Bosch", "Scheppach", "Einhell", "Proxxon"}, {"Workshop", "Garage", "Cellar"}},
    {"Angle grinder", "Tools", {"Bosch", "Makita", "Metabo", "Einhell"}, {"Garage", "Workshop", "Shed"}},
    {"Lawn mower", "Garden", {"Honda", "Bosch", "Husqvarna", "Stihl"}, {"Garage", "Shed", "Garden"}},
    {"Hedge trimmer, cordless", "Garden", {"Bosch", "Stihl", "Ryobi", "Gardena"}, {"Shed", "Garage", "Garden"}},
    {"Washing machine", "Appliances", {"Bosch", "Miele", "Siemens", "AEG"}, {"Utility room", "Kitchen", "Cellar"}},
    {"Dishwasher", "Appliances", {"Bosch", "Miele", "Siemens", "Neff"}, {"Kitchen", "Kitchen", "Utility room"}},
    {"Caf\xE9 table", "Furniture", {"Ercol", "IKEA", "Habitat", "Thonet"}, {"Kitchen", "Dining room", "Garden"}},
    {"Armchair", "Furniture", {"Ercol", "G Plan", "IKEA", "Vitra"}, {"Living room", "Bedroom", "Study"}},
    {"Television", "Electronics", {"Sony", "Samsung", "LG", "Philips"}, {"Living room", "Bedroom", "Kitchen"}},
    {"Laptop", "Electronics", {"Lenovo", "Dell", "Apple", "HP"}, {"Study", "Bedroom", "Living room"}},
    {"Camera", "Electronics", {"Nikon", "Canon", "Sony", "Fujifilm"}, {"Study", "Safe", "Hall"}},
    {"Ring, gold", "Jewellery", {"Cartier", "Tiffany", "Bulgari", "Pandora"}, {"Safe", "Bedroom", "Bedroom"}},
    {"Oil painting", "Art", {"", "", "", ""}, {"Hall", "Living room", "Dining room"}},
    {"Bicycle", "Sport", {"Trek", "Cube", "Brompton", "Specialized"}, {"Garage", "Hall", "Shed"}},
    {"Vacuum cleaner, cordless", "Appliances", {"Dyson", "Bosch", "Miele", "Shark"}, {"Hall", "Cellar", "Garage"}},
    {"Espresso machine", "Appliances", {"De'Longhi", "Jura", "Sage", "Krups"}, {"Kitchen", "Kitchen", "Dining room"}},
    {"Wardrobe", "Furniture", {"IKEA", "H\xFClsta", "Nolte", "Wiemann"}, {"Bedroom", "Bedroom", "Hall"}},
};

constexpr const char* kNotes[] = {
    "with charger and two batteries",
    "drill bits and case included",
    "receipt in the folder",
    "bought in Z\xFCrich",
    "Stra\xDF"
    "e sale, a bargain",
    "\xC6on series, limited",
    "cr\xE8me colour",
    "gift from the se\xF1ora next door",
    "scratched on the left side",
    "spare parts in the cellar",
    "as new, boxed",
    "insured separately",
};

SlideArray Inventory() {
  std::mt19937 rng(1204);
  const auto pick = [&rng](std::size_t n) { return static_cast<std::size_t>(rng() % n); };
  SlideArray slides(kMaxRecords + 1);
  for (long i = 1; i <= kMaxRecords; ++i) {
    const Kind& k = kKinds[pick(std::size(kKinds))];
    const std::string make = k.makes[pick(k.makes.size())];
    const std::string n = std::to_string(i);
    SlideRecord& r = slides[static_cast<std::size_t>(i)];
    r.Set(Field::PictureFile, "IMG_" + n + ".jpg");
    r.Set(Field::SlideText, std::string(k.text) + (make.empty() ? "" : " by " + make) + ", " +
                                kNotes[pick(std::size(kNotes))] + ", bought " + std::to_string(1990 + pick(35)));
    r.Set(Field::Category, k.category);
    r.Set(Field::Location, k.locations[pick(k.locations.size())]);
    r.Set(Field::Make, make);
    r.Set(Field::Model, make.empty() ? "" : make.substr(0, 2) + "-" + std::to_string(pick(900) + 100));
    r.Set(Field::Serial, pick(4) ? "SN" + std::to_string(rng() % 10000000) : "");
    // One in ten values holds no number, as "$120" or "see receipt" do.
    r.Set(Field::Value, pick(10) ? std::to_string(pick(5000)) + "." + std::to_string(pick(90) + 10)
                                 : (pick(2) ? "$120" : "see receipt"));
  }
  return slides;
}

const SlideArray& Slides() {
  static const SlideArray slides = Inventory();
  return slides;
}

const SlideIndex& Index() {
  static const SlideIndex index(Slides());
  return index;
}

// The places of `word` in the folded text: one pass over all of it.
std::size_t CountPlaces(std::string_view text, std::string_view word) {
  std::size_t count = 0;
  const char* const end = text.data() + text.size();
  for (const char* p = text.data(); (p = FindBytes(p, end, word)) != nullptr; p += word.size()) ++count;
  return count;
}

// The same with glibc's memmem, the search FindBytes was measured against.
std::size_t CountPlacesMemmem(std::string_view text, std::string_view word) {
  std::size_t count = 0;
  const char* const end = text.data() + text.size();
  for (const char* p = text.data();
       (p = static_cast<const char*>(::memmem(p, static_cast<std::size_t>(end - p), word.data(), word.size())));
       p += word.size())
    ++count;
  return count;
}

// The floor in milliseconds: the fastest of a few plain scans.
double FloorMs() {
  double best = 1e9;
  for (int i = 0; i < 20; ++i) {
    const auto t0 = std::chrono::steady_clock::now();
    benchmark::DoNotOptimize(CountPlaces(Index().FoldedText(), kScanWord));
    best = std::min(best, std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - t0).count());
  }
  return best;
}

void BM_Query(benchmark::State& state) {
  const SlideIndex& index = Index();
  std::size_t found = 0;
  const auto t0 = std::chrono::steady_clock::now();
  for (auto _ : state) {
    const std::vector<std::int32_t> slides = index.Find(ParseQuery(kQuery));
    found = slides.size();
    benchmark::DoNotOptimize(slides.data());
  }
  const double ms = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - t0).count() /
                    static_cast<double>(state.iterations());
  const double floor = FloorMs();
  state.counters["found"] = static_cast<double>(found);
  state.counters["floor_ms"] = floor;
  state.counters["times_floor"] = ms / floor;
}

void BM_PlainScan(benchmark::State& state) {
  const std::string_view text = Index().FoldedText();
  for (auto _ : state) benchmark::DoNotOptimize(CountPlaces(text, kScanWord));
  state.counters["places"] = static_cast<double>(CountPlaces(text, kScanWord));
  state.counters["folded_bytes"] = static_cast<double>(text.size());
}

void BM_PlainScanMemmem(benchmark::State& state) {
  const std::string_view text = Index().FoldedText();
  for (auto _ : state) benchmark::DoNotOptimize(CountPlacesMemmem(text, kScanWord));
}

void BM_BuildIndex(benchmark::State& state) {
  const SlideArray& slides = Slides();
  for (auto _ : state) {
    const SlideIndex index(slides);
    benchmark::DoNotOptimize(index.FoldedText().data());
  }
  state.counters["memory_bytes"] = static_cast<double>(Index().MemoryBytes());
  state.counters["text_bytes"] = static_cast<double>(kRecordLength * (slides.size() - 1));
}

// The load the index is built after: the same slides in a file, read the program's way.
void BM_Load(benchmark::State& state) {
  const auto dir = std::filesystem::temp_directory_path() / ("chattelbook-find-" + std::to_string(::getpid()));
  std::filesystem::create_directories(dir);
  const std::string path = (dir / "Big.sif").string();
  const SifSettings saved{0, "Frame2.jpg", "Blue Sky.jpg", 1, "Arial"};
  if (!DataAccess().SaveSettings(path, saved, Slides()).ok()) {
    std::filesystem::remove_all(dir);
    return state.SkipWithError("the file was not written");
  }
  const SifPaths paths{path, "Big.sif", path};
  for (auto _ : state) {
    SifSettings settings;
    SlideArray slides(1);
    if (!DataAccess().LoadSettings(paths, settings, slides).ok() || slides.size() != Slides().size()) {
      state.SkipWithError("the load failed");
      break;
    }
    benchmark::DoNotOptimize(slides.data());
  }
  std::filesystem::remove_all(dir);
}

BENCHMARK(BM_Query)->Unit(benchmark::kMillisecond)->MinTime(bench::MinTime(1.0));
BENCHMARK(BM_PlainScan)->Unit(benchmark::kMillisecond)->MinTime(bench::MinTime(1.0));
BENCHMARK(BM_PlainScanMemmem)->Unit(benchmark::kMillisecond)->MinTime(bench::MinTime(1.0));
BENCHMARK(BM_BuildIndex)->Unit(benchmark::kMillisecond)->MinTime(bench::MinTime(1.0));
BENCHMARK(BM_Load)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(bench::MinTime(1.0));

}  // namespace
