#include <gtest/gtest.h>

#include "gallery/UIModifySlideController.h"
#include "support/RowName.h"
#include "support/SifFixture.h"

namespace cb {
namespace {

using testing::ReadFile;
using testing::Slide;
using testing::WriteFile;

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

struct MoveRow {
  const char* name;
  std::vector<Move> moves;
  const char* available;
  const char* selected;
  const char* changes;  // "index:name " per row
};

const MoveRow kMoves[] = {
    {"one_right", {{">", {1}}}, "a c ", "x y b ", "1:b "},
    {"two_right_keep_their_indexes", {{">", {0, 2}}}, "b ", "x y a c ", "0:a 2:c "},
    {"right_and_back_leaves_no_row", {{">", {1}}, {"<", {2}}}, "a c b ", "x y ", ""},
    {"slide_left_and_right_leaves_no_row", {{"<", {0}}, {">", {3}}}, "a b c ", "y x ", ""},
    {"all_right", {{">>", {}}}, "", "x y a b c ", "0:a 1:b 2:c "},
    {"all_right_then_all_left", {{">>", {}}, {"<<", {}}}, "x y a b c ", "", "0:x 1:y "},
    {"left_then_right_again_by_name", {{"<", {1}}, {">>", {}}}, "", "x a b c y ", "0:a 1:b 2:c "},
};

class MoveTest : public ::testing::TestWithParam<MoveRow> {};

TEST_P(MoveTest, TableOfChangesFollowsTheMoves) {
  UIModifySlideController c;
  NameList available{"a", "b", "c"}, selected{"x", "y"};
  for (const Move& m : GetParam().moves) {
    const std::string b = m.button;
    if (b == ">") c.MoveSelected(available, selected, m.picked);
    if (b == "<") c.MoveSelected(selected, available, m.picked);
    if (b == ">>") c.MoveAll(available, selected);
    if (b == "<<") c.MoveAll(selected, available);
  }
  EXPECT_EQ(Joined(available), GetParam().available);
  EXPECT_EQ(Joined(selected), GetParam().selected);
  EXPECT_EQ(Rows(c), GetParam().changes);
}

INSTANTIATE_TEST_SUITE_P(Rows, MoveTest, ::testing::ValuesIn(kMoves), testing::RowName());

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

  // A collection of the named slides.
  UIMainController& Collection(std::initializer_list<const char*> names) {
    UIMainController& mc = Start();
    g.Slides.assign(1, SlideRecord());
    for (const char* n : names) g.Slides.push_back(Slide({{Field::PictureFile, n}}));
    mc.NumberOfRecords(static_cast<std::int32_t>(names.size()));
    return mc;
  }

  std::string Names() const {
    std::string out;
    for (std::size_t i = 1; i < g.Slides.size(); ++i) out += Trim(g.Slides[i].Get(Field::PictureFile)) + " ";
    return out;
  }

  // Applies the table; returns each row as "+" or "-" for an addition or removal, "!" after a failed one.
  std::string Apply(const UIModifySlideController& c, const std::string& source, const NameList& selected) {
    std::string out;
    c.ApplyChanges(source, selected, *g.MainController, g.Slides, [&](const AppliedRow& r) {
      out += r.added ? "+" : "-";
      if (!r.done) out += "!";
    });
    return out;
  }
};

TEST_F(ModifyCollectionTest, LoadDirectoryListsPicturesWhateverTheirCase) {
  UIModifySlideController c;
  std::vector<std::string> files;
  EXPECT_EQ(c.LoadDirectory(app / "Camera/", files, false), 2);
  EXPECT_EQ(files, (std::vector<std::string>{"", "a.jpg", "IMG_2.JPG"}));
  EXPECT_EQ(c.LoadDirectory(app / "Empty/", files, false), 0);
  EXPECT_EQ(files, std::vector<std::string>{""});
  const std::string p = app / "Camera/";
  EXPECT_EQ(c.LoadDirectory(p, files, true), 0);
  EXPECT_EQ(files, (std::vector<std::string>{"", p + "a.jpg", p + "IMG_2.JPG", p, ""}));
}

TEST_F(ModifyCollectionTest, AddingCopiesAndSecondApplyAddsAgain) {
  Collection({"x.jpg"});
  UIModifySlideController c;
  NameList available{"a.jpg", "IMG_2.JPG"}, selected{"x.jpg"};
  c.MoveAll(available, selected);
  EXPECT_EQ(Apply(c, app / "Camera", selected), "++");
  EXPECT_EQ(Names(), "x.jpg a.jpg IMG_2.JPG ");
  EXPECT_EQ(ReadFile(app / "Gallery/IMG_2.JPG"), "Camera/IMG_2.JPG");
  EXPECT_EQ(Apply(c, app / "Camera", selected), "++");
  EXPECT_EQ(Names(), "x.jpg a.jpg IMG_2.JPG a.jpg IMG_2.JPG ");
  EXPECT_EQ(g.MainController->NumberOfRecords(), 5);
}

TEST_F(ModifyCollectionTest, RemovalBeforeAnyAdditionRemoves) {
  Collection({"x.jpg", "y.jpg"});
  UIModifySlideController c;
  NameList available{"a.jpg"}, selected{"x.jpg", "y.jpg"};
  c.MoveSelected(selected, available, {0});
  c.MoveSelected(available, selected, {0});
  EXPECT_EQ(Apply(c, app / "Camera", selected), "-+");
  EXPECT_EQ(Names(), "y.jpg a.jpg ");
}

TEST_F(ModifyCollectionTest, FoundIsNeverClearedSoALaterRemovalIsAnAddition) {
  Collection({"x.jpg", "y.jpg"});
  UIModifySlideController c;
  NameList available{"a.jpg"}, selected{"x.jpg", "y.jpg"};
  c.MoveSelected(available, selected, {0});
  c.MoveSelected(selected, available, {0});
  // y.jpg is not in the camera folder: the copy fails and the record stays all the same.
  EXPECT_EQ(Apply(c, app / "Camera", selected), "++!");
  EXPECT_EQ(Names(), "x.jpg y.jpg a.jpg x.jpg ");
}

TEST_F(ModifyCollectionTest, GalleryFolderItselfAppendsWithoutCopying) {
  Collection({"x.jpg"});
  UIModifySlideController c;
  std::vector<std::string> files;
  c.LoadDirectory(app / "Gallery/", files, false);
  NameList available(files.begin() + 1, files.end()), selected{"x.jpg"};
  UIModifySlideController::ExcludeDuplicates(true, available, selected, files);
  ASSERT_EQ(Joined(available), "y.jpg ");
  c.MoveAll(available, selected);
  EXPECT_EQ(Apply(c, app / "Gallery", selected), "+");  // a copy onto itself would fail
  EXPECT_EQ(Names(), "x.jpg y.jpg ");
}

// Rows are toggled by name and OK looks names up in the collection's list.
TEST_F(ModifyCollectionTest, NameTwoSlidesShare) {
  Collection({"x.jpg", "y.jpg", "x.jpg"});
  UIModifySlideController both;
  NameList available, selected{"x.jpg", "y.jpg", "x.jpg"};
  both.MoveSelected(selected, available, {0, 2});
  EXPECT_EQ(Rows(both), "");  // moving both cancels out: nothing is removed
  EXPECT_EQ(Apply(both, app / "Camera", selected), "");

  UIModifySlideController one;
  available.clear();
  selected = {"x.jpg", "y.jpg", "x.jpg"};
  one.MoveSelected(selected, available, {2});
  // The other x.jpg still stands in the list, so the row is an addition, from the chosen folder.
  EXPECT_EQ(Apply(one, app / "Gallery", selected), "+");
  EXPECT_EQ(Names(), "x.jpg y.jpg x.jpg x.jpg ");
}

}  // namespace
}  // namespace cb
