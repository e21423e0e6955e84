// Random inventories give the same keys, the same sums and the same page
// from the program's single pass as from the literal triple loop.

#include <gtest/gtest.h>

#include <random>

#include "LiteralReport.h"
#include "ReportFixture.h"
#include "model/Categories.h"
#include "reports/ValueMatrix.h"

namespace cb::testing {
namespace {

constexpr const char* kKeys[] = {"",       "   ",     "Lounge", "lounge",      " Lounge ", "Living Room",
                                 "Living_Room", "Kid's Room", "Garage", "Garage  ", "Study", "O'Brien's"};
constexpr const char* kValues[] = {"",     "0",   "abc", "12.50", "1,500",         "$500", "-3",   "0.4",
                                   "-0.4", "1E3", "2.5", "0.1",   "99999999999",   "1234567.123", " 7 ", "-12.25",
                                   "0.2",  "1e-7", "3"};

SlideArray RandomInventory(std::mt19937& rng) {
  auto pick = [&](const auto& pool) { return pool[std::uniform_int_distribution<std::size_t>(0, std::size(pool) - 1)(rng)]; };
  SlideArray slides(1);
  const int n = std::uniform_int_distribution<int>(0, 60)(rng);
  for (int i = 0; i < n; ++i) {
    SlideRecord r;
    r.Set(Field::PictureFile, "p" + std::to_string(i) + ".jpg");
    r.Set(Field::SlideText, "slide " + std::to_string(i));
    r.Set(Field::Category, pick(kKeys));
    r.Set(Field::Location, pick(kKeys));
    r.Set(Field::Value, pick(kValues));
    slides.push_back(r);
  }
  return slides;
}

// The page as the literal steps make it: the program's page with its rows
// replaced by the rows of the literal loops.
std::string LiteralPage(const std::string& fastPage, const SlideArray& slides, bool byCategory, const std::string& font,
                        const ReportLocale& locale) {
  KeyList categories(1), locations(1);
  literal::Keys(slides, Field::Category, categories);
  literal::Keys(slides, Field::Location, locations);
  const KeyList& groups = byCategory ? categories : locations;
  const KeyList& entries = byCategory ? locations : categories;
  ValueMatrix m(static_cast<std::int32_t>(groups.size()) - 1, static_cast<std::int32_t>(entries.size()) - 1);
  EXPECT_TRUE(literal::Sums(slides, byCategory ? Field::Category : Field::Location,
                            byCategory ? Field::Location : Field::Category, groups, entries, m));
  const std::string rowsStart = "Total</u></b></td></tr>";
  const std::string totalRow = "<tr><td width='25%'><b><font size='2' face='" + font + "'>Total</b></td>";
  const auto start = fastPage.find(rowsStart) + rowsStart.size();
  const auto end = fastPage.rfind(totalRow);
  return fastPage.substr(0, start) + literal::Rows(m, groups, entries, font, kTestFilePath, locale) +
         fastPage.substr(end);
}

class SumsProperty : public ReportFixture {};

TEST_F(SumsProperty, FastPathMatchesTheTripleLoop) {
  std::mt19937 rng(20011506);
  ReportLocale locale;
  for (int round = 0; round < 300; ++round) {
    g.Slides = RandomInventory(rng);
    const bool byCategory = round % 2 == 0;
    mc->SlideTemplate(1 + round % 3);

    KeyList fastCategories(1), slowCategories(1);
    EXPECT_EQ(GetCategories(g.Slides, fastCategories), literal::Keys(g.Slides, Field::Category, slowCategories));
    ASSERT_EQ(fastCategories, slowCategories) << round;

    KeyList locations(1);
    GetLocations(g.Slides, locations);
    const KeyList& groups = byCategory ? fastCategories : locations;
    const KeyList& entries = byCategory ? locations : fastCategories;
    const auto gb = static_cast<std::int32_t>(groups.size()) - 1, eb = static_cast<std::int32_t>(entries.size()) - 1;
    const Field gf = byCategory ? Field::Category : Field::Location, ef = byCategory ? Field::Location : Field::Category;
    ValueMatrix fast(gb, eb), slow(gb, eb);
    ASSERT_EQ(SumValues(g.Slides, gf, ef, groups, entries, fast), RtError::None);
    ASSERT_TRUE(literal::Sums(g.Slides, gf, ef, groups, entries, slow));
    ASSERT_EQ(fast, slow) << round;

    UIReportController& r = Controller("Tahoma");
    ASSERT_TRUE(byCategory ? r.CreateReportByCategory() : r.CreateReportByLocation());
    std::string page = Page("Report1.htm");
    ASSERT_TRUE(page.ends_with("\r\n"));
    page.resize(page.size() - 2);
    ASSERT_EQ(page, LiteralPage(page, g.Slides, byCategory, "Tahoma", locale)) << round;
  }
}

}  // namespace
}  // namespace cb::testing
