#include <gtest/gtest.h>

#include "storage/DataAccess.h"
#include "support/SifFixture.h"

namespace cb {
namespace {

using testing::ReadFile;
using testing::ReadHex;
using testing::Slide;
using testing::WriteFile;

class SifFileTest : public testing::SifFixture {
 protected:
  // The open file is Files/<name>, with the given header settings.
  UIMainController& Open(const std::string& name) {
    UIMainController& mc = Start();
    mc.SetRegistryKeys(FilesPath(name));
    return mc;
  }
  ErrorArray errors;
};

SlideArray ThreeSlides() {
  using F = Field;
  SlideArray s(1);
  s.push_back(testing::Slide({{F::PictureFile, "tv.jpg"}, {F::SlideText, "Lounge television"},
      {F::Category, "Electrical"}, {F::Location, "Lounge"}, {F::Make, "Sony"}, {F::Model, "KD-55X80"},
      {F::Serial, "SN 4471"}, {F::Value, "1499.95"}, {F::Spare, ""}}));
  s.push_back(testing::Slide({{F::PictureFile, "ring.jpg"}, {F::SlideText, "Gold ring, 18ct"},
      {F::Category, "Jewellery"}, {F::Location, "Bedroom"}, {F::Make, ""}, {F::Model, ""}, {F::Serial, ""},
      {F::Value, "2,300"}, {F::Spare, ""}}));
  s.push_back(testing::Slide({{F::PictureFile, "bike.jpg"}, {F::SlideText, "Road bike \xE9t\xE9"},
      {F::Category, "Sport"}, {F::Location, "Garage"}, {F::Make, "Trek"}, {F::Model, "Domane"},
      {F::Serial, "WTU123"}, {F::Value, "850"}, {F::Spare, ""}}));
  return s;
}

TEST_F(SifFileTest, SavesHeaderAndSlidesByteForByte) {
  UIMainController& mc = Open("three.sif");
  mc.SlideTemplate(2);
  mc.BackgroundImage("oak.jpg");
  mc.Wallpaper("dusk.jpg");
  mc.ReportFont("DejaVu Sans");
  g.Slides = ThreeSlides();
  g.SlidesChanged = true;
  ASSERT_TRUE(Report(mc.SaveSettings(), errors));
  EXPECT_EQ(ReadFile(FilesPath("three.sif")), ReadHex(FIXTURES "/three_slides.hex"));
  EXPECT_FALSE(g.SlidesChanged);
}

TEST_F(SifFileTest, NeverAssignedFieldsAreSavedAsBlanks) {
  UIMainController& mc = Open("chair.sif");
  mc.SlideTemplate(1);
  g.Slides.push_back(Slide({{Field::PictureFile, "a.jpg"}, {Field::SlideText, "Chair"}}));
  ASSERT_TRUE(Report(mc.SaveSettings(), errors));
  EXPECT_EQ(ReadFile(FilesPath("chair.sif")), ReadHex(FIXTURES "/unassigned_fields.hex"));
  ASSERT_TRUE(Report(mc.LoadSettings(), errors));
  EXPECT_EQ(g.Slides[1].Get(Field::Make), std::string(26, ' '));
}

TEST_F(SifFileTest, LoadGivesBackTheSlidesAndTheHeader) {
  WriteFile(FilesPath("three.sif"), ReadHex(FIXTURES "/three_slides.hex"));
  UIMainController& mc = Open("three.sif");
  g.SlidesChanged = true;
  ASSERT_TRUE(Report(mc.LoadSettings(), errors));
  EXPECT_EQ(g.Slides.size(), 4u);
  EXPECT_EQ(mc.NumberOfRecords(), 3);
  EXPECT_EQ(mc.SlideTemplate(), 2);
  EXPECT_EQ(mc.BackgroundImage(), "oak.jpg");
  EXPECT_EQ(mc.Wallpaper(), "dusk.jpg");
  EXPECT_EQ(mc.ReportFont(), "DejaVu Sans");
  EXPECT_FALSE(g.SlidesChanged);
  const SlideArray expected = ThreeSlides();
  for (std::size_t i = 1; i < expected.size(); ++i) EXPECT_EQ(g.Slides[i], expected[i]) << i;
  // The header stays as read, still scrambled.
  EXPECT_EQ(std::string(g.Slides[0].bytes().data(), kRecordLength), ReadFile(FilesPath("three.sif")).substr(0, 278));
}

struct RoundTripRow {
  Field field;
  std::string saved;
  std::string loaded;  // trimmed
};

// What a value becomes after a save and a load.
const RoundTripRow kRoundTrips[] = {
    {Field::Make, " abc", " ab"},            // leading blank costs the last character
    {Field::Value, "  12.50", "12.50"},      // the value alone is trimmed first
    {Field::SlideText, "caf\xE0", "caf"},    // code 224 is stored as padding
    {Field::SlideText, "a\xE0" "b", "ab"},
    {Field::Model, "X 1", "X 1"},
    {Field::PictureFile, std::string(30, 'p'), std::string(26, 'p')},
};

class SifRoundTripTest : public SifFileTest, public ::testing::WithParamInterface<RoundTripRow> {};

TEST_P(SifRoundTripTest, FieldComesBackAsStored) {
  const auto& row = GetParam();
  UIMainController& mc = Open("one.sif");
  g.Slides.push_back(Slide({{row.field, row.saved}}));
  ASSERT_TRUE(Report(mc.SaveSettings(), errors));
  ASSERT_TRUE(Report(mc.LoadSettings(), errors));
  EXPECT_EQ(RTrim(g.Slides[1].Get(row.field)), row.loaded);
}

INSTANTIATE_TEST_SUITE_P(Rows, SifRoundTripTest, ::testing::ValuesIn(kRoundTrips));

TEST_F(SifFileTest, ZeroLengthFileLoadsEmptyKeepingTheTemplate) {
  WriteFile(FilesPath("empty.sif"), "");
  UIMainController& mc = Open("empty.sif");
  mc.SlideTemplate(3);
  mc.Wallpaper("old.jpg");
  g.Slides = ThreeSlides();
  ASSERT_TRUE(Report(mc.LoadSettings(), errors));
  EXPECT_EQ(mc.NumberOfRecords(), 0);
  EXPECT_EQ(mc.SlideTemplate(), 3);
  EXPECT_EQ(mc.Wallpaper(), "");
  EXPECT_EQ(mc.BackgroundImage(), "");
  EXPECT_EQ(g.Slides.size(), 1u);
}

TEST_F(SifFileTest, CountBeyondTheRecordsReadsEmptySlides) {
  std::string bytes = ReadHex(FIXTURES "/three_slides.hex").substr(0, 2 * 278);
  bytes.replace(241, 26, std::string(1, static_cast<char>(256 - '5')) + std::string(25, ' '));
  WriteFile(FilesPath("short.sif"), bytes);
  UIMainController& mc = Open("short.sif");
  ASSERT_TRUE(Report(mc.LoadSettings(), errors));
  ASSERT_EQ(g.Slides.size(), 6u);
  EXPECT_EQ(RTrim(g.Slides[1].Get(Field::PictureFile)), "tv.jpg");
  for (std::size_t i = 2; i < 6; ++i) EXPECT_EQ(g.Slides[i], Slide({{Field::Spare, ""}, {Field::PictureFile, ""},
      {Field::SlideText, ""}, {Field::Category, ""}, {Field::Location, ""}, {Field::Make, ""},
      {Field::Model, ""}, {Field::Serial, ""}, {Field::Value, ""}})) << i;
}

TEST_F(SifFileTest, FileChosenElsewhereIsReadFromTheFilesDirectory) {
  WriteFile(app / "elsewhere/three.sif", "not read");
  WriteFile(FilesPath("three.sif"), ReadHex(FIXTURES "/three_slides.hex"));
  UIMainController& mc = Open("x");
  mc.SetRegistryKeys(app / "elsewhere/three.sif");
  ASSERT_TRUE(Report(mc.LoadSettings(), errors));
  EXPECT_EQ(mc.NumberOfRecords(), 3);
  EXPECT_EQ(mc.SlideInformationFilePath(), app / "elsewhere/three.sif");
}

TEST_F(SifFileTest, FileChosenElsewhereWithoutATwinCreatesAnEmptyOne) {
  WriteFile(app / "elsewhere/lone.sif", ReadHex(FIXTURES "/three_slides.hex"));
  UIMainController& mc = Open("x");
  mc.SetRegistryKeys(app / "elsewhere/lone.sif");
  ASSERT_TRUE(Report(mc.LoadSettings(), errors));
  EXPECT_EQ(mc.NumberOfRecords(), 0);
  EXPECT_TRUE(std::filesystem::exists(FilesPath("lone.sif")));
  EXPECT_EQ(ReadFile(FilesPath("lone.sif")), "");
}

TEST_F(SifFileTest, NameDifferingInCaseIsNotFound) {
  WriteFile(FilesPath("Three.sif"), ReadHex(FIXTURES "/three_slides.hex"));
  UIMainController& mc = Open("three.sif");
  errors = {"kept0", "kept1", ""};
  g.Slides = ThreeSlides();
  EXPECT_FALSE(Report(mc.LoadSettings(), errors));
  EXPECT_EQ(errors, (ErrorArray{"kept0", "kept1", "Cannot find Slide Information File."}));
  EXPECT_EQ(g.Slides.size(), 4u);
}

TEST_F(SifFileTest, SaveIntoAMissingDirectoryFails) {
  UIMainController& mc = Open("x");
  mc.SetRegistryKeys(app / "no/such/dir/a.sif");
  EXPECT_FALSE(Report(mc.SaveSettings(), errors));
  EXPECT_EQ(errors[0], "76");
  EXPECT_EQ(errors[2], "Path not found");
}

}  // namespace
}  // namespace cb
