// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "gallery/GalleryLayout.h"
#include "gallery/UIModifySlideController.h"
#include "state/UIGlobalController.h"
#include "support/RowName.h"
#include "support/SifFixture.h"

namespace cb {
namespace {

using DeleteSlideTest = testing::SifFixture;
using testing::Slide;
using testing::WriteFile;

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

std::string Rows(const UIModifySlideController& c) {
  std::string out;
  for (const ChangeRow& r : c.GetChanges()) out += r.index + ":" + r.fileName + " ";
  return out;
}

std::string Joined(const NameList& names) {
  std::string out;
  for (const auto& n : names) out += n + " ";
  return out;
}

// One press of a transfer button: ">" or "<" with the picked indexes, ">>" or "<<".
struct Move {
  const char* button;
  std::vector<std::int16_t> picked;
};

void Play(UIModifySlideController& c, NameList& available, NameList& selected, const std::vector<Move>& moves) {
  for (const Move& m : moves) {
    const std::string b = m.button;
    if (b == ">") c.MoveSelected(available, selected, m.picked);
    if (b == "<") c.MoveSelected(selected, available, m.picked);
    if (b == ">>") c.MoveAll(available, selected);
    if (b == "<<") c.MoveAll(selected, available);
  }
}

TEST(MoveTest, TableOfChangesFollowsTheMoves) {
  const struct {
    const char* name;
    std::vector<Move> moves;
    const char* available;
    const char* selected;
    const char* changes;  // "index:name " per row
  } rows[] = {
      {"one_right", {{">", {1}}}, "a c ", "x y b ", "1:b "},
      {"two_right_keep_their_indexes", {{">", {0, 2}}}, "b ", "x y a c ", "0:a 2:c "},
      {"right_and_back_leaves_no_row", {{">", {1}}, {"<", {2}}}, "a c b ", "x y ", ""},
      {"slide_left_and_right_leaves_no_row", {{"<", {0}}, {">", {3}}}, "a b c ", "y x ", ""},
      {"all_right", {{">>", {}}}, "", "x y a b c ", "0:a 1:b 2:c "},
      {"all_right_then_all_left", {{">>", {}}, {"<<", {}}}, "x y a b c ", "", "0:x 1:y "},
      {"left_then_right_again_by_name", {{"<", {1}}, {">>", {}}}, "", "x a b c y ", "0:a 1:b 2:c "},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    UIModifySlideController c;
    NameList available{"a", "b", "c"}, selected{"x", "y"};
    Play(c, available, selected, row.moves);
    EXPECT_EQ(Joined(available), row.available);
    EXPECT_EQ(Joined(selected), row.selected);
    EXPECT_EQ(Rows(c), row.changes);
  }
}

TEST(ExcludeDuplicatesTest, HidesOneMatchPerSelectedNameAndUncheckingBringsAllBack) {
  const std::vector<std::string> files{"", "a.jpg", "b.jpg", "a.jpg", "B.JPG"};
  NameList available{"a.jpg", "b.jpg", "a.jpg", "B.JPG"};
  UIModifySlideController::ExcludeDuplicates(true, available, {"a.jpg", "b.jpg", "z.jpg"}, files);
  EXPECT_EQ(Joined(available), "a.jpg B.JPG ");  // exact names, the first match only
  UIModifySlideController::ExcludeDuplicates(false, available, {"a.jpg"}, files);
  EXPECT_EQ(Joined(available), "a.jpg b.jpg a.jpg B.JPG ");
}

class ModifyCollectionTest : public testing::SifFixture {
 protected:
  ModifyCollectionTest() {
    for (const char* f :
         {"Gallery/x.jpg", "Gallery/y.jpg", "Camera/a.jpg", "Camera/IMG_2.JPG", "Camera/note.txt", "Camera/old.jpeg"})
      WriteFile(app / f, f);
    std::filesystem::create_directories(app / "Camera/sub.jpg");
    std::filesystem::create_directories(app / "Empty");
  }

  std::string Names() const {
    std::string out;
    for (std::size_t i = 1; i < g.Slides.size(); ++i) out += Trim(g.Slides[i].Get(Field::PictureFile)) + " ";
    return out;
  }
};

TEST_F(ModifyCollectionTest, LoadDirectoryListsPicturesWhateverTheirCase) {
  UIModifySlideController c;
  std::vector<std::string> files;
  EXPECT_EQ(c.LoadDirectory(app / "Camera/", files, false), 2);
  EXPECT_EQ(files, (std::vector<std::string>{"", "a.jpg", "IMG_2.JPG"}));
  const std::string p = app / "Camera/";
  EXPECT_EQ(c.LoadDirectory(p, files, true), 0);
  EXPECT_EQ(files, (std::vector<std::string>{"", p + "a.jpg", p + "IMG_2.JPG", p, ""}));
}

// Moves on the two lists, then OK pressed `oks` times.
struct ApplyRow {
  const char* name;
  NameList collection, available;
  std::vector<Move> moves;
  const char* source;  // the folder chosen
  int oks;
  const char* applied;  // per row: "+" added, "-" removed, "!" after one that failed
  const char* after;    // the collection's pictures afterwards
};

// clang-format off
const ApplyRow kApplies[] = {
    {"adds_copy_and_a_second_ok_adds_again", {"x.jpg"}, {"a.jpg", "IMG_2.JPG"}, {{">>", {}}}, "Camera", 2,
     "++++", "x.jpg a.jpg IMG_2.JPG a.jpg IMG_2.JPG "},
    {"removal_before_any_addition_removes", {"x.jpg", "y.jpg"}, {"a.jpg"}, {{"<", {0}}, {">", {0}}}, "Camera", 1,
     "-+", "y.jpg a.jpg "},
    // Found is never cleared: after an addition a removal counts as one (y.jpg is not in Camera).
    {"removal_after_an_addition_adds", {"x.jpg", "y.jpg"}, {"a.jpg"}, {{">", {0}}, {"<", {0}}}, "Camera", 1,
     "++!", "x.jpg y.jpg a.jpg x.jpg "},
    {"gallery_folder_itself_appends_without_copying", {"x.jpg"}, {"y.jpg"}, {{">>", {}}}, "Gallery", 1,
     "+", "x.jpg y.jpg "},
    // Rows are toggled by name: moving both cancels out and nothing is removed.
    {"both_slides_of_a_shared_name", {"x.jpg", "y.jpg", "x.jpg"}, {}, {{"<", {0, 2}}}, "Camera", 1,
     "", "x.jpg y.jpg x.jpg "},
    // The other x.jpg still stands in the list, so the row is an addition from the chosen folder.
    {"one_slide_of_a_shared_name", {"x.jpg", "y.jpg", "x.jpg"}, {}, {{"<", {2}}}, "Gallery", 1,
     "+", "x.jpg y.jpg x.jpg x.jpg "},
};
// clang-format on

class ApplyTest : public ModifyCollectionTest, public ::testing::WithParamInterface<ApplyRow> {};

TEST_P(ApplyTest, OkAppliesTheTableOfChanges) {
  UIMainController& mc = Start();
  g.Slides.assign(1, SlideRecord());
  for (const std::string& n : GetParam().collection) g.Slides.push_back(Slide({{Field::PictureFile, n}}));
  mc.NumberOfRecords(static_cast<std::int32_t>(GetParam().collection.size()));
  UIModifySlideController c;
  NameList available = GetParam().available, selected = GetParam().collection;
  Play(c, available, selected, GetParam().moves);
  std::string applied;
  for (int k = 0; k < GetParam().oks; ++k)
    c.ApplyChanges(app / GetParam().source, selected, mc, g.Slides, [&](const AppliedRow& r) {
      applied += r.added ? "+" : "-";
      if (!r.done) applied += "!";
    });
  EXPECT_EQ(applied, GetParam().applied);
  EXPECT_EQ(Names(), GetParam().after);
  EXPECT_EQ(mc.NumberOfRecords(), static_cast<std::int32_t>(g.Slides.size()) - 1);
}

INSTANTIATE_TEST_SUITE_P(Rows, ApplyTest, ::testing::ValuesIn(kApplies), testing::RowName());

// Frames share out the client area less the bar; slide images sit 142.5 and
// 120 twips inside them; cells run column by column. Only single precision rounds.
TEST(GalleryLayoutTest, PlacesEveryElementFromTheClientSize) {
  const struct {
    double clientWidth, clientHeight;
    int index;  // Image1 index
    ElementRect expected;
  } rows[] = {
      {6630, 4950, 16, {0, 0, 1326, 1565}},  // the opening size
      {6630, 4950, 1, {142.5f, 120, 1041, 1325}},
      {6630, 4950, 4, {1468.5f, 120, 1041, 1325}},
      {6630, 4950, 30, {5304, 3130, 1326, 1565}},
      {7001, 5000, 12, {4343.1f, 3283.3333f, 1115.2f, 1341.6666f}},
      {13260, 9900, 14, {10750.5f, 3335, 2367, 2975}},
  };
  for (const auto& row : rows) {
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
  const ElementRect f16 = layout.Image1(16), i1 = layout.Image1(1);
  const struct {
    std::size_t refusedAt;
    ElementRect frame16, image1;
  } rows[] = {
      {0, old, old},                                         // the first write refused: nothing moves
      {2, {f16.Left, old.Top, f16.Width, old.Height}, old},  // frame 16's width and left only
      {4, f16, old},                                         // frame 16 whole, no slide image
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
