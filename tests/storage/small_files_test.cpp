#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/stat.h>

#include "storage/DataAccess.h"
#include "storage/DiskEnv.h"
#include "storage/SmallFiles.h"
#include "support/RowName.h"
#include "support/SifFixture.h"

namespace cb {
namespace {

using testing::ReadFile;
using testing::WriteFile;

class SmallFilesTest : public testing::SifFixture {
 protected:
  SmallFilesTest() { setenv("XDG_CONFIG_HOME", config.str().c_str(), 1); }
  std::string PasswordFile() const { return config / "Chattelbook/dprpz.dat"; }
  testing::TempDir config;
};

struct PasswordRow {
  std::string typed;
  std::string stored;  // the 8 bytes of the file
  std::string readBack;
};

const PasswordRow kPasswords[] = {
    {"abcdefgh", "\x9F\x9E\x9D\x9C\x9B\x9A\x99\x98", "abcdefgh"},
    {"abcdefghi", "\x9F\x9E\x9D\x9C\x9B\x9A\x99\x98", "abcdefgh"},  // cut at eight
    {"", "        ", ""},
    {"\xE0\xE0", "        ", ""},                                  // stored as padding
    {"a b", "\x9F\xE0\x9E     ", "a b"},
    {" ab", "\xE0\x9F      ", " a"},                               // a leading blank costs the end
};

class PasswordTest : public SmallFilesTest, public ::testing::WithParamInterface<PasswordRow> {};

TEST_P(PasswordTest, StoresOneScrambledRecordOfEightBytes) {
  const auto& row = GetParam();
  UIMainController& mc = Start();
  ASSERT_TRUE(mc.PutPassword(row.typed).ok());
  EXPECT_EQ(ReadFile(PasswordFile()), row.stored);
  std::string back = "unchanged";
  ASSERT_TRUE(mc.GetPassword(back).ok());
  EXPECT_EQ(back, row.readBack);
}

INSTANTIATE_TEST_SUITE_P(Rows, PasswordTest, ::testing::ValuesIn(kPasswords));

TEST_F(SmallFilesTest, FirstPasswordReadCreatesAnEmptyPrivateFile) {
  UIMainController& mc = Start();
  std::string pw = "x";
  ASSERT_TRUE(mc.GetPassword(pw).ok());
  EXPECT_EQ(pw, "");
  struct stat st {};
  ASSERT_EQ(::stat(PasswordFile().c_str(), &st), 0);
  EXPECT_EQ(st.st_size, 0);
  EXPECT_EQ(st.st_mode & 0777, 0600u);
}

TEST_F(SmallFilesTest, PasswordFailureIsAccessRefused) {
  WriteFile(config / "Chattelbook/dprpz.dat/inside", "a directory stands in the way");
  EXPECT_EQ(Start().PutPassword("secret").error(), RtError::PathFileAccess);
}

TEST_F(SmallFilesTest, HistoryIsOneLineOfFourQuotedNames) {
  UIMainController& mc = Start();
  ErrorArray errors;
  ASSERT_TRUE(Report(mc.PutFileHistoryList({"", "", "", "", ""}), errors));
  EXPECT_EQ(ReadFile(app / "fhistlst.dat"), "\"\",\"\",\"\",\"\"\r\n");
  ASSERT_TRUE(Report(mc.PutFileHistoryList({"", "MyFiles.sif", "CarYard.sif", "", ""}), errors));
  EXPECT_EQ(ReadFile(app / "fhistlst.dat"), "\"MyFiles.sif\",\"CarYard.sif\",\"\",\"\"\r\n");
  FileHistory h;
  ASSERT_TRUE(Report(mc.GetFileHistoryList(h), errors));
  EXPECT_EQ(h, (FileHistory{"", "MyFiles.sif", "CarYard.sif", "", ""}));
}

TEST_F(SmallFilesTest, MissingOrShortHistoryFailsKeepingWhatWasRead) {
  UIMainController& mc = Start();
  ErrorArray errors;
  FileHistory h;
  EXPECT_FALSE(Report(mc.GetFileHistoryList(h), errors));
  EXPECT_EQ(errors[0], "53");
  WriteFile(app / "fhistlst.dat", "\"a.sif\",\"b.sif\"\r\n");
  EXPECT_FALSE(Report(mc.GetFileHistoryList(h), errors));
  EXPECT_EQ(errors[0], "62");
  EXPECT_EQ(h, (FileHistory{"", "a.sif", "b.sif", "", ""}));
}

struct FieldsRow {
  std::string text;
  std::vector<std::string> fields;
};

const FieldsRow kFieldRows[] = {
    {"\"a\",\"b\",\"\",\"\"\r\n", {"a", "b", "", ""}},
    {"\"a, b\",\"c\"\r\n", {"a, b", "c"}},          // commas inside quotes belong to the name
    {"  bare , \"q\" ,x\r\n\"y\"", {"bare", "q", "x", "y"}},
    {"\"open", {"open"}},
    {"", {}},
};

class ReadFieldsTest : public ::testing::TestWithParam<FieldsRow> {};

TEST_P(ReadFieldsTest, ReadsQuotedAndBareFields) { EXPECT_EQ(ReadFields(GetParam().text, 4), GetParam().fields); }

INSTANTIATE_TEST_SUITE_P(Rows, ReadFieldsTest, ::testing::ValuesIn(kFieldRows));

TEST_F(SmallFilesTest, SaveReportReplacesThePageAndMakesTheFolder) {
  DataAccess data;
  ErrorArray errors;
  const std::string reports = app / "Reports/";
  const std::string page = app / "Reports/Report1.htm";
  ASSERT_TRUE(Report(data.SaveReport(reports, page, "<html>long old page</html>"), errors));
  ASSERT_TRUE(Report(data.SaveReport(reports, page, "<html></html>"), errors));
  EXPECT_EQ(ReadFile(page), "<html></html>\r\n");
  EXPECT_FALSE(Report(data.SaveReport(reports, app / "Reports/no/dir.htm", "x"), errors));
  EXPECT_EQ(errors[0], "76");
}

// The number follows the failure: a directory missing on the way is 76, a
// refusal 75, whether it comes from making the folder or writing the file.
struct WriteFailureRow {
  const char* name;
  const char* appPath;   // empty: the temporary installation
  const char* inTheWay;  // made as a directory below it first
  bool folderRefused;    // making a directory is refused, as in a folder of another owner
  bool report;           // SaveReport of Reports/Report1.htm, else PutFileHistoryList
  const char* number;
};

const WriteFailureRow kWriteFailures[] = {
    {"history_in_a_missing_directory", "/nonexistent/app", "", false, false, "76"},
    {"history_file_is_a_directory", "", "fhistlst.dat", false, false, "75"},
    {"reports_folder_cannot_be_made", "", "", true, true, "75"},
    {"reports_folder_in_a_missing_directory", "/nonexistent/app", "", false, true, "76"},
    {"old_page_cannot_be_replaced", "", "Reports/Report1.htm", false, true, "75"},
};

// The disk, but no directory may be made.
class NoNewFolders : public DiskEnv {
 public:
  RtError MakeDirectory(const std::string&, unsigned) override { return RtError::PathFileAccess; }
};

class WriteFailureTest : public SmallFilesTest, public ::testing::WithParamInterface<WriteFailureRow> {};

TEST_P(WriteFailureTest, NumberFollowsTheFailure) {
  const auto& row = GetParam();
  const std::string root = *row.appPath ? std::string(row.appPath) : app.str();
  if (*row.inTheWay) std::filesystem::create_directories(root + "/" + row.inTheWay + "/inside");
  NoNewFolders refusing;
  DataAccess data(row.folderRefused ? refusing : Env::Default());
  ErrorArray errors;
  if (row.report)
    EXPECT_FALSE(Report(data.SaveReport(root + "/Reports/", root + "/Reports/Report1.htm", "x"), errors));
  else
    EXPECT_FALSE(Report(data.PutFileHistoryList(root, {"", "a.sif", "", "", ""}), errors));
  EXPECT_EQ(errors[0], row.number);
}

INSTANTIATE_TEST_SUITE_P(Rows, WriteFailureTest, ::testing::ValuesIn(kWriteFailures), testing::RowName());

// Files in memory, refusing one step with "Path/File access error".
class RefusingMemory : public MemoryEnv {
 public:
  std::string refused;  // "open", "read" or "rename"
  RtError OpenRecords(const std::string& path, std::size_t length, OpenMode mode,
                      std::unique_ptr<RecordFile>& file) override {
    return refused == "open" ? RtError::PathFileAccess : MemoryEnv::OpenRecords(path, length, mode, file);
  }
  RtError ReadWhole(const std::string& path, std::string& bytes) override {
    return refused == "read" ? RtError::PathFileAccess : MemoryEnv::ReadWhole(path, bytes);
  }
  RtError Rename(const std::string& from, const std::string& to) override {
    return refused == "rename" ? RtError::PathFileAccess : MemoryEnv::Rename(from, to);
  }
};

// "old" and "old.sif" are stored first; then, with one step refused, "new"
// and "new.sif" are put and both files read back.
struct RefusedRow {
  const char* name;
  RtError putPassword, putHistory, getPassword, getHistory;
  const char *password, *history;  // as read back
};

const RefusedRow kRefused[] = {
    {"nothing", RtError::None, RtError::None, RtError::None, RtError::None, "new", "new.sif"},
    {"open", RtError::PathFileAccess, RtError::None, RtError::PathFileAccess, RtError::None, "", "new.sif"},
    // An unreadable history is told as a missing one.
    {"read", RtError::PathFileAccess, RtError::None, RtError::None, RtError::FileNotFound, "old", ""},
    {"rename", RtError::PathFileAccess, RtError::PathFileAccess, RtError::None, RtError::None, "old", "old.sif"},
};

class RefusedStepTest : public SmallFilesTest, public ::testing::WithParamInterface<RefusedRow> {};

TEST_P(RefusedStepTest, KeepsTheOldFilesAndTellsTheStep) {
  const auto& row = GetParam();
  setenv("XDG_CONFIG_HOME", "/config", 1);
  RefusingMemory memory;
  DataAccess data(memory);
  ASSERT_TRUE(data.PutPassword("old").ok());
  ASSERT_TRUE(data.PutFileHistoryList("/app", {"", "old.sif", "", "", ""}).ok());
  EXPECT_EQ(memory.Files().at("/config/Chattelbook/dprpz.dat"), "\x91\x94\x9C     ");
  memory.refused = row.name;
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

INSTANTIATE_TEST_SUITE_P(Rows, RefusedStepTest, ::testing::ValuesIn(kRefused), testing::RowName());

}  // namespace
}  // namespace cb
