// Saves replace their file in one step: a failure at any step of the
// replacement leaves the old file byte for byte, and a success writes what
// the in-place write always wrote.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>

#include "storage/DataAccess.h"
#include "storage/DiskEnv.h"
#include "support/RowName.h"
#include "support/TempDir.h"

namespace cb {
namespace {

using testing::ReadFile;
using testing::TempDir;
using testing::WriteFile;

enum class Fault { HalfWriteDiskFull, Sync, Rename };

// The disk, with one step of a replacement failing.
class FaultyDisk : public DiskEnv {
 public:
  explicit FaultyDisk(Fault f) : fault_(f) {}

  RtError NewFileBeside(const std::string& target, unsigned mode, std::string& name,
                        std::unique_ptr<WritableFile>& file) override {
    std::unique_ptr<WritableFile> real;
    if (auto e = DiskEnv::NewFileBeside(target, mode, name, real); e != RtError::None) return e;
    file = std::make_unique<Faulty>(std::move(real), fault_);
    return RtError::None;
  }
  RtError Rename(const std::string& from, const std::string& to) override {
    return fault_ == Fault::Rename ? RtError::PathFileAccess : DiskEnv::Rename(from, to);
  }

 private:
  class Faulty : public WritableFile {
   public:
    Faulty(std::unique_ptr<WritableFile> real, Fault f) : real_(std::move(real)), fault_(f) {}
    RtError Append(std::string_view bytes) override {
      if (fault_ != Fault::HalfWriteDiskFull) return real_->Append(bytes);
      real_->Append(bytes.substr(0, bytes.size() / 2));
      return RtError::DiskFull;
    }
    RtError Sync() override { return fault_ == Fault::Sync ? RtError::DeviceIO : real_->Sync(); }
    RtError Close() override { return real_->Close(); }

   private:
    std::unique_ptr<WritableFile> real_;
    Fault fault_;
  };
  Fault fault_;
};

SlideArray Slides(int n, const std::string& text) {
  SlideArray s(static_cast<std::size_t>(n) + 1);
  for (int i = 1; i <= n; ++i) s[static_cast<std::size_t>(i)].Set(Field::SlideText, text + std::to_string(i));
  return s;
}

const SifSettings kSettings{0, "frame.jpg", "wall.jpg", 2, "Arial"};

struct FaultRow {
  std::string name;
  Fault fault;
  std::string error;  // errors[0]
};

const FaultRow kFaults[] = {
    {"half_write_disk_full", Fault::HalfWriteDiskFull, "61"},
    {"sync_fails", Fault::Sync, "57"},
    {"rename_fails", Fault::Rename, "75"},
};

class FaultTest : public ::testing::TestWithParam<FaultRow> {};

TEST_P(FaultTest, LeavesTheOldFileAndNothingBeside) {
  TempDir dir;
  const std::string path = dir / "a.sif";
  ASSERT_TRUE(DataAccess().SaveSettings(path, kSettings, Slides(3, "old")).ok());
  const std::string before = ReadFile(path);
  FaultyDisk disk(GetParam().fault);
  ErrorArray errors;
  EXPECT_FALSE(Report(DataAccess(disk).SaveSettings(path, kSettings, Slides(50, "new")), errors));
  EXPECT_EQ(errors[0], GetParam().error);
  EXPECT_EQ(errors[1], "DataAccess");
  EXPECT_EQ(ReadFile(path), before);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.str()), {}), 1);
}

INSTANTIATE_TEST_SUITE_P(Rows, FaultTest, ::testing::ValuesIn(kFaults), testing::RowName());

TEST(AtomicSave, EqualsTheInPlaceWriteAndKeepsLinkAndMode) {
  TempDir dir;
  const std::string real = dir / "real.sif", link = dir / "link.sif";
  const std::string tail(6 * kRecordLength, 'z');  // a longer old file keeps what lies past the new end
  WriteFile(real, tail);
  ::chmod(real.c_str(), 0640);
  std::filesystem::create_symlink("real.sif", link);

  const SlideArray slides = Slides(2, "s");
  MemoryEnv memory;
  memory.Files()["/m.sif"] = tail;
  ASSERT_TRUE(DataAccess(memory).SaveSettings("/m.sif", kSettings, slides).ok());
  ASSERT_TRUE(DataAccess().SaveSettings(link, kSettings, slides).ok());

  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_EQ(ReadFile(real), memory.Files()["/m.sif"]);
  EXPECT_EQ(ReadFile(real).substr(3 * kRecordLength), tail.substr(3 * kRecordLength));
  struct stat st {};
  ASSERT_EQ(::stat(real.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 07777, 0640u);
}

TEST(AtomicSave, ReportsAndHistoryFailWithoutTouchingTheOldFile) {
  TempDir dir;
  const std::string page = dir / "Reports/Report1.htm";
  WriteFile(page, "old page");
  WriteFile(dir / "fhistlst.dat", "old list");
  FaultyDisk disk(Fault::HalfWriteDiskFull);
  ErrorArray errors;
  EXPECT_FALSE(Report(DataAccess(disk).SaveReport(dir / "Reports/", page, "<html></html>"), errors));
  EXPECT_EQ(errors[0], "57");
  EXPECT_FALSE(Report(DataAccess(disk).PutFileHistoryList(dir.str(), {"", "a.sif", "", "", ""}), errors));
  EXPECT_EQ(errors[0], "57");
  EXPECT_EQ(ReadFile(page), "old page");
  EXPECT_EQ(ReadFile(dir / "fhistlst.dat"), "old list");
}

}  // namespace
}  // namespace cb
