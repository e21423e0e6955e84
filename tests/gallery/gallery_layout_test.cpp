#include <gtest/gtest.h>

#include <climits>

#include "gallery/GalleryLayout.h"
#include "gallery/UIGlobalController.h"

namespace cb {
namespace {

struct RectRow {
  double clientWidth;
  double clientHeight;
  int index;  // Image1 index
  ElementRect expected;
};

// Frames share out the client area less the bar; slide images sit 142.5 and
// 120 twips inside them; cells run column by column.
const RectRow kRectRows[] = {
    // The opening size: client 6630 x 4950.
    {6630, 4950, 16, {0, 0, 1326, 1565}},
    {6630, 4950, 1, {142.5f, 120, 1041, 1325}},
    {6630, 4950, 2, {142.5f, 1685, 1041, 1325}},
    {6630, 4950, 4, {1468.5f, 120, 1041, 1325}},
    {6630, 4950, 20, {1326, 1565, 1326, 1565}},
    {6630, 4950, 15, {5446.5f, 3250, 1041, 1325}},
    {6630, 4950, 30, {5304, 3130, 1326, 1565}},
    // Sizes that do not divide: nothing is rounded but to single precision.
    {7001, 5000, 25, {4200.6f, 0, 1400.2f, 1581.6666f}},
    {7001, 5000, 12, {4343.1f, 3283.3333f, 1115.2f, 1341.6666f}},
    // A larger window gives larger cells, never more of them.
    {13260, 9900, 14, {10750.5f, 3335, 2367, 2975}},
};

class GalleryRectTest : public ::testing::TestWithParam<RectRow> {};

TEST_P(GalleryRectTest, PlacesElement) {
  const auto& row = GetParam();
  const auto layout = LayOutGallery(row.clientWidth, row.clientHeight, kScrollBarHeight);
  const ElementRect& r = layout.Image1(row.index);
  EXPECT_FLOAT_EQ(r.Left, row.expected.Left);
  EXPECT_FLOAT_EQ(r.Top, row.expected.Top);
  EXPECT_FLOAT_EQ(r.Width, row.expected.Width);
  EXPECT_FLOAT_EQ(r.Height, row.expected.Height);
  EXPECT_EQ(layout.refusedAt, WriteOrder().size());
}

INSTANTIATE_TEST_SUITE_P(Rows, GalleryRectTest, ::testing::ValuesIn(kRectRows));

TEST(GalleryLayoutTest, BoxAndBarFollowTheClientArea) {
  const auto layout = LayOutGallery(kOpeningClientWidth, kOpeningClientHeight, kScrollBarHeight);
  EXPECT_EQ(layout.Picture1, (ElementRect{0, 0, 6630, 4950}));
  EXPECT_EQ(layout.FlatScrollBar1, (ElementRect{0, 4695, 6630, 255}));
}

TEST(GalleryLayoutTest, DesignGridStandsUntilTheFirstResize) {
  const auto design = DesignLayout();
  EXPECT_EQ(design.Image1(16), (ElementRect{0, 0, 1305, 1515}));
  EXPECT_EQ(design.Image1(30), (ElementRect{5280, 3120, 1305, 1515}));
  EXPECT_EQ(design.Image1(1), (ElementRect{142, 120, 1020, 1275}));
  EXPECT_EQ(design.Image1(15), (ElementRect{5422, 3240, 1020, 1275}));
  EXPECT_EQ(design.Picture1, (ElementRect{0, 0, 6615, 4695}));
  EXPECT_EQ(design.FlatScrollBar1, (ElementRect{0, 4680, 6615, 255}));
}

struct RefusalRow {
  double clientWidth;
  double clientHeight;
  ElementWrite refused;  // the write the resize stops at
};

// A window too small for the fixed insets gives negative sizes; the resize
// stops at the first one, in the handler's order.
const RefusalRow kRefusalRows[] = {
    {1000, 4950, {1, ElementProperty::Width}},    // frames 200 wide, slides -85
    {3000, 900, {1, ElementProperty::Height}},    // frames 215 high, slides -25
    {3000, 200, {16, ElementProperty::Height}},   // the bar is taller than the window
};

TEST(GalleryLayoutTest, StopsAtTheFirstRefusedSize) {
  for (const auto& row : kRefusalRows) {
    const auto layout = LayOutGallery(row.clientWidth, row.clientHeight, kScrollBarHeight);
    ASSERT_LT(layout.refusedAt, WriteOrder().size()) << row.clientWidth << "x" << row.clientHeight;
    const auto& w = WriteOrder()[layout.refusedAt];
    EXPECT_EQ(w.index, row.refused.index);
    EXPECT_EQ(w.property, row.refused.property);
  }
}

struct CoordRow {
  std::int32_t value;
  std::int16_t index;
  std::int32_t x;
  std::int32_t y;
};

// The what's-this position is multiplied by the cell's column and row, and
// frame and slide image of a cell share their factors.
const CoordRow kCoordRows[] = {
    {100, 0, 100, 100},   {100, 1, 100, 100},  {100, 5, 200, 200},
    {100, 20, 200, 200},  {100, 4, 200, 100},  {100, 6, 200, 300},
    {100, 15, 500, 300},  {100, 16, 100, 100}, {100, 28, 500, 100},
    {100, 30, 500, 300},  {100, 31, 100, 100}, {100, -1, 100, 100},
    {-7, 12, -28, -21},
};

TEST(GalleryCoordTest, ScalesByCell) {
  const UIGlobalController c;
  for (const auto& row : kCoordRows) {
    EXPECT_EQ(c.GetXCoord(row.value, row.index).value, row.x) << row.index;
    EXPECT_EQ(c.GetYCoord(row.value, row.index).value, row.y) << row.index;
  }
}

TEST(GalleryCoordTest, OverflowLeavesThe32BitRange) {
  const UIGlobalController c;
  EXPECT_EQ(c.GetXCoord(INT32_MAX, 4).error, RtError::Overflow);
  EXPECT_EQ(c.GetYCoord(1 << 30, 2).error, RtError::Overflow);
  const auto lowest = c.GetYCoord(-(1 << 30), 2);
  EXPECT_EQ(lowest.error, RtError::None);
  EXPECT_EQ(lowest.value, INT32_MIN);
  EXPECT_EQ(c.GetXCoord(INT32_MAX, 0).value, INT32_MAX);
}

TEST(GalleryCellTest, ToolTipsAndCentring) {
  EXPECT_EQ(SlideToolTip("  Lounge suite  "), "Lounge suite");
  EXPECT_EQ(SlideToolTip("     "), "Click to enlarge");
  EXPECT_EQ(SlideToolTip(""), "Click to enlarge");
  // Half of 1323, rounded half to even.
  EXPECT_EQ(CellCentringOffset(1323, 0), 662);
  EXPECT_EQ(CellCentringOffset(1565, 0), 782);
  EXPECT_EQ(CellCentringOffset(1326, 1041), 142);
}

}  // namespace
}  // namespace cb
