#include <gtest/gtest.h>

#include <random>

#include "support/RowName.h"
#include "storage/DataAccess.h"
#include "storage/Scramble.h"
#include "support/SifFixture.h"

namespace cb {
namespace {

using testing::ReadHex;
using testing::Slide;
using testing::WriteFile;

// A header whose count and template fields hold the given plain text.
std::string Header(const std::string& count, const std::string& tmpl) {
  SlideRecord h;
  h.Set(Field::Serial, ScrambleField(count));
  h.Set(Field::Spare, ScrambleField(tmpl));
  return std::string(h.bytes().data(), kRecordLength);
}

struct BadHeaderRow {
  std::string name;
  std::string count;
  std::string tmpl;
  bool loads;
  std::string error;          // errors[0] on failure
  std::int32_t records;       // NumberOfRecords afterwards
  std::int32_t slideTemplate; // SlideTemplate afterwards (it was 3)
};

const BadHeaderRow kBadHeaders[] = {
    // The count is stored before the loop refuses it.
    {"count_40000", "40000", "1", false, "6", 40000, 1},
    {"count_max_long", "2147483647", "1", false, "6", 2147483647, 1},
    {"count_beyond_long", "99999999999", "1", false, "6", 7, 3},
    {"count_non_digits", "abc", "2", true, "", 0, 2},
    {"count_leading_digits", "2x", "2", true, "", 2, 2},
    {"template_non_numeric", "0", "x", true, "", 0, 3},
    {"template_empty", "0", "", true, "", 0, 3},
    {"template_rounds_half_even", "0", "2.5", true, "", 0, 2},
    {"template_beyond_long", "0", "99999999999", false, "6", 0, 3},
};

class BadHeaderTest : public testing::SifFixture, public ::testing::WithParamInterface<BadHeaderRow> {};

TEST_P(BadHeaderTest, TakesTheLoadsResultOrFailurePath) {
  const auto& row = GetParam();
  WriteFile(FilesPath("bad.sif"), Header(row.count, row.tmpl));
  UIMainController& mc = Start();
  mc.SetRegistryKeys(FilesPath("bad.sif"));
  mc.SlideTemplate(3);
  mc.NumberOfRecords(7);
  g.Slides.resize(8);
  ErrorArray errors;
  EXPECT_EQ(Report(mc.LoadSettings(), errors), row.loads);
  EXPECT_EQ(errors[0], row.error);
  if (!row.loads) {
    EXPECT_EQ(errors[1], "DataAccess");
    EXPECT_EQ(errors[2], "Overflow");
    EXPECT_EQ(g.Slides.size(), 8u);  // unchanged
  }
  EXPECT_EQ(mc.NumberOfRecords(), row.records);
  EXPECT_EQ(mc.SlideTemplate(), row.slideTemplate);
}

INSTANTIATE_TEST_SUITE_P(Rows, BadHeaderTest, ::testing::ValuesIn(kBadHeaders),
                         cb::testing::RowName());

TEST(SifLimits, SavingMoreThanTheLoopCanCountFails) {
  testing::TempDir app;
  MemorySettings settings;
  ModGlobal g;
  UIMainController mc(app.str(), settings, g);
  mc.SetRegistryKeys(app / "big.sif");
  g.Slides.resize(kMaxRecords + 2);
  ErrorArray errors;
  EXPECT_FALSE(Report(mc.SaveSettings(), errors));
  EXPECT_EQ(errors[0], "6");
}

class SifFileShapeTest : public testing::SifFixture {};

TEST_F(SifFileShapeTest, TruncatedLastRecordReadsAsFarAsItGoes) {
  std::string bytes = ReadHex(FIXTURES "/three_slides.hex");
  bytes.resize(3 * kRecordLength + 15);  // slide 3 ends four bytes into its picture name
  WriteFile(FilesPath("cut.sif"), bytes);
  UIMainController& mc = Start();
  mc.SetRegistryKeys(FilesPath("cut.sif"));
  ErrorArray errors;
  ASSERT_TRUE(Report(mc.LoadSettings(), errors));
  ASSERT_EQ(g.Slides.size(), 4u);
  EXPECT_EQ(RTrim(g.Slides[3].Get(Field::PictureFile)), "bike");
  EXPECT_EQ(RTrim(g.Slides[3].Get(Field::SlideText)), "");
}

TEST_F(SifFileShapeTest, RandomBytesNeverCrashOrOverreach) {
  std::mt19937 rng(2024);
  for (int round = 0; round < 200; ++round) {
    std::string bytes(rng() % 2000, '\0');
    for (char& c : bytes) c = static_cast<char>(rng());
    WriteFile(FilesPath("noise.sif"), bytes);
    UIMainController& mc = Start();
    mc.SetRegistryKeys(FilesPath("noise.sif"));
    ErrorArray errors;
    const bool ok = Report(mc.LoadSettings(), errors);
    if (ok) {
      EXPECT_EQ(static_cast<std::int32_t>(g.Slides.size()) - 1, mc.NumberOfRecords());
      EXPECT_LE(mc.NumberOfRecords(), kMaxRecords);
    } else {
      EXPECT_FALSE(errors[0].empty());
      EXPECT_FALSE(errors[2].empty());
    }
  }
}

}  // namespace
}  // namespace cb
