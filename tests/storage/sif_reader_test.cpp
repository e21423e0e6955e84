// The two places a file can come from: disk and memory must load alike.
#include <gtest/gtest.h>

#include <filesystem>

#include "storage/DataAccess.h"
#include "storage/RandomFile.h"
#include "storage/Scramble.h"
#include "support/TempDir.h"

namespace cb {
namespace {

using testing::ReadFile;
using testing::ReadHex;
using testing::TempDir;
using testing::WriteFile;

struct Outcome {
  RtError error;
  std::string description;
  SifSettings settings;
  SlideArray slides;
};

Outcome Load(DataAccess data, const std::string& path) {
  SifSettings s{7, "bg.jpg", "wall.jpg", 3, "Arial"};
  SlideArray slides(2);
  const std::string name = std::filesystem::path(path).filename().string();
  const Status st = data.LoadSettings({path, name, path}, s, slides);
  return {st.error(), std::string(st.description()), s, slides};
}

// The inputs a load meets: whole files, cut ones, and headers that fail.
std::vector<std::string> Inputs() {
  const std::string three = ReadHex(FIXTURES "/three_slides.hex");
  SlideRecord big;
  big.Set(Field::Serial, ScrambleField("40000"));
  SlideRecord tooLargeTemplate;
  tooLargeTemplate.Set(Field::Serial, ScrambleField("1"));
  tooLargeTemplate.Set(Field::Spare, ScrambleField("99999999999"));
  tooLargeTemplate.Set(Field::PictureFile, ScrambleField("frame.jpg"));
  return {three,
          three.substr(0, 2 * kRecordLength + 100),
          ReadHex(FIXTURES "/unassigned_fields.hex"),
          "",
          std::string(big.bytes().data(), kRecordLength),
          std::string(tooLargeTemplate.bytes().data(), kRecordLength),
          std::string(1000, '\xFF')};
}

TEST(SifReader, MemoryAndDiskLoadAlike) {
  TempDir dir;
  const std::string path = dir / "Files/a.sif";
  for (const std::string& bytes : Inputs()) {
    SCOPED_TRACE(bytes.size());
    WriteFile(path, bytes);
    MemoryEnv memory;
    memory.Files()[path] = bytes;
    const Outcome disk = Load(DataAccess(), path);
    const Outcome held = Load(DataAccess(memory), path);
    EXPECT_EQ(held.error, disk.error);
    EXPECT_EQ(held.description, disk.description);
    EXPECT_EQ(held.settings.NumberOfRecords, disk.settings.NumberOfRecords);
    EXPECT_EQ(held.settings.BackgroundImage, disk.settings.BackgroundImage);
    EXPECT_EQ(held.settings.SlideTemplate, disk.settings.SlideTemplate);
    EXPECT_EQ(held.settings.ReportFont, disk.settings.ReportFont);
    EXPECT_EQ(held.slides, disk.slides);
  }
}

TEST(SifReader, ATemplateTooLargeKeepsTheSettingsBeforeIt) {
  MemoryEnv memory;
  memory.Files()["/f/a.sif"] = Inputs()[5];
  const Outcome o = Load(DataAccess(memory), "/f/a.sif");
  EXPECT_EQ(o.error, RtError::Overflow);
  EXPECT_EQ(o.settings.NumberOfRecords, 1);
  EXPECT_EQ(o.settings.BackgroundImage, "frame.jpg");
  EXPECT_EQ(o.settings.SlideTemplate, 3);
  EXPECT_EQ(o.settings.ReportFont, "Arial");
  EXPECT_EQ(o.slides.size(), 2u);
}

TEST(RandomFile, AReadingOpenNeverCreates) {
  TempDir dir;
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
