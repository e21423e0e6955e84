#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <sstream>
#include <string>

#include "gallery/ScrollRules.h"

namespace cb {
namespace {

// The gallery as its window drives the rules: a toolkit bar whose changes
// run the handler (a write-back runs it again, nested), fifteen cells that
// remember the record they show, and the status text.
class Gallery {
 public:
  explicit Gallery(std::int32_t n) : n_(n), window_(OpeningWindow(n)) {
    for (int i = 1; i <= std::min(n, 15); ++i) cells_[i] = i;
    if (ScrollBarEnabled(n)) bar_ = MapToToolkitBar(GalleryScrollRange(n));
    status_ = GalleryStatusText(window_.Base, window_.Roof, n);
  }

  // Moves: r/l a small step, R/L a large one, tN the thumb dropped at N,
  // a the window activated. Separated by blanks.
  void Do(const std::string& moves) {
    std::istringstream in(moves);
    for (std::string m; in >> m;) {
      if (m == "r") Move(value_ + bar_.singleStep);
      if (m == "l") Move(value_ - bar_.singleStep);
      if (m == "R") Move(value_ + bar_.pageStep);
      if (m == "L") Move(value_ - bar_.pageStep);
      if (m[0] == 't') Move(std::stoi(m.substr(1)));
      if (m == "a") {
        window_.Roof = RoofOnActivate(window_.Roof, n_);
        status_ = GalleryStatusText(window_.Base, window_.Roof, n_);
      }
    }
  }

  // The cells as runs: "4..18,E" is records 4 to 18, then one empty cell.
  std::string Cells() const {
    std::string out;
    for (int i = 1; i <= 15;) {
      int j = i;
      if (!cells_[i]) {
        while (j < 15 && !cells_[j + 1]) ++j;
        out += j > i ? "E*" + std::to_string(j - i + 1) : "E";
      } else {
        while (j < 15 && cells_[j + 1] && *cells_[j + 1] == *cells_[j] + 1) ++j;
        out += std::to_string(*cells_[i]);
        if (j > i) out += ".." + std::to_string(*cells_[j]);
      }
      if (j < 15) out += ",";
      i = j + 1;
    }
    return out;
  }

  const RecordWindow& window() const { return window_; }
  const std::string& status() const { return status_; }
  std::int32_t L() const { return l_; }
  int value() const { return value_; }
  int runs() const { return runs_; }
  int refills() const { return refills_; }

 private:
  void Move(int to) {
    to = std::clamp(to, bar_.minimum, bar_.maximum);
    if (to == value_) return;  // a bar that does not move raises no change
    value_ = to;
    Change();
  }

  void Change() {
    ++runs_;
    const ScrollStep step = BeginScroll(window_, l_, HandlerValue(value_), n_);
    if (step.refused) {
      if (step.pushBack) Move(*step.pushBack);
      l_ = step.scrollValue;
      return;
    }
    window_ = step.window;
    if (step.refill.kind != RefillKind::None) {
      ++refills_;
      cells_.fill(std::nullopt);
      for (int i = 1; i <= step.refill.Cells(); ++i) {
        const std::int32_t r = step.refill.RecordFor(i);
        if (FillFor(step.refill, r, n_) == CellFill::Load) cells_[i] = r;
      }
    }
    const ScrollFinish finish = FinishScroll(step, window_, n_);
    window_ = finish.window;
    status_ = GalleryStatusText(window_.Base, finish.statusRoof, n_);
    l_ = step.scrollValue;
  }

  std::int32_t n_;
  RecordWindow window_;
  ToolkitBarRange bar_{0, 0, 1, 15};
  int value_ = 0;
  std::int32_t l_ = 0;
  std::array<std::optional<std::int32_t>, 16> cells_{};
  std::string status_;
  int runs_ = 0;
  int refills_ = 0;
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
    {"ColumnRight", 20, "r", "4..18", {4, 18, 4}, "Slides: 4 to 18 of 20", 1, 1},
    {"ColumnRightToTheEnd", 20, "r r", "7..20,E", {7, 20, 7}, "Slides: 7 to 20 of 20", 2, 2},
    // Refused at the end: the bar is pushed back, and that write runs the
    // handler again with D = 0.
    {"ColumnRightPushedBack", 20, "r r r", "7..20,E", {7, 20, 7}, "Slides: 7 to 20 of 20", 2, 4},
    {"PageRight", 20, "R", "16..20,E*10", {16, 30, 16}, "Slides: 16 to 20 of 20", 15, 1},
    {"PageRightRepairedOnActivate", 20, "R a", "16..20,E*10", {16, 20, 16},
     "Slides: 16 to 20 of 20", 15, 1},
    // The loop runs over the old Base..Roof, so a short page refills short.
    {"PageLeftAfterActivate", 20, "R a L", "1..5,E*10", {1, 15, 1}, "Slides: 1 to 15 of 20", 0, 2},
    {"PageLeftBeforeActivate", 20, "R L", "1..15", {1, 15, 1}, "Slides: 1 to 15 of 20", 0, 2},
    {"PageRightRefusedTakesTheValue", 20, "R R", "16..20,E*10", {16, 30, 16},
     "Slides: 16 to 20 of 20", 30, 2},
    {"PageLeftFromDeepIn", 40, "R R L", "16..30", {16, 30, 1}, "Slides: 16 to 30 of 40", 15, 3},
    {"ColumnLeft", 40, "r r l", "4..18", {4, 18, 4}, "Slides: 4 to 18 of 40", 1, 3},
    // Base 1: a small step left changes L only.
    {"ColumnLeftAtFirst", 40, "t20 t1 l", "1..15", {1, 15, 1}, "Slides: 1 to 15 of 40", 0, 3},
    // Jumps: left takes V as Base, right adds D and stops at a full last page.
    {"JumpRight", 40, "t20", "21..35", {21, 35, 1}, "Slides: 21 to 35 of 40", 20, 1},
    {"JumpLeft", 40, "t20 t6", "6..20", {6, 20, 1}, "Slides: 6 to 20 of 40", 6, 2},
    {"ThumbToTheRightEnd", 20, "t30", "6..20", {6, 20, 1}, "Slides: 6 to 20 of 20", 30, 1},
    {"JumpLeftPastTheEnd", 20, "t30 t10", "10..20,E*4", {10, 24, 1}, "Slides: 10 to 24 of 20", 10, 2},
    {"JumpRightRefusedAtTheEnd", 20, "r r t10", "7..20,E", {7, 20, 7}, "Slides: 7 to 20 of 20", 10, 3},
    // Base 2: offset -3 reaches record -1 (left empty) and the header, 0.
    {"ColumnLeftFromBaseTwo", 40, "t20 t2 l", "E,0..13", {-1, 13, -2}, "Slides: -1 to 13 of 40", 1, 3},
};

class ScrollTest : public ::testing::TestWithParam<ScrollCase> {};

TEST_P(ScrollTest, Moves) {
  const auto& row = GetParam();
  Gallery g(row.n);
  g.Do(row.moves);
  EXPECT_EQ(g.Cells(), row.cells);
  EXPECT_EQ(g.window(), row.window);
  EXPECT_EQ(g.status(), row.status);
  EXPECT_EQ(g.L(), row.l);
  EXPECT_EQ(g.runs(), row.runs);
}

INSTANTIATE_TEST_SUITE_P(Rows, ScrollTest, ::testing::ValuesIn(kScrollRows),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(ScrollBarTest, RangeRoundsUpToWholePages) {
  const std::pair<std::int32_t, std::int32_t> rows[] = {
      {16, 30}, {30, 30}, {31, 45}, {32760, 32760}, {32767, 32775}};
  for (auto [n, max] : rows) {
    const auto range = GalleryScrollRange(n);
    EXPECT_EQ(range.Max, max) << n;
    EXPECT_EQ(range.Min, 1);
    const auto bar = MapToToolkitBar(range);
    EXPECT_EQ(bar.minimum, 0);
    EXPECT_EQ(bar.maximum, std::min(max, 32767)) << n;
  }
  EXPECT_FALSE(ScrollBarEnabled(15));
  EXPECT_TRUE(ScrollBarEnabled(16));
  EXPECT_EQ(OpeningWindow(0), (RecordWindow{0, 0, 1}));
  EXPECT_EQ(OpeningWindow(7), (RecordWindow{1, 7, 1}));
}

// The missing-file protocol may drop records and set Roof while a column
// step refills; the step then finishes on what stands after the refill.
TEST(ScrollStepTest, FinishesOnTheWindowAfterTheRefill) {
  const auto step = BeginScroll({4, 18, 4}, 1, 2, 20);
  ASSERT_FALSE(step.refused);
  EXPECT_EQ(step.refill.first, 4);
  EXPECT_EQ(step.refill.last, 18);
  const auto finish = FinishScroll(step, {4, 15, 4}, 19);
  EXPECT_EQ(finish.window, (RecordWindow{7, 18, 7}));
  EXPECT_EQ(FinishScroll(step, {4, 18, 4}, 19).window, (RecordWindow{7, 19, 7}));
}

// The format's limit: every step stays constant work, and the walk by
// columns ends on a full last page.
TEST(ScrollStepTest, LargestCollectionWalksToTheEnd) {
  constexpr std::int32_t kN = 32767;
  Gallery g(kN);
  for (int i = 0; i < 10918; ++i) g.Do("r");
  EXPECT_EQ(g.window(), (RecordWindow{32755, 32767, 32755}));
  EXPECT_EQ(g.Cells(), "32755..32767,E*2");
  g.Do("r");
  EXPECT_EQ(g.L(), 10918);
  EXPECT_EQ(g.value(), 10918);
  EXPECT_EQ(g.refills(), 10918);

  Gallery jump(kN);
  jump.Do("t32767");
  EXPECT_EQ(jump.window(), (RecordWindow{32753, 32767, 1}));
  EXPECT_EQ(jump.Cells(), "32753..32767");
}

}  // namespace
}  // namespace cb
