#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <sstream>
#include <string>

#include "support/RowName.h"
#include "gallery/ScrollRules.h"

namespace cb {
namespace {

// The gallery as its window drives the rules: a toolkit bar whose changes
// run the handler (a write-back runs it again, nested), fifteen cells that
// remember their record, and the status text.
struct Gallery {
  explicit Gallery(std::int32_t slides) : n(slides), window(OpeningWindow(slides)) {
    for (int i = 1; i <= std::min(n, 15); ++i) cells[i] = i;
    if (ScrollBarEnabled(n)) {
      bar = MapToToolkitBar(GalleryScrollRange(n));
      value = bar.minimum;
      l = LoadScrollValue(bar);
    }
  }

  // r/l a small step, R/L a large one, tN the thumb dropped at N, a the
  // window activated; separated by blanks.
  void Do(const std::string& moves) {
    std::istringstream in(moves);
    for (std::string m; in >> m;) {
      if (m == "a") window.Roof = RoofOnActivate(window.Roof, n);
      if (m[0] == 't') Move(std::stoi(m.substr(1)));
      const int step = m == "r" ? 1 : m == "l" ? -1 : m == "R" ? 15 : m == "L" ? -15 : 0;
      if (step) Move(value + step);
    }
  }

  void Move(int to) {
    to = std::clamp(to, bar.minimum, bar.maximum);
    if (to == value) return;  // a bar that does not move raises no change
    value = to;
    ++runs;
    const ScrollStep step = BeginScroll(window, l, HandlerValue(value), n);
    if (step.refused) {
      if (step.pushBack) Move(*step.pushBack);
      l = step.scrollValue;
      return;
    }
    window = step.window;
    if (step.refill.kind != RefillKind::None) cells.fill(std::nullopt);
    for (int i = 1; i <= step.refill.Cells(); ++i)
      if (FillFor(step.refill, step.refill.RecordFor(i), n) == CellFill::Load)
        cells[i] = step.refill.RecordFor(i);
    const ScrollFinish finish = FinishScroll(step, window, n);
    window = finish.window;
    status = GalleryStatusText(window.Base, finish.statusRoof, n);
    l = step.scrollValue;
  }

  // The cells as runs: "4..18,E*2" is records 4 to 18, then two empty cells.
  std::string Cells() const {
    std::string out;
    for (int i = 1, j; i <= 15; i = j + 1) {
      const auto& c = cells;
      for (j = i; j < 15 && (c[i] ? c[j + 1] && *c[j + 1] == *c[j] + 1 : !c[j + 1]);) ++j;
      out += i > 1 ? "," : "";
      out += c[i] ? std::to_string(*c[i]) + (j > i ? ".." + std::to_string(*c[j]) : "")
                  : "E" + (j > i ? "*" + std::to_string(j - i + 1) : "");
    }
    return out;
  }

  std::int32_t n;
  RecordWindow window;
  ToolkitBarRange bar{0, 0, 1, 15};
  int value = 0;
  std::int32_t l = 0;
  std::array<std::optional<std::int32_t>, 16> cells{};
  std::string status;
  int runs = 0;
};

struct ScrollCase {
  const char* name;
  std::int32_t n;
  const char* moves;
  const char* cells;
  RecordWindow window;  // Base, Roof, CurrentImageNumber
  const char* status;
  std::int32_t l;
  int runs;  // handler runs, nested ones included
};

const ScrollCase kScrollRows[] = {
    {"ColumnRight", 20, "r", "4..18", {4, 18, 4}, "Slides: 4 to 18 of 20", 2, 1},
    {"ColumnRightToTheEnd", 20, "r r", "7..20,E", {7, 20, 7}, "Slides: 7 to 20 of 20", 3, 2},
    // Refused at the end: the bar is pushed back, and that write runs the
    // handler again with D = 0.
    {"ColumnRightPushedBack", 20, "r r r", "7..20,E", {7, 20, 7}, "Slides: 7 to 20 of 20", 3, 4},
    {"PageRight", 20, "R", "16..20,E*10", {16, 30, 16}, "Slides: 16 to 20 of 20", 16, 1},
    // The loop runs over the old Base..Roof, so a short page refills short.
    {"PageLeftAfterActivate", 20, "R a L", "1..5,E*10", {1, 15, 1}, "Slides: 1 to 15 of 20", 1, 2},
    {"PageLeftBeforeActivate", 20, "R L", "1..15", {1, 15, 1}, "Slides: 1 to 15 of 20", 1, 2},
    // The bar stops at 30, so the second large step arrives as a jump and is refused.
    {"PageRightRefusedTakesTheValue", 20, "R R", "16..20,E*10", {16, 30, 16},
     "Slides: 16 to 20 of 20", 30, 2},
    {"PageLeftFromDeepIn", 40, "R R L", "16..30", {16, 30, 1}, "Slides: 16 to 30 of 40", 16, 3},
    {"ColumnLeft", 40, "r r l", "4..18", {4, 18, 4}, "Slides: 4 to 18 of 40", 2, 3},
    // The bar stands at its left end: a small step left does not move it.
    {"ColumnLeftAtTheLeftEnd", 40, "t20 t1 l", "1..15", {1, 15, 1}, "Slides: 1 to 15 of 40", 1, 2},
    // Jumps: left takes V as Base, right adds D and stops at a full last page.
    {"JumpRight", 40, "t20", "20..34", {20, 34, 1}, "Slides: 20 to 34 of 40", 20, 1},
    {"JumpLeft", 40, "t20 t6", "6..20", {6, 20, 1}, "Slides: 6 to 20 of 40", 6, 2},
    // The thumb dragged to the left end brings the first page, never the header.
    {"ThumbToTheLeftEnd", 40, "R R t1", "1..15", {1, 15, 31}, "Slides: 1 to 15 of 40", 1, 3},
    {"ThumbToTheRightEnd", 20, "t30", "6..20", {6, 20, 1}, "Slides: 6 to 20 of 20", 30, 1},
    {"JumpLeftPastTheEnd", 20, "t30 t10", "10..20,E*4", {10, 24, 1}, "Slides: 10 to 24 of 20", 10, 2},
    {"JumpRightRefusedAtTheEnd", 20, "r r t10", "7..20,E", {7, 20, 7}, "Slides: 7 to 20 of 20", 10, 3},
    // Base 2 or 3: offset -3 reaches record -1 and the header, 0; both cells stay empty.
    {"ColumnLeftFromBaseTwo", 40, "t20 t2 l", "E*2,1..13", {-1, 13, -2}, "Slides: -1 to 13 of 40", 1, 3},
    {"ColumnLeftFromBaseThree", 40, "t5 t3 l", "E,1..14", {0, 14, -2}, "Slides: 0 to 14 of 40", 2, 3},
};

class ScrollTest : public ::testing::TestWithParam<ScrollCase> {};

TEST_P(ScrollTest, Moves) {
  const auto& row = GetParam();
  Gallery g(row.n);
  g.Do(row.moves);
  EXPECT_EQ(g.Cells(), row.cells);
  EXPECT_EQ(g.window, row.window);
  EXPECT_EQ(g.status, row.status);
  EXPECT_EQ(g.l, row.l);
  EXPECT_EQ(g.runs, row.runs);
}

INSTANTIATE_TEST_SUITE_P(Rows, ScrollTest, ::testing::ValuesIn(kScrollRows),
                         cb::testing::RowName());

TEST(ScrollBarTest, RangeRoundsUpToWholePages) {
  const std::pair<std::int32_t, std::int32_t> rows[] = {{16, 30}, {30, 30}, {31, 45}, {32767, 32775}};
  for (auto [n, max] : rows) {
    EXPECT_EQ(GalleryScrollRange(n).Max, max) << n;
    EXPECT_EQ(MapToToolkitBar(GalleryScrollRange(n)).maximum, std::min(max, 32767)) << n;
  }
}

// Base 1 refuses a small step left wherever the bar stands; L takes V.
TEST(ScrollStepTest, ColumnLeftAtTheFirstRecordOnlyTakesTheValue) {
  const auto step = BeginScroll({1, 15, 1}, 5, 4, 40);
  EXPECT_TRUE(step.refused);
  EXPECT_FALSE(step.pushBack);
  EXPECT_EQ(step.scrollValue, 4);
}

// The missing-file protocol may drop records and set Roof while a column
// step refills; the step then finishes on what stands after the refill.
TEST(ScrollStepTest, FinishesOnTheWindowAfterTheRefill) {
  const auto step = BeginScroll({4, 18, 4}, 1, 2, 20);
  EXPECT_EQ(FinishScroll(step, {4, 15, 4}, 19).window, (RecordWindow{7, 18, 7}));
  EXPECT_EQ(FinishScroll(step, {4, 18, 4}, 19).window, (RecordWindow{7, 19, 7}));
}

// The format's limit: the walk by columns ends on a full last page, and the
// thumb reaches it in one step.
TEST(ScrollStepTest, LargestCollectionScrollsToTheEnd) {
  Gallery g(32767);
  for (int i = 0; i < 10919; ++i) g.Do("r");  // the last one is pushed back
  EXPECT_EQ(g.window, (RecordWindow{32755, 32767, 32755}));
  EXPECT_EQ(g.Cells(), "32755..32767,E*2");
  EXPECT_EQ(g.value, 10919);
  Gallery thumb(32767);
  thumb.Do("t32767");
  EXPECT_EQ(thumb.window, (RecordWindow{32753, 32767, 1}));
  EXPECT_EQ(thumb.Cells(), "32753..32767");
}

}  // namespace
}  // namespace cb
