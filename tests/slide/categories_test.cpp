#include <gtest/gtest.h>

#include <vector>

#include "model/Categories.h"

namespace cb {
namespace {

SlideArray WithCategories(std::initializer_list<const char*> values) {
  SlideArray slides(1);
  for (const char* v : values) {
    SlideRecord r;
    r.Set(Field::Category, v);
    r.Set(Field::Location, "Lounge");
    slides.push_back(r);
  }
  return slides;
}

struct ListRow {
  std::initializer_list<const char*> slides;
  std::vector<std::string> list;  // from index 1
};

TEST(GetCategories, FirstAppearanceTrimmedExactAndNoBlanks) {
  const ListRow rows[] = {
      {{"Chairs", "", "Chairs"}, {"Chairs"}},
      {{"B", "A", "B", "C"}, {"B", "A", "C"}},
      {{"Lounge", "lounge"}, {"Lounge", "lounge"}},
      {{"Living Room", "Living_Room"}, {"Living Room", "Living_Room"}},
      {{"  Tools", "Tools  ", "Tools"}, {"Tools"}},
      {{"", "   "}, {}},
      {{}, {}},
  };
  for (const auto& row : rows) {
    KeyList list(1);
    const SlideArray slides = WithCategories(row.slides);
    const auto added = GetCategories(slides, list);
    ASSERT_FALSE(list.empty());
    EXPECT_EQ(std::vector<std::string>(list.begin() + 1, list.end()), row.list);
    EXPECT_EQ(added, static_cast<std::int32_t>(row.list.size()));
  }
}

TEST(GetCategories, EntriesAlreadyInTheListCountAsTaken) {
  KeyList list{"", "Tools"};
  EXPECT_EQ(GetCategories(WithCategories({"Tools", "Garden", "Tools"}), list), 1);
  EXPECT_EQ(list, (KeyList{"", "Tools", "Garden"}));
}

TEST(GetLocations, ReadsTheLocationField) {
  KeyList list(1);
  EXPECT_EQ(GetLocations(WithCategories({"A", "B"}), list), 1);
  EXPECT_EQ(list, (KeyList{"", "Lounge"}));
}

}  // namespace
}  // namespace cb
