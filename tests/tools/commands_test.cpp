// SPDX-License-Identifier: GPL-3.0-or-later
// The program as users run it: exit statuses, what goes to which stream,
// what is left on the disk, and the listing of show.

#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "SifTools.h"

namespace cb::sif::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

struct ExitCase {
  const char* name;
  std::vector<std::string> args;  // "@" stands for the scratch directory
  int status;
  const char* err;  // the start of standard error, "@" expanded too; "" for none
  std::string outTo{};  // where standard output goes, when not to the test
};

const ExitCase kExitCases[] = {
    {"help", {"--help"}, 0, ""},
    {"a command's help", {"export", "--help"}, 0, ""},
    {"version", {"--version"}, 0, ""},
    {"show", {"show", "@/good.sif"}, 0, ""},
    {"export", {"export", "@/good.sif", "--format", "json"}, 0, ""},
    {"report", {"report", "@/good.sif", "--by", "location", "-o", "@/r.htm"}, 0, ""},
    {"show to a full disk", {"show", "@/good.sif"}, 1, "chattelbook-sif: cannot write to standard output", "/dev/full"},
    {"export to a full disk", {"export", "@/good.sif"}, 1, "chattelbook-sif: cannot write to standard output", "/dev/full"},
    {"report to a full disk",
     {"report", "@/good.sif", "--by", "location"},
     1,
     "chattelbook-sif: cannot write to standard output",
     "/dev/full"},
    {"no command", {}, 2, "chattelbook-sif: a command is missing\n\nUsage:"},
    {"unknown command", {"list", "@/good.sif"}, 2, "chattelbook-sif: unknown command \"list\"\n\nUsage:"},
    {"unknown option", {"show", "--fast", "@/good.sif"}, 2, "chattelbook-sif: Unknown option 'fast'."},
    {"file missing", {"export"}, 2, "chattelbook-sif: a file is missing"},
    {"two files", {"show", "@/good.sif", "@/good.sif"}, 2, "chattelbook-sif: too many files"},
    {"bad format", {"export", "@/good.sif", "--format", "xml"}, 2, "chattelbook-sif: --format takes csv or json"},
    {"import without -o", {"import", "@/in.csv"}, 2, "chattelbook-sif: import needs -o FILE.sif"},
    {"bad template",
     {"import", "@/in.csv", "-o", "@/x.sif", "--template", "4"},
     2,
     "chattelbook-sif: --template takes 1, 2 or 3"},
    {"report without --by", {"report", "@/good.sif"}, 2, "chattelbook-sif: report needs --by"},
    {"no such file", {"show", "@/absent.sif"}, 1, "chattelbook-sif: "},
    {"a load would fail", {"export", "@/huge.sif", "-o", "@/huge.csv"}, 1, "chattelbook-sif: "},
    {"export into no folder", {"export", "@/good.sif", "-o", "@/none/x.csv"}, 1, "chattelbook-sif: @/none/x.csv: cannot"},
    {"check of no file", {"check", "@/absent.sif"}, 1, "chattelbook-sif: "},
    {"thumbnail of a file that does not load", {"thumbnail", "@/huge.sif", "@/t.png"}, 1, "chattelbook-sif: "},
    {"thumbnail into no folder",
     {"thumbnail", "@/good.sif", "@/none/t.png"},
     1,
     "chattelbook-sif: @/none/t.png: cannot be written"},
    {"thumbnail without OUT", {"thumbnail", "@/good.sif"}, 2, "chattelbook-sif: thumbnail takes FILE.sif and OUT.png"},
    {"thumbnail too small",
     {"thumbnail", "@/good.sif", "@/t.png", "--size", "8"},
     2,
     "chattelbook-sif: --size takes a number from 16 to 4096"},
    {"refused import", {"import", "@/bad.csv", "-o", "@/x.sif"}, 1, "chattelbook-sif: "},
    {"import onto a file",
     {"import", "@/in.csv", "-o", "@/good.sif"},
     1,
     "chattelbook-sif: @/good.sif: already exists"},
    {"import forced onto a file", {"import", "@/in.csv", "-o", "@/forced.sif", "--force"}, 0, ""},
    {"claim without -o", {"claim", "@/good.sif"}, 2, "chattelbook-sif: claim needs -o CLAIM.pdf"},
    {"claim on A5",
     {"claim", "@/good.sif", "--page", "a5", "-o", "@/x.pdf"},
     2,
     "chattelbook-sif: --page takes a4 or letter"},
    {"backup into no folder",
     {"backup", "@/good.sif", "-o", "@/none/b.tar.gz"},
     1,
     "chattelbook-sif: @/none/b.tar.gz: No such file or directory"},
    {"claim without a gallery",
     {"claim", "@/good.sif", "--gallery", "@/none", "-o", "@/x.pdf"},
     1,
     "chattelbook-sif: "},
};

TEST(Commands, ExitStatusesAndStreams) {
  Scratch dir;
  const std::string good = WriteAsProgram(dir / "good.sif", {}, {{"a.jpg", "A"}});
  WriteFile(dir / "huge.sif", WithHeader(good, "50000", "1"));
  WriteFile(dir / "in.csv", "PictureFile\r\na.jpg\r\n");
  WriteFile(dir / "bad.csv", "Value\r\n123456789012\r\n");
  WriteFile(dir / "forced.sif", "precious");
  const auto expand = [&dir](std::string a) {
    if (const auto at = a.find('@'); at != std::string::npos) a.replace(at, 1, dir.str());
    return a;
  };
  for (const auto& c : kExitCases) {
    SCOPED_TRACE(c.name);
    std::vector<std::string> args;
    for (const auto& a : c.args) args.push_back(expand(a));
    const Outcome r = RunProcess(args, dir, c.outTo);
    EXPECT_EQ(r.status, c.status) << r.err;
    EXPECT_THAT(r.err, StartsWith(expand(c.err)));
    if (*c.err == '\0') {
      EXPECT_EQ(r.err, "");
    }
    if (c.status == 2) {
      EXPECT_EQ(r.out, "");
    }
  }
  EXPECT_EQ(ReadFile(dir / "good.sif"), good);
  EXPECT_EQ(ReadFile(dir / "forced.sif").size(), 2 * kRecordLength);
  EXPECT_THAT(Names(dir),
              ::testing::UnorderedElementsAre("good.sif", "huge.sif", "in.csv", "bad.csv", "forced.sif", "r.htm"));
}

TEST(Commands, ShowLabelsFieldsAsTheTemplatesEditorDoes) {
  Scratch dir;
  WriteAsProgram(dir / "cars.sif", {3}, {{"car.jpg", "Ford", "Sedan", "1998", "Red", "", "ABC-123", "4990"}});
  const Outcome r = RunInProcess({"show", dir / "cars.sif"});
  EXPECT_THAT(r.out, HasSubstr("Template:         3 Car Yard\n"));
  EXPECT_THAT(r.out, HasSubstr("\nSlide 1\n  Picture:        car.jpg\n  Slide Text:     Ford\n  Category:       Sedan\n"
                               "  Year:           1998\n  Regn #:         ABC-123\n  Colour:         Red\n"
                               "  Price:          4990\n"));
}

// "-o /dev/null" or a pipe is written into, never replaced by a plain file;
// a slide file is never written into one.
TEST(Commands, AnOutputThatIsNoPlainFileIsWrittenInPlace) {
  Scratch dir;
  WriteAsProgram(dir / "x.sif", {}, {{"tv.jpg", "Television"}});
  const std::string fifo = dir / "out";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  const int reader = ::open(fifo.c_str(), O_RDWR | O_NONBLOCK);  // holds the pipe open for the writer
  ASSERT_GE(reader, 0);
  struct Case {
    std::vector<std::string> args;
    int status;
    std::string head;  // the first bytes through the pipe
  };
  const Case cases[] = {
      {{"thumbnail", dir / "x.sif", fifo, "--size", "16"}, kExitOk, "\x89PNG"},
      {{"backup", dir / "x.sif", "-o", fifo}, kExitOk, "\x1f\x8b"},
      {{"import", "-", "-o", fifo, "--force"}, kExitData, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.args.front());
    EXPECT_EQ(RunInProcess(c.args, "PictureFile\nsofa.jpg\n").status, c.status);
    std::string got(64 * 1024, '\0');
    const ssize_t n = ::read(reader, got.data(), got.size());
    got.resize(n > 0 ? static_cast<std::size_t>(n) : 0);
    EXPECT_EQ(got.substr(0, c.head.size()), c.head);
    EXPECT_TRUE(fs::is_fifo(fifo));
  }
  ::close(reader);

  // A link is followed: its file is replaced and keeps its mode, the link stays.
  fs::copy_file(dir / "x.sif", dir / "real.sif");
  fs::permissions(dir / "real.sif", fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink("real.sif", dir / "link.sif");
  // Root saving a user's file leaves it the user's.
  const bool root = ::geteuid() == 0;
  if (root) {
    ASSERT_EQ(::chown((dir / "real.sif").c_str(), 65534, 65534), 0);
  }
  ASSERT_EQ(RunInProcess({"import", "-", "-o", dir / "link.sif", "--force"}, "PictureFile\nsofa.jpg\n").status, kExitOk);
  EXPECT_TRUE(fs::is_symlink(dir / "link.sif"));
  EXPECT_EQ(fs::status(dir / "real.sif").permissions(), fs::perms::owner_read | fs::perms::owner_write);
  struct stat st {};
  ASSERT_EQ(::stat((dir / "real.sif").c_str(), &st), 0);
  if (root) {
    EXPECT_EQ(st.st_uid, 65534u);
  }
  EXPECT_NE(ReadFile(dir / "real.sif"), ReadFile(dir / "x.sif"));
}

}  // namespace
}  // namespace cb::sif::testing
