#include <gtest/gtest.h>

#include "support/RowName.h"
#include "app/MDIMainRules.h"

namespace cb {
namespace {

using History = std::array<std::string, 5>;

struct HistoryRow {
  const char* name;
  History before;
  std::string open;
  History after;
  bool written;
};

const HistoryRow kHistoryRows[] = {
    {"first_stays", {"", "a", "b", "c", "d"}, "a", {"", "a", "b", "c", "d"}, false},
    {"second_swaps", {"", "a", "b", "c", "d"}, "b", {"", "b", "a", "c", "d"}, true},
    {"third_rises", {"", "a", "b", "c", "d"}, "c", {"", "c", "a", "b", "d"}, true},
    {"fourth_brings_back_the_third", {"", "a", "b", "c", "d"}, "d", {"", "c", "a", "b", "c"}, true},
    {"new_pushes_the_last_out", {"", "a", "b", "c", "d"}, "e", {"", "e", "a", "b", "c"}, true},
    {"into_an_empty_list", {"", "", "", "", ""}, "a", {"", "a", "", "", ""}, true},
    {"names_compare_exactly", {"", "a.sif", "", "", ""}, "A.sif", {"", "A.sif", "a.sif", "", ""}, true},
};

class HistoryTest : public ::testing::TestWithParam<HistoryRow> {};

TEST_P(HistoryTest, MovesTheOpenFileByItsPlace) {
  History h = GetParam().before;
  EXPECT_EQ(UpdateHistory(h, GetParam().open), GetParam().written);
  EXPECT_EQ(h, GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(Rows, HistoryTest, ::testing::ValuesIn(kHistoryRows),
                         cb::testing::RowName());

TEST(MainWindowRulesTest, WindowButtonCyclesThroughTheArrangements) {
  const Arrangement expected[] = {Arrangement::Cascade, Arrangement::TileVertical, Arrangement::Cascade,
                                  Arrangement::TileHorizontal, Arrangement::TileVertical, Arrangement::Cascade};
  int counter = 0;
  for (Arrangement a : expected) EXPECT_EQ(NextArrangement(counter), a);
}

TEST(MainWindowRulesTest, ToolbarFollowsTheSlideWindow) {
  struct Row {
    ToolbarButton key;
    bool withSlide, without;
  };
  using B = ToolbarButton;
  const Row rows[] = {{B::New, false, true},   {B::Open, false, true},  {B::Window, true, true},
                      {B::Edit, true, false},  {B::Zoom, true, false},  {B::Report, true, true},
                      {B::Unzoom, true, false}, {B::Back, false, true}, {B::Help, true, true}};
  for (const auto& r : rows) {
    EXPECT_EQ(ToolbarButtonEnabled(r.key, true), r.withSlide) << ButtonSpec(r.key).key;
    EXPECT_EQ(ToolbarButtonEnabled(r.key, false), r.without) << ButtonSpec(r.key).key;
  }
}

}  // namespace
}  // namespace cb
