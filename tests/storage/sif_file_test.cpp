// SPDX-License-Identifier: GPL-3.0-or-later
// The slide information file: what a save writes byte for byte, and what a
// load makes of whole, cut, damaged and unreadable files.
#include <gtest/gtest.h>

#include <random>

#include "storage/DataAccess.h"
#include "storage/RandomFile.h"
#include "storage/Scramble.h"
#include "storage/SifReader.h"
#include "support/SifFixture.h"

namespace cb {
namespace {

using testing::ReadFile;
using testing::ReadHex;
using testing::Slide;
using testing::WriteFile;

const std::string kThreeHex = FIXTURES "/three_slides.hex";

class SifFileTest : public testing::SifFixture {
 protected:
  UIMainController& Open(const std::string& name) {
    UIMainController& mc = Start();
    mc.SetRegistryKeys(FilesPath(name));
    return mc;
  }
  ErrorArray errors;
};

// A slide as a load gives it back: every field padded with blanks.
SlideRecord Loaded(const std::vector<std::string>& fields = {}) {
  SlideRecord r;
  r.bytes().fill(' ');
  for (std::size_t i = 0; i < fields.size(); ++i) r.Set(static_cast<Field>(i + 1), fields[i]);
  return r;
}

SlideArray ThreeSlides() {
  return {SlideRecord(),
          Loaded({"tv.jpg", "Lounge television", "Electrical", "Lounge", "Sony", "KD-55X80", "SN 4471", "1499.95"}),
          Loaded({"ring.jpg", "Gold ring, 18ct", "Jewellery", "Bedroom", "", "", "", "2,300"}),
          Loaded({"bike.jpg", "Road bike \xE9t\xE9", "Sport", "Garage", "Trek", "Domane", "WTU123", "850"})};
}

// A header record whose count and template fields hold the given plain text.
std::string Header(const std::string& count, const std::string& tmpl) {
  SlideRecord h;
  h.Set(Field::Serial, ScrambleField(count));
  h.Set(Field::Spare, ScrambleField(tmpl));
  return std::string(h.bytes().data(), kRecordLength);
}

TEST_F(SifFileTest, SavesByteForByteAndLoadsBack) {
  UIMainController& mc = Open("three.sif");
  mc.SlideTemplate(2);
  mc.BackgroundImage("oak.jpg");
  mc.Wallpaper("dusk.jpg");
  mc.ReportFont("DejaVu Sans");
  g.Slides = ThreeSlides();
  g.SlidesChanged = true;
  ASSERT_TRUE(Report(mc.SaveSettings(), errors));
  const std::string golden = ReadHex(kThreeHex);
  EXPECT_EQ(ReadFile(FilesPath("three.sif")), golden);
  EXPECT_FALSE(g.SlidesChanged);

  UIMainController& loaded = Open("three.sif");
  g.Slides.clear();
  g.SlidesChanged = true;
  ASSERT_TRUE(Report(loaded.LoadSettings(), errors));
  EXPECT_EQ(loaded.NumberOfRecords(), 3);
  EXPECT_EQ(loaded.SlideTemplate(), 2);
  EXPECT_EQ(loaded.BackgroundImage(), "oak.jpg");
  EXPECT_EQ(loaded.Wallpaper(), "dusk.jpg");
  EXPECT_EQ(loaded.ReportFont(), "DejaVu Sans");
  EXPECT_FALSE(g.SlidesChanged);
  // The header stays as read, still scrambled.
  SlideArray expected = ThreeSlides();
  std::copy_n(golden.begin(), kRecordLength, expected[0].bytes().begin());
  EXPECT_EQ(g.Slides, expected);
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

TEST_F(SifFileTest, FieldComesBackAsStored) {
  const struct {
    Field field;
    std::string saved, loaded;  // loaded: trimmed
  } rows[] = {
      {Field::Make, " abc", " ab"},        // leading blank costs the last character
      {Field::Value, "  12.50", "12.50"},  // the value alone is trimmed first
      {Field::PictureFile, std::string(30, 'p'), std::string(26, 'p')},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.saved);
    UIMainController& mc = Open("one.sif");
    g.Slides = {SlideRecord(), Slide({{row.field, row.saved}})};
    ASSERT_TRUE(Report(mc.SaveSettings(), errors));
    ASSERT_TRUE(Report(mc.LoadSettings(), errors));
    EXPECT_EQ(RTrim(g.Slides[1].Get(row.field)), row.loaded);
  }
}

TEST_F(SifFileTest, CutFileReadsAsFarAsItGoes) {
  // Slide 3 ends four bytes into its picture name.
  WriteFile(FilesPath("cut.sif"), ReadHex(kThreeHex).substr(0, 3 * kRecordLength + 15));
  ASSERT_TRUE(Report(Open("cut.sif").LoadSettings(), errors));
  ASSERT_EQ(g.Slides.size(), 4u);
  EXPECT_EQ(RTrim(g.Slides[3].Get(Field::PictureFile)), "bike");
  EXPECT_EQ(RTrim(g.Slides[3].Get(Field::SlideText)), "");
}

TEST_F(SifFileTest, FileIsReadFromTheFilesDirectoryUnderItsExactName) {
  WriteFile(app / "elsewhere/three.sif", "not read");
  WriteFile(FilesPath("three.sif"), ReadHex(kThreeHex));
  UIMainController& mc = Open("x");
  mc.SetRegistryKeys(app / "elsewhere/three.sif");
  ASSERT_TRUE(Report(mc.LoadSettings(), errors));
  EXPECT_EQ(mc.NumberOfRecords(), 3);
  EXPECT_EQ(mc.SlideInformationFilePath(), app / "elsewhere/three.sif");

  // Without a twin there, an empty one is made.
  WriteFile(app / "elsewhere/lone.sif", ReadHex(kThreeHex));
  mc.SetRegistryKeys(app / "elsewhere/lone.sif");
  ASSERT_TRUE(Report(mc.LoadSettings(), errors));
  EXPECT_EQ(mc.NumberOfRecords(), 0);
  EXPECT_TRUE(std::filesystem::exists(FilesPath("lone.sif")));
  EXPECT_EQ(ReadFile(FilesPath("lone.sif")), "");

  // A name differing in case is not found, and nothing changes.
  WriteFile(FilesPath("Other.sif"), ReadHex(kThreeHex));
  mc.SetRegistryKeys(FilesPath("other.sif"));
  errors = {"kept0", "kept1", ""};
  g.Slides = ThreeSlides();
  EXPECT_FALSE(Report(mc.LoadSettings(), errors));
  EXPECT_EQ(errors, (ErrorArray{"kept0", "kept1", "Cannot find Slide Information File."}));
  EXPECT_EQ(g.Slides.size(), 4u);
}

TEST_F(SifFileTest, SaveFailsIntoAMissingDirectoryOrBeyondWhatALoadCounts) {
  UIMainController& mc = Open("x");
  mc.SetRegistryKeys(app / "no/such/dir/a.sif");
  EXPECT_FALSE(Report(mc.SaveSettings(), errors));
  EXPECT_EQ(errors[0], "76");
  EXPECT_EQ(errors[2], "Path not found");
  mc.SetRegistryKeys(app / "big.sif");
  g.Slides.resize(kMaxRecords + 2);
  EXPECT_FALSE(Report(mc.SaveSettings(), errors));
  EXPECT_EQ(errors[0], "6");
}

TEST_F(SifFileTest, BadOrEmptyHeaderTakesTheLoadsResultOrFailurePath) {
  const struct {
    const char* name;
    std::string bytes;
    bool loads;
    std::string error;           // errors[0] on failure
    std::int32_t records;        // NumberOfRecords afterwards
    std::int32_t slideTemplate;  // SlideTemplate afterwards (it was 3)
  } rows[] = {
      // The count is stored before the loop refuses it.
      {"count 40000", Header("40000", "1"), false, "6", 40000, 1},
      {"count max long", Header("2147483647", "1"), false, "6", 2147483647, 1},
      {"count beyond long", Header("99999999999", "1"), false, "6", 7, 3},
      {"count non-digits", Header("abc", "2"), true, "", 0, 2},
      {"count leading digits", Header("2x", "2"), true, "", 2, 2},
      {"template non-numeric", Header("0", "x"), true, "", 0, 3},
      {"template empty", Header("0", ""), true, "", 0, 3},
      {"template rounds half even", Header("0", "2.5"), true, "", 0, 2},
      {"template beyond long", Header("0", "99999999999"), false, "6", 0, 3},
      {"empty file", "", true, "", 0, 3},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    WriteFile(FilesPath("bad.sif"), row.bytes);
    UIMainController& mc = Open("bad.sif");
    mc.SlideTemplate(3);
    mc.NumberOfRecords(7);
    g.Slides.resize(8);
    errors = {};
    EXPECT_EQ(Report(mc.LoadSettings(), errors), row.loads);
    EXPECT_EQ(errors[0], row.error);
    if (!row.loads) {
      EXPECT_EQ(errors[1], "DataAccess");
      EXPECT_EQ(errors[2], "Overflow");
      EXPECT_EQ(g.Slides.size(), 8u);  // unchanged
    } else {                           // every slide counted lies past the header, the file's end
      EXPECT_EQ(g.Slides.size(), static_cast<std::size_t>(row.records) + 1);
      for (std::size_t i = 1; i < g.Slides.size(); ++i) EXPECT_EQ(g.Slides[i], Loaded()) << i;
    }
    EXPECT_EQ(mc.NumberOfRecords(), row.records);
    EXPECT_EQ(mc.SlideTemplate(), row.slideTemplate);
  }
}

TEST_F(SifFileTest, RandomBytesNeverCrashOrOverreach) {
  std::mt19937 rng(2024);
  for (int round = 0; round < 200; ++round) {
    std::string bytes(rng() % 2000, '\0');
    for (char& c : bytes) c = static_cast<char>(rng());
    WriteFile(FilesPath("noise.sif"), bytes);
    UIMainController& mc = Open("noise.sif");
    if (Report(mc.LoadSettings(), errors)) {
      EXPECT_EQ(static_cast<std::int32_t>(g.Slides.size()) - 1, mc.NumberOfRecords());
      EXPECT_LE(mc.NumberOfRecords(), kMaxRecords);
    } else {
      EXPECT_FALSE(errors[0].empty());
      EXPECT_FALSE(errors[2].empty());
    }
  }
}

// Disk and memory must load alike: whole files, cut ones, and headers that fail.
TEST(SifReader, MemoryAndDiskLoadAlike) {
  testing::TempDir dir;
  const std::string path = dir / "Files/a.sif", three = ReadHex(kThreeHex);
  for (const std::string& bytes :
       {three, three.substr(0, 2 * kRecordLength + 100), ReadHex(FIXTURES "/unassigned_fields.hex"), std::string(),
        Header("40000", ""), Header("1", "99999999999"), std::string(1000, '\xFF')}) {
    SCOPED_TRACE(bytes.size());
    WriteFile(path, bytes);
    MemoryEnv memory;
    memory.Files()[path] = bytes;
    SifSettings onDisk{7, "bg.jpg", "wall.jpg", 3, "Arial"}, held = onDisk;
    SlideArray diskSlides(2), heldSlides(2);
    const Status a = DataAccess().LoadSettings({path, "a.sif", path}, onDisk, diskSlides);
    const Status b = DataAccess(memory).LoadSettings({path, "a.sif", path}, held, heldSlides);
    EXPECT_EQ(b.error(), a.error());
    EXPECT_EQ(b.description(), a.description());
    const auto tie = [](const SifSettings& t) {
      return std::tie(t.NumberOfRecords, t.BackgroundImage, t.Wallpaper, t.SlideTemplate, t.ReportFont);
    };
    EXPECT_EQ(tie(held), tie(onDisk));
    EXPECT_EQ(heldSlides, diskSlides);
  }
}

// Handed on a block at a time, across block ends, a cut record and the
// count's slides past the end of the file, the slides are those a load keeps.
TEST(SifReader, BlocksHandOnTheSlidesALoadKeeps) {
  std::string bytes = Header("600", "1");
  for (int i = 1; i <= 300; ++i) {
    SlideRecord r = Loaded({"p" + std::to_string(i) + ".jpg"});
    EncodeSlide(r);
    bytes.append(r.bytes().data(), kRecordLength);
  }
  bytes.resize(bytes.size() - 100);
  MemoryEnv memory;
  memory.Files()["a.sif"] = bytes;
  std::unique_ptr<RecordFile> file;
  ASSERT_EQ(memory.OpenRecords("a.sif", kRecordLength, OpenMode::Read, file), RtError::None);
  SifRead whole, head;
  ASSERT_TRUE(ReadSif(*file, whole).ok());
  SlideArray handed(1, whole.Slides[0]);
  const auto take = [&handed](std::span<const SlideRecord> s) { handed.insert(handed.end(), s.begin(), s.end()); };
  ASSERT_TRUE(ReadSifBlocks(*file, head, take).ok());
  EXPECT_EQ(head.Slides.size(), 1u);
  ASSERT_EQ(handed.size(), 601u);
  EXPECT_EQ(handed, whole.Slides);
  EXPECT_EQ(RTrim(handed[257].Get(Field::PictureFile)), "p257.jpg");
  EXPECT_EQ(handed[600], Loaded());
}

TEST(RandomFile, AReadingOpenNeverCreates) {
  testing::TempDir dir;
  RandomFile f;
  EXPECT_EQ(f.OpenRead(dir / "absent.sif", kRecordLength), RtError::FileNotFound);
  EXPECT_EQ(f.OpenRead(dir / "no/absent.sif", kRecordLength), RtError::PathNotFound);
  EXPECT_FALSE(std::filesystem::exists(dir / "absent.sif"));
  WriteFile(dir / "short.sif", "abc");
  ASSERT_EQ(f.OpenRead(dir / "short.sif", kRecordLength), RtError::None);
  SlideRecord r;
  EXPECT_EQ(f.Get(1, r.bytes()), RtError::None);
  EXPECT_EQ(std::string(r.bytes().data(), 4), std::string("abc\0", 4));
  EXPECT_EQ(f.Size(), 3);
  EXPECT_NE(f.Put(1, r.bytes()), RtError::None);
}

}  // namespace
}  // namespace cb
