// SPDX-License-Identifier: GPL-3.0-or-later
// Saves replace their file in one step, so a failed step leaves the old file
// byte for byte; and the small files: password, history and report pages.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>

#include "storage/DataAccess.h"
#include "storage/DiskEnv.h"
#include "storage/SmallFiles.h"
#include "support/SifFixture.h"

namespace cb {
namespace {

using testing::Numbered;
using testing::ReadFile;
using testing::TempDir;
using testing::WriteFile;

// The disk or memory with one step refused: "mkdir", "open", "read",
// "half write" (as a full disk), "sync", "rename" or "read-only folder" (a
// new file beside a writable one, as for a user in a folder of mode 0555);
// "" refuses nothing.
template <class Base>
class Refusing : public Base {
 public:
  explicit Refusing(std::string step = "") : refused(std::move(step)) {}
  std::string refused;

  RtError MakeDirectory(const std::string& dir, unsigned mode) override {
    return refused == "mkdir" ? RtError::PathFileAccess : Base::MakeDirectory(dir, mode);
  }
  RtError OpenRecords(const std::string& path, std::size_t length, OpenMode mode,
                      std::unique_ptr<RecordFile>& file) override {
    return refused == "open" ? RtError::PathFileAccess : Base::OpenRecords(path, length, mode, file);
  }
  RtError ReadWhole(const std::string& path, std::string& bytes) override {
    return refused == "read" ? RtError::PathFileAccess : Base::ReadWhole(path, bytes);
  }
  RtError Rename(const std::string& from, const std::string& to) override {
    return refused == "rename" ? RtError::PathFileAccess : Base::Rename(from, to);
  }
  RtError NewFileBeside(const std::string& target, unsigned mode, std::string& name,
                        std::unique_ptr<WritableFile>& file) override {
    if (refused == "read-only folder") return RtError::PathFileAccess;
    const RtError e = Base::NewFileBeside(target, mode, name, file);
    if (e == RtError::None) file = std::make_unique<File>(std::move(file), refused);
    return e;
  }
  bool FolderRefusesSave(const std::string& path) override {
    return refused == "read-only folder" || Base::FolderRefusesSave(path);
  }

 private:
  class File : public WritableFile {
   public:
    File(std::unique_ptr<WritableFile> real, const std::string& refused) : real_(std::move(real)), refused_(refused) {}
    RtError Append(std::string_view bytes) override {
      if (refused_ != "half write") return real_->Append(bytes);
      real_->Append(bytes.substr(0, bytes.size() / 2));
      return RtError::DiskFull;
    }
    RtError Sync() override { return refused_ == "sync" ? RtError::DeviceIO : real_->Sync(); }
    RtError Close() override { return real_->Close(); }

   private:
    std::unique_ptr<WritableFile> real_;
    std::string refused_;
  };
};

const SifSettings kSettings{0, "frame.jpg", "wall.jpg", 2, "Arial"};

// The slide file keeps the failure's own number; the small files tell a full
// disk as a device error. A read-only folder is told as such.
TEST(AtomicSave, AFailedStepLeavesTheOldFilesAndNothingBeside) {
  const std::tuple<const char*, const char*, const char*> steps[] = {
      {"half write", "61", "57"}, {"sync", "57", "57"}, {"rename", "75", "75"}, {"read-only folder", "75", "75"}};
  for (const auto& [step, number, smallNumber] : steps) {
    SCOPED_TRACE(step);
    TempDir dir;
    const std::string path = dir / "a.sif", page = dir / "Reports/Report1.htm";
    ASSERT_TRUE(DataAccess().SaveSettings(path, kSettings, Numbered(3, "old")).ok());
    const std::string before = ReadFile(path);
    WriteFile(page, "old page");
    WriteFile(dir / "fhistlst.dat", "old list");
    Refusing<DiskEnv> disk(step);
    DataAccess data(disk);
    ErrorArray errors;
    EXPECT_FALSE(Report(data.SaveSettings(path, kSettings, Numbered(50, "new")), errors));
    EXPECT_EQ(errors[0], number);
    EXPECT_EQ(errors[1], "DataAccess");
    if (step == std::string("read-only folder")) {
      EXPECT_EQ(errors[2], "cannot save beside " + path + ": the folder is read-only");
    }
    EXPECT_FALSE(Report(data.SaveReport(dir / "Reports/", page, "<html></html>"), errors));
    EXPECT_EQ(errors[0], smallNumber);
    EXPECT_FALSE(Report(data.PutFileHistoryList(dir.str(), {"", "a.sif", "", "", ""}), errors));
    EXPECT_EQ(errors[0], smallNumber);
    EXPECT_EQ(ReadFile(path), before);
    EXPECT_EQ(ReadFile(page), "old page");
    EXPECT_EQ(ReadFile(dir / "fhistlst.dat"), "old list");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.str()), {}), 3);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir / "Reports"), {}), 1);
  }
}

TEST(AtomicSave, EqualsTheInPlaceWriteKeepsLinkAndModeAndClearsKilledSaves) {
  TempDir dir;
  const std::string real = dir / "real.sif", link = dir / "link.sif";
  const std::string tail(6 * kRecordLength, 'z');  // a longer old file keeps what lies past the new end
  WriteFile(real, tail);
  ::chmod(real.c_str(), 0640);
  std::filesystem::create_symlink("real.sif", link);
  // What a killed save of the file left goes; another file's, or a save's under way, stays.
  using std::chrono::hours;
  const std::tuple<std::string, hours, bool> left[] = {{dir / ".real.sif.save-k1LLed", hours(-1), false},
                                                       {dir / ".real.sif.backup", hours(-1), true},
                                                       {dir / ".other.sif.save-k1LLed", hours(-1), true},
                                                       {dir / ".real.sif.save-n0wNew", hours(1), true}};
  for (const auto& [name, age, kept] : left) {
    WriteFile(name, "left");
    std::filesystem::last_write_time(name, std::filesystem::file_time_type::clock::now() + age);
  }

  const SlideArray slides = Numbered(2, "s");
  MemoryEnv memory;
  memory.Files()["/m.sif"] = tail;
  ASSERT_TRUE(DataAccess(memory).SaveSettings("/m.sif", kSettings, slides).ok());
  ASSERT_TRUE(DataAccess().SaveSettings(link, kSettings, slides).ok());

  EXPECT_TRUE(std::filesystem::is_symlink(link));
  for (const auto& [name, age, kept] : left) EXPECT_EQ(std::filesystem::exists(name), kept) << name;
  EXPECT_EQ(ReadFile(real), memory.Files()["/m.sif"]);
  EXPECT_EQ(ReadFile(real).substr(3 * kRecordLength), tail.substr(3 * kRecordLength));
  struct stat st {};
  ASSERT_EQ(::stat(real.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 07777, 0640u);
}

class SmallFilesTest : public testing::SifFixture {
 protected:
  SmallFilesTest() { setenv("XDG_CONFIG_HOME", config.str().c_str(), 1); }
  std::string PasswordFile() const { return config / "Chattelbook/dprpz.dat"; }
  TempDir config;
};

TEST_F(SmallFilesTest, PasswordIsOneScrambledRecordOfEightBytesOrRefused) {
  UIMainController& mc = Start();
  std::string back = "x";
  ASSERT_TRUE(mc.GetPassword(back).ok());  // the first read makes an empty private file
  EXPECT_EQ(back, "");
  struct stat st {};
  ASSERT_EQ(::stat(PasswordFile().c_str(), &st), 0);
  EXPECT_EQ(st.st_size, 0);
  EXPECT_EQ(st.st_mode & 0777, 0600u);

  const struct {
    std::string typed, stored, readBack;  // stored: the 8 bytes of the file
  } rows[] = {
      {"abcdefgh", "\x9F\x9E\x9D\x9C\x9B\x9A\x99\x98", "abcdefgh"},
      {"abcdefghi", "\x9F\x9E\x9D\x9C\x9B\x9A\x99\x98", "abcdefgh"},  // cut at eight
      {"", "        ", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.typed);
    ASSERT_TRUE(mc.PutPassword(row.typed).ok());
    EXPECT_EQ(ReadFile(PasswordFile()), row.stored);
    back = "unchanged";
    ASSERT_TRUE(mc.GetPassword(back).ok());
    EXPECT_EQ(back, row.readBack);
  }
  std::filesystem::remove(PasswordFile());
  std::filesystem::create_directories(PasswordFile() + "/a directory in the way");
  EXPECT_EQ(mc.PutPassword("secret").error(), RtError::PathFileAccess);
}

// The history is one line of four quoted names; a report page, replaced
// by a shorter one, ends in a line end.
TEST_F(SmallFilesTest, HistoryAndReportPagesAreWrittenAsLines) {
  UIMainController& mc = Start();
  ErrorArray errors;
  FileHistory h;
  EXPECT_FALSE(Report(mc.GetFileHistoryList(h), errors));
  EXPECT_EQ(errors[0], "53");
  ASSERT_TRUE(Report(mc.PutFileHistoryList({"", "MyFiles.sif", "CarYard.sif", "", ""}), errors));
  EXPECT_EQ(ReadFile(app / "fhistlst.dat"), "\"MyFiles.sif\",\"CarYard.sif\",\"\",\"\"\r\n");
  ASSERT_TRUE(Report(mc.GetFileHistoryList(h), errors));
  EXPECT_EQ(h, (FileHistory{"", "MyFiles.sif", "CarYard.sif", "", ""}));
  // A short list fails, keeping what was read.
  WriteFile(app / "fhistlst.dat", "\"a.sif\",\"b.sif\"\r\n");
  h = {};
  EXPECT_FALSE(Report(mc.GetFileHistoryList(h), errors));
  EXPECT_EQ(errors[0], "62");
  EXPECT_EQ(h, (FileHistory{"", "a.sif", "b.sif", "", ""}));

  DataAccess data;
  const std::string page = app / "Reports/Report1.htm";
  ASSERT_TRUE(Report(data.SaveReport(app / "Reports/", page, "<html>long old page</html>"), errors));
  ASSERT_TRUE(Report(data.SaveReport(app / "Reports/", page, "<html></html>"), errors));
  EXPECT_EQ(ReadFile(page), "<html></html>\r\n");
}

TEST(ReadFields, ReadsQuotedAndBareFields) {
  const std::pair<std::string, std::vector<std::string>> rows[] = {
      {"\"a\",\"b\",\"\",\"\"\r\n", {"a", "b", "", ""}},
      {"\"a, b\",\"c\"\r\n", {"a, b", "c"}},  // commas inside quotes belong to the name
      {"  bare , \"q\" ,x\r\n\"y\"", {"bare", "q", "x", "y"}},
      {"\"open", {"open"}},
      {"", {}},
  };
  for (const auto& [text, fields] : rows) EXPECT_EQ(ReadFields(text, 4), fields) << text;
}

// The number follows the failure: a directory missing on the way is 76, a
// refusal 75, whether it comes from making the folder or writing the file.
TEST_F(SmallFilesTest, WriteFailureNumberFollowsTheFailure) {
  const struct {
    const char* name;
    const char* appPath;   // empty: the temporary installation
    const char* inTheWay;  // made as a directory below it first
    const char* refused;   // "mkdir": as in a folder of another owner
    const char* page;      // SaveReport of this page in Reports/; "": PutFileHistoryList
    const char* number;
  } rows[] = {
      {"history in a missing directory", "/nonexistent/app", "", "", "", "76"},
      {"history file is a directory", "", "fhistlst.dat", "", "", "75"},
      {"reports folder cannot be made", "", "", "mkdir", "Report1.htm", "75"},
      {"reports folder in a missing directory", "/nonexistent/app", "", "", "Report1.htm", "76"},
      {"old page cannot be replaced", "", "Reports/Report1.htm", "", "Report1.htm", "75"},
      {"page in a missing folder", "", "", "", "no/dir.htm", "76"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string root = *row.appPath ? std::string(row.appPath) : app.str();
    if (*row.inTheWay) std::filesystem::create_directories(root + "/" + row.inTheWay + "/inside");
    Refusing<DiskEnv> disk(row.refused);
    DataAccess data(disk);
    ErrorArray errors;
    if (*row.page)
      EXPECT_FALSE(Report(data.SaveReport(root + "/Reports/", root + "/Reports/" + row.page, "x"), errors));
    else
      EXPECT_FALSE(Report(data.PutFileHistoryList(root, {"", "a.sif", "", "", ""}), errors));
    EXPECT_EQ(errors[0], row.number);
  }
}

// "old" and "old.sif" are stored first; then, with one step refused, "new"
// and "new.sif" are put and both files read back.
TEST_F(SmallFilesTest, ARefusedStepKeepsTheOldFilesAndTellsTheStep) {
  const struct {
    const char* refused;
    RtError putPassword, putHistory, getPassword, getHistory;
    const char *password, *history;  // as read back
  } rows[] = {
      {"", RtError::None, RtError::None, RtError::None, RtError::None, "new", "new.sif"},
      {"open", RtError::PathFileAccess, RtError::None, RtError::PathFileAccess, RtError::None, "", "new.sif"},
      // An unreadable history is told as a missing one.
      {"read", RtError::PathFileAccess, RtError::None, RtError::None, RtError::FileNotFound, "old", ""},
      {"rename", RtError::PathFileAccess, RtError::PathFileAccess, RtError::None, RtError::None, "old", "old.sif"},
  };
  setenv("XDG_CONFIG_HOME", "/config", 1);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.refused);
    Refusing<MemoryEnv> memory;
    DataAccess data(memory);
    ASSERT_TRUE(data.PutPassword("old").ok());
    ASSERT_TRUE(data.PutFileHistoryList("/app", {"", "old.sif", "", "", ""}).ok());
    EXPECT_EQ(memory.Files().at("/config/Chattelbook/dprpz.dat"), "\x91\x94\x9C     ");
    memory.refused = row.refused;
    EXPECT_EQ(data.PutPassword("new").error(), row.putPassword);
    EXPECT_EQ(data.PutFileHistoryList("/app", {"", "new.sif", "", "", ""}).error(), row.putHistory);
    std::string password;
    FileHistory history;
    EXPECT_EQ(data.GetPassword(password).error(), row.getPassword);
    EXPECT_EQ(data.GetFileHistoryList("/app", history).error(), row.getHistory);
    EXPECT_EQ(password, row.password);
    EXPECT_EQ(history[1], row.history);
    EXPECT_EQ(memory.Files().size(), 2u);  // nothing left beside them
  }
}

}  // namespace
}  // namespace cb
