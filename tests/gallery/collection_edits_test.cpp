// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "state/UIGlobalController.h"
#include "support/SifFixture.h"

namespace cb {
namespace {

using testing::Slide;

// Five slides named "1".."5" in PictureFile; the header holds "H".
SlideArray Five() {
  SlideArray s{Slide({{Field::PictureFile, "H"}})};
  for (int i = 1; i <= 5; ++i) s.push_back(Slide({{Field::PictureFile, std::to_string(i)}}));
  return s;
}

std::string Names(const SlideArray& s) {
  std::string out;
  for (const auto& r : s) out += Trim(r.Get(Field::PictureFile));
  return out;
}

using DeleteSlideTest = testing::SifFixture;

TEST_F(DeleteSlideTest, RemovesTheRecordOfTheCell) {
  const struct {
    const char* name;
    std::int32_t base, index;
    bool result;
    std::string left;  // header first
  } rows[] = {
      {"first_page_cell_three", 1, 3, true, "H1245"},
      {"cell_counts_from_the_base", 3, 2, true, "H1235"},
      {"past_the_end_drops_the_last", 1, 9, true, "H1234"},
      // The header is never overwritten: the removal is refused.
      {"cell_zero_would_overwrite_the_header", 1, 0, false, "H12345"},
      {"before_the_header_is_out_of_range", -1, 1, false, "H12345"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    UIMainController& mc = Start();
    SlideArray s = Five();
    mc.NumberOfRecords(5);
    mc.CurrentlyActiveBase(row.base);
    EXPECT_EQ(UIGlobalController().DeleteSlide(row.index, mc, s), row.result);
    EXPECT_EQ(Names(s), row.left);
    EXPECT_EQ(mc.NumberOfRecords(), row.result ? 4 : 5);
  }
}

TEST_F(DeleteSlideTest, ByFileNameDropsTheLastWhenNoneMatches) {
  UIMainController& mc = Start();
  SlideArray s = Five();
  EXPECT_TRUE(UIGlobalController().DeleteSlideMSC("2", mc, s));
  EXPECT_EQ(Names(s), "H1345");
  EXPECT_FALSE(UIGlobalController().DeleteSlideMSC("9", mc, s));
  EXPECT_EQ(Names(s), "H134");
  EXPECT_EQ(mc.NumberOfRecords(), 3);
}

// The old header's bytes must not reach the next save.
TEST_F(DeleteSlideTest, AddingToAnEmptyCollectionStartsFromAFreshHeader) {
  UIMainController& mc = Start();
  std::filesystem::create_directories(app / "Gallery");
  testing::WriteFile(app / "Pictures/Chair Photo.jpg", "bytes");
  SlideArray s = Five();  // stale records behind a count of 0
  mc.NumberOfRecords(0);
  ASSERT_TRUE(UIGlobalController().AddSlide(app / "Pictures/Chair Photo.jpg", mc, s));
  ASSERT_EQ(s.size(), 2u);
  EXPECT_EQ(s[0], SlideRecord());
  EXPECT_EQ(Trim(s[1].Get(Field::PictureFile)), "Chair Photo.jpg");
  EXPECT_EQ(testing::ReadFile(app / "Gallery/Chair Photo.jpg"), "bytes");
  EXPECT_FALSE(UIGlobalController().AddSlide(app / "Pictures/gone.jpg", mc, s));
  EXPECT_EQ(mc.NumberOfRecords(), 2);  // the record stays when the copy fails
}

}  // namespace
}  // namespace cb
