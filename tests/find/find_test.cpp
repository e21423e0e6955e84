// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "find/FindBytes.h"
#include "find/SlideQuery.h"
#include "support/SifFixture.h"

namespace cb {
namespace {

using testing::Slide;
using F = Field;

// Eight slides; 7 was never assigned. Bytes are Windows-1252.
SlideArray Collection() {
  return {
      SlideRecord(),
      Slide({{F::SlideText, "Caf\xE9 table, oak"},
             {F::Category, "Furniture"},
             {F::Location, "Kitchen"},
             {F::Make, "Ercol"},
             {F::Model, "Windsor"},
             {F::Serial, "EC-100"},
             {F::Value, "250"},
             {F::PictureFile, "cafe.jpg"}}),
      Slide({{F::SlideText,
              "Stra\xDF"
              "e sign, enamel"},
             {F::Location, "Garage"},
             {F::Value, "$40"}}),
      Slide({{F::SlideText, "\xC6on clock, stopped at 12:30"}, {F::Location, "Hall"}, {F::Value, " 1200.50"}}),
      Slide({{F::SlideText, "Cordless \"power drill\""},
             {F::Category, "Tools"},
             {F::Location, "GARAGE"},
             {F::Make, "Bosch"},
             {F::Model, "GSR 18"},
             {F::Value, "100"}}),
      Slide({{F::SlideText, "Hammer drill, Bosch bits"},
             {F::Category, "Tools"},
             {F::Location, "Shed"},
             {F::Make, "Makita"},
             {F::Serial, "MK100"},
             {F::Value, "500"}}),
      Slide({{F::SlideText, "Power saw, Bosch blade"}, {F::Location, "Garage"}, {F::Make, "BOSCH"}, {F::Value, "abc"}}),
      SlideRecord(),
      Slide({{F::SlideText, "Garden drill"}, {F::Category, "Garage stuff"}, {F::Location, "Shed"}, {F::Value, "-5"}}),
  };
}

TEST(FindTest, QueriesFindTheirSlides) {
  const struct {
    const char* query;
    std::vector<std::int32_t> found;
    std::vector<std::string> readAsWords = {};
  } rows[] = {
      {"", {1, 2, 3, 4, 5, 6, 7, 8}},
      {"CAF\xC3\x89", {1}},
      {"strasse", {2}},
      {"stra\xC3\x9F"
       "e",
       {2}},
      {"aeon", {3}},
      {"\xC3\xA6on", {3}},
      {"caf\xC4\x87", {}},  // no Windows-1252 code: matches nothing
      {"-caf\xC4\x87", {1, 2, 3, 4, 5, 6, 7, 8}},
      {"drill", {4, 5, 8}},
      {"drill bosch", {4, 5}},
      {"drill -bosch", {8}},
      {"\"POWER drill\"", {4}},
      {"\"drill power\"", {}},
      {"-\"power drill\" power", {6}},
      {"drillgarage", {}},  // fields never run together
      {"\"drill garage\"", {}},
      {"-", {1, 8}},
      {"bosch", {4, 5, 6}},
      {"make:bosch", {4, 6}},
      {"MAKE:\"bos\"", {4, 6}},
      {"make:gsr", {}},
      {"location:garage", {2, 4, 6}},
      {"Location:Garage -make:bosch", {2}},
      {"category:garage", {8}},
      {"-location:garage", {1, 3, 5, 7, 8}},
      {"text:power", {4, 6}},
      {"model:gsr", {4}},
      {"serial:100", {1, 5}},
      {"file:cafe", {1}},
      {"value:100", {4}},
      {"value>100", {1, 3, 5}},
      {"VALUE>=100", {1, 3, 4, 5}},
      {"value<100", {8}},
      {"value<=100 drill", {4, 8}},
      {"value:100..500", {1, 4, 5}},
      {"value:-5..-5", {8}},
      {"value:500..100", {}},
      {"-value>100", {2, 4, 6, 7, 8}},
      {"value>1e3", {3}},
      {"12:30", {3}, {"12:30"}},
      {"value>abc", {}, {"value>abc"}},
      {"value>10x drill", {}, {"value>10x"}},
      {"value:1..x value:", {}, {"value:1..x", "value:"}},
      {"foo:bar make: drill", {}, {"foo:bar", "make:"}},
      {"bits \"hammer  drill", {5}, {"\"hammer  drill"}},
      {"-\"power drill", {5, 8}, {"-\"power drill"}},
  };
  const SlideArray slides = Collection();
  // The same slides behind which never-assigned ones pad the file, so that
  // later terms are looked for slide by slide rather than in one scan.
  SlideArray padded = slides;
  padded.resize(100);
  const SlideIndex index(slides), paddedIndex(padded);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.query);
    const SlideQuery q = ParseQuery(row.query);
    EXPECT_EQ(index.Find(q), row.found);
    EXPECT_EQ(q.readAsWords, row.readAsWords);
    std::vector<std::int32_t> paddedFound = row.found;
    if (std::find(row.found.begin(), row.found.end(), 7) != row.found.end())
      for (std::int32_t r = 9; r < 100; ++r) paddedFound.push_back(r);
    EXPECT_EQ(paddedIndex.Find(q), paddedFound);
  }
}

TEST(FindTest, FoldSpellsOutAndDropsAccents) {
  using namespace std::string_view_literals;
  const std::pair<std::string_view, std::string_view> rows[] = {
      {"\xC0\xC9\xCE\xD5\xDC \xC7\xD1\xDD\x9F\x8A\x8E\x83\xD0 \xDF\xC6\x8C\xDE\x01\t"sv, "aeiou cnyyszfd ssaeoeth  "sv},
      // Eight bytes at a time: ASCII around the letters, and a control among them.
      {"@AZ[`az{ABC\x1F"
       "DEFG\0HIJKLMN"sv,
       "@az[`az{abc defg hijklmn"sv},
  };
  for (const auto& [bytes, folded] : rows) EXPECT_EQ(FoldCp1252(bytes), folded);
}

TEST(FindTest, ValueNumberIsTheLeadingNumber) {
  using namespace std::string_view_literals;
  const struct {
    std::string_view field;
    bool found;
    double value;
  } rows[] = {{""sv, false, 0},     {"abc"sv, false, 0},        {"$5"sv, false, 0},     {"-"sv, false, 0},
              {"\0\0"sv, false, 0}, {" 12.5 kg"sv, true, 12.5}, {"-.5e1x"sv, true, -5}, {"1e999"sv, false, 0}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.field);
    double v = 0;
    EXPECT_EQ(ValueNumber(row.field, v), row.found);
    EXPECT_EQ(v, row.found ? row.value : 0);
  }
}

TEST(FindTest, FoundTextCountsAndNamesTheWords) {
  SlideQuery words;
  words.readAsWords = {"value>abc", "foo:bar"};
  EXPECT_EQ(FoundText(37, 1204, {}), "37 of 1,204 slides");
  EXPECT_EQ(FoundText(1234567, 1234567, {}), "1,234,567 of 1,234,567 slides");
  EXPECT_EQ(FoundText(0, 5, {}), "No slides match");
  EXPECT_EQ(FoundText(12, 1204, words), "12 of 1,204 slides (value>abc foo:bar read as words)");
  EXPECT_EQ(FoundText(0, 1204, words), "No slides match (value>abc foo:bar read as words)");
}

// Every place of the needle in texts long and short, against std::string_view::find.
TEST(FindTest, FindBytesFindsTheFirstPlace) {
  for (const char filler : {'.', 'x'})
    for (const std::string_view needle : {"x", "xy", "xyz", "xyzxyzxyzxyzxyzxyzx"})
      for (std::size_t size = 0; size < 48; ++size)
        for (std::size_t at = 0; at <= size; ++at) {
          std::string text(size, filler);
          text.replace(at, std::min(needle.size(), size - at), needle.substr(0, size - at));
          const char* hit = FindBytes(text.data(), text.data() + text.size(), needle);
          EXPECT_EQ(hit ? static_cast<std::size_t>(hit - text.data()) : std::string::npos, text.find(needle))
              << text << " / " << needle;
        }
}

}  // namespace
}  // namespace cb
