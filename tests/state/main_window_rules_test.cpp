// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "gallery/GalleryMenuTable.h"
#include "state/MDIMainRules.h"

#include <set>

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
    {"fourth_brings_back_the_third", {"", "a", "b", "c", "d"}, "d", {"", "c", "a", "b", "c"}, true},
    {"new_pushes_the_last_out", {"", "a", "b", "c", "d"}, "e", {"", "e", "a", "b", "c"}, true},
    {"names_compare_exactly", {"", "a.sif", "", "", ""}, "A.sif", {"", "A.sif", "a.sif", "", ""}, true},
};

TEST(MainWindowRulesTest, HistoryMovesTheOpenFileByItsPlace) {
  for (const auto& row : kHistoryRows) {
    SCOPED_TRACE(row.name);
    History h = row.before;
    EXPECT_EQ(UpdateHistory(h, row.open), row.written);
    EXPECT_EQ(h, row.after);
  }
}

// What each event leaves on the toolbar: "+" live, "-" off, "." untouched;
// the pressed column is Zoom then Unzoom.
struct ToolbarRow {
  const char* name;
  ToolbarEvent event;
  ToolbarFacts facts;
  const char* enabled;  // New Open Edit Report Zoom Unzoom Window Back Help
  const char* pressed;
};

const ToolbarRow kToolbarRows[] = {
    {"frame_without_slide", ToolbarEvent::FrameActivated, {false, false, false}, "++-+--+++", ".+"},
    {"frame_with_slide_zoom_pressed", ToolbarEvent::FrameActivated, {true, true, true}, "--+++++-+", ".-"},
    {"gallery_alone", ToolbarEvent::GalleryActivated, {false, false, false}, "++-+--.+.", "+-"},
    {"gallery_beside_a_slide", ToolbarEvent::GalleryActivated, {true, true, false}, "++-+--++.", "+-"},
    {"slide_alone", ToolbarEvent::SlideActivated, {true, false, false}, "--++++.-.", "+-"},
    {"slide_beside_the_gallery", ToolbarEvent::SlideActivated, {true, true, false}, "--+++++-.", "+-"},
    {"report", ToolbarEvent::ReportActivated, {true, true, false}, "------+-.", "+-"},
    {"zoom", ToolbarEvent::ZoomPressed, {true, false, false}, ".........", "+-"},
    {"unzoom", ToolbarEvent::UnzoomPressed, {true, false, true}, ".........", "-+"},
    {"gallery_unloaded", ToolbarEvent::GalleryUnloaded, {false, false, false}, "..-......", ".."},
};

Change FromMark(char c) { return c == '+' ? Change::On : c == '-' ? Change::Off : Change::Keep; }

TEST(MainWindowRulesTest, ToolbarEventSetsTheButtonsItTouches) {
  for (const auto& row : kToolbarRows) {
    SCOPED_TRACE(row.name);
    const ToolbarChange c = ToolbarAfter(row.event, row.facts);
    for (std::size_t k = 0; k < kToolbarButtonCount; ++k)
      EXPECT_EQ(c[k].enabled, FromMark(row.enabled[k])) << kToolbarButtons[k].key;
    EXPECT_EQ(c[static_cast<std::size_t>(ToolbarButton::Zoom)].pressed, FromMark(row.pressed[0]));
    EXPECT_EQ(c[static_cast<std::size_t>(ToolbarButton::Unzoom)].pressed, FromMark(row.pressed[1]));
  }
}

struct TileRow {
  const char* name;
  Arrangement arrangement;
  int width, height, n;
  std::vector<TileRect> places;
};

const TileRow kTileRows[] = {
    {"one_fills_the_area", Arrangement::TileVertical, 800, 600, 1, {{0, 0, 800, 600}}},
    {"three_share_the_odd_pixel", Arrangement::TileVertical, 100, 50, 3,
     {{0, 0, 33, 50}, {33, 0, 33, 50}, {66, 0, 34, 50}}},
    {"three_one_above_another", Arrangement::TileHorizontal, 90, 100, 3,
     {{0, 0, 90, 33}, {0, 33, 90, 33}, {0, 66, 90, 34}}},
    {"more_children_than_pixels", Arrangement::TileHorizontal, 10, 2, 3,
     {{0, 0, 10, 0}, {0, 0, 10, 1}, {0, 1, 10, 1}}},
};

TEST(MainWindowRulesTest, TileStripsMeetAndFillTheArea) {
  for (const TileRow& row : kTileRows) {
    for (int k = 0; k < row.n; ++k) {
      const TileRect r = TilePlace(row.arrangement, row.width, row.height, k, row.n);
      EXPECT_EQ(r, row.places[static_cast<std::size_t>(k)])
          << row.name << " " << k << ": " << r.left << "," << r.top << " " << r.width << "x" << r.height;
    }
  }
}

// A row that names an id twice would leave one item unreachable; the history
// entries are the only rows that share a name.
TEST(MainWindowRulesTest, EveryMenuRowHasItsOwnId) {
  for (const auto* table : {&MainMenu(), &GalleryMenu()}) {
    std::set<MenuId> seen;
    for (const auto& row : *table) {
      EXPECT_TRUE(seen.insert(row.id).second) << row.name;
      EXPECT_EQ(HistoryEntry(row.id) != 0, row.name == "mnuFileHist") << row.name;
    }
  }
  for (int entry = 1; entry <= 4; ++entry) EXPECT_EQ(HistoryEntry(HistoryItem(entry)), entry);
}

}  // namespace
}  // namespace cb
