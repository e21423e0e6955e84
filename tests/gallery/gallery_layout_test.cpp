#include <gtest/gtest.h>

#include <climits>

#include "gallery/GalleryLayout.h"
#include "gallery/UIGlobalController.h"

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
    const ElementRect& r = layout.Image1(row.index);
    SCOPED_TRACE(testing::Message() << row.clientWidth << "x" << row.clientHeight << " #" << row.index);
    EXPECT_FLOAT_EQ(r.Left, row.expected.Left);
    EXPECT_FLOAT_EQ(r.Top, row.expected.Top);
    EXPECT_FLOAT_EQ(r.Width, row.expected.Width);
    EXPECT_FLOAT_EQ(r.Height, row.expected.Height);
    EXPECT_EQ(layout.refusedAt, WriteOrder().size());
  }
  const auto opening = LayOutGallery(kOpeningClientWidth, kOpeningClientHeight, kScrollBarHeight);
  EXPECT_EQ(opening.FlatScrollBar1, (ElementRect{0, 4695, 6630, 255}));
}

// A window too small for the fixed insets gives negative sizes; the resize
// stops at the first one, in the handler's order.
TEST(GalleryLayoutTest, StopsAtTheFirstRefusedSize) {
  const RectRow rows[] = {
      {1000, 4950, 1, {}},  // slides -85 wide
      {3000, 900, 1, {}},   // slides -25 high
      {3000, 200, 16, {}},  // the bar is taller than the window
  };
  const ElementProperty refused[] = {ElementProperty::Width, ElementProperty::Height,
                                     ElementProperty::Height};
  for (int i = 0; i < 3; ++i) {
    const auto layout = LayOutGallery(rows[i].clientWidth, rows[i].clientHeight, kScrollBarHeight);
    ASSERT_LT(layout.refusedAt, WriteOrder().size()) << i;
    EXPECT_EQ(WriteOrder()[layout.refusedAt].index, rows[i].index) << i;
    EXPECT_EQ(WriteOrder()[layout.refusedAt].property, refused[i]) << i;
  }
}

// The what's-this position is multiplied by the cell's column and row;
// frame and slide image of a cell share their factors.
TEST(GalleryCoordTest, ScalesByCell) {
  const struct {
    std::int16_t index;
    std::int32_t x, y;
  } rows[] = {{0, 100, 100},  {5, 200, 200},  {20, 200, 200}, {4, 200, 100},
              {6, 200, 300},  {16, 100, 100}, {30, 500, 300}, {31, 100, 100}};
  const UIGlobalController c;
  for (const auto& row : rows) {
    EXPECT_EQ(c.GetXCoord(100, row.index).value, row.x) << row.index;
    EXPECT_EQ(c.GetYCoord(100, row.index).value, row.y) << row.index;
  }
  EXPECT_EQ(c.GetXCoord(INT32_MAX, 4).error, RtError::Overflow);
  EXPECT_EQ(c.GetYCoord(-(1 << 30), 2).value, INT32_MIN);
  EXPECT_EQ(SlideToolTip("  Lounge  "), "Lounge");
  EXPECT_EQ(SlideToolTip("   "), "Click to enlarge");
}

}  // namespace
}  // namespace cb
