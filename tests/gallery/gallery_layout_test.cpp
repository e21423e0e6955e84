// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "gallery/GalleryLayout.h"

namespace cb {
namespace {

struct RectRow {
  double clientWidth, clientHeight;
  int index;  // Image1 index
  ElementRect expected;
};

// Frames share out the client area less the bar; slide images sit 142.5 and
// 120 twips inside them; cells run column by column. Only single precision rounds.
const RectRow kRectRows[] = {
    {6630, 4950, 16, {0, 0, 1326, 1565}},  // the opening size
    {6630, 4950, 1, {142.5f, 120, 1041, 1325}},
    {6630, 4950, 4, {1468.5f, 120, 1041, 1325}},
    {6630, 4950, 30, {5304, 3130, 1326, 1565}},
    {7001, 5000, 12, {4343.1f, 3283.3333f, 1115.2f, 1341.6666f}},
    {13260, 9900, 14, {10750.5f, 3335, 2367, 2975}},
};

TEST(GalleryLayoutTest, PlacesEveryElementFromTheClientSize) {
  for (const auto& row : kRectRows) {
    const auto layout = LayOutGallery(row.clientWidth, row.clientHeight, kScrollBarHeight);
    EXPECT_EQ(layout.Image1(row.index), row.expected) << row.clientWidth << " wide, #" << row.index;
    EXPECT_EQ(layout.refusedAt, WriteOrder().size());
  }
  const auto opening = LayOutGallery(kOpeningClientWidth, kOpeningClientHeight, kScrollBarHeight);
  EXPECT_EQ(opening.FlatScrollBar1, (ElementRect{0, 4695, 6630, 255}));
}

// A resize takes the writes before the first refused one; the rest keep their old values.
TEST(GalleryLayoutTest, ResizeStopsAtTheFirstRefusedWrite) {
  const ElementRect old{1, 2, 3, 4};
  GalleryLayout layout = LayOutGallery(6630, 4950, kScrollBarHeight);
  struct Row {
    std::size_t refusedAt;
    ElementRect frame16, image1;
  };
  const ElementRect f16 = layout.Image1(16), i1 = layout.Image1(1);
  const Row rows[] = {
      {0, old, old},                                            // the first write refused: nothing moves
      {2, {f16.Left, old.Top, f16.Width, old.Height}, old},     // frame 16's width and left only
      {4, f16, old},                                            // frame 16 whole, no slide image
      {WriteOrder().size() - 2, f16, {i1.Left, i1.Top, i1.Width, i1.Height}},
      {WriteOrder().size(), f16, i1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.refusedAt);
    std::array<ElementRect, kGalleryElements> placed;
    placed.fill(old);
    layout.refusedAt = row.refusedAt;
    ApplyWrites(layout, placed);
    EXPECT_EQ(placed[15], row.frame16);
    EXPECT_EQ(placed[0], row.image1);
  }
}

}  // namespace
}  // namespace cb
