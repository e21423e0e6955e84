// SPDX-License-Identifier: GPL-3.0-or-later
// The program as users run it: exit statuses and streams, what is left on
// the disk, show's listing, the thumbnail a file manager shows, and the two
// interchange formats, round trip and refusals.

#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QBuffer>
#include <QImage>

#include <random>
#include <regex>

#include "Csv.h"
#include "Formats.h"
#include "SifTools.h"
#include "artwork/ProgramIcon.h"
#include "pack/SifFile.h"
#include "storage/RemovedSlides.h"

namespace cb::sif::testing {
namespace {

using namespace std::string_literals;
using ::testing::HasSubstr;
using ::testing::StartsWith;

struct ExitCase {
  const char* name;
  const char* args;  // split at blanks; "@" stands for the scratch directory
  int status;
  const char* err;         // after "chattelbook-sif: ", "@" expanded too; a status of 0 prints nothing there
  const char* outTo = "";  // where standard output goes, when not to the test
};

const ExitCase kExitCases[] = {
    {"help", "--help", 0, ""},
    {"a command's help", "export --help", 0, ""},
    {"version", "--version", 0, ""},
    {"show", "show @/good.sif", 0, ""},
    {"export", "export @/good.sif --format json", 0, ""},
    {"report", "report @/good.sif --by location -o @/r.htm", 0, ""},
    {"show to a full disk", "show @/good.sif", 1, "cannot write to standard output", "/dev/full"},
    {"export to a full disk", "export @/good.sif", 1, "cannot write to standard output", "/dev/full"},
    {"no command", "", 2, "a command is missing\n\nUsage:"},
    {"unknown command", "list @/good.sif", 2, "unknown command \"list\"\n\nUsage:"},
    {"unknown option", "show --fast @/good.sif", 2, "Unknown option 'fast'."},
    {"file missing", "export", 2, "a file is missing"},
    {"two files", "show @/good.sif @/good.sif", 2, "too many files"},
    {"bad format", "export @/good.sif --format xml", 2, "--format takes csv or json"},
    {"import without -o", "import @/in.csv", 2, "import needs -o FILE.sif"},
    {"bad template", "import @/in.csv -o @/x.sif --template 4", 2, "--template takes 1, 2 or 3"},
    {"report without --by", "report @/good.sif", 2, "report needs --by"},
    {"no such file", "show @/absent.sif", 1, ""},
    {"a load would fail", "export @/huge.sif -o @/huge.csv", 1, ""},
    {"export into no folder", "export @/good.sif -o @/none/x.csv", 1, "@/none/x.csv: cannot be written"},
    {"check of no file", "check @/absent.sif", 1, ""},
    {"thumbnail of a file that does not load", "thumbnail @/huge.sif @/t.png", 1, ""},
    {"thumbnail into no folder", "thumbnail @/good.sif @/none/t.png", 1, "@/none/t.png: cannot be written"},
    {"thumbnail without OUT", "thumbnail @/good.sif", 2, "thumbnail takes FILE.sif and OUT.png"},
    {"thumbnail too small", "thumbnail @/good.sif @/t.png --size 8", 2, "--size takes a number from 16 to 4096"},
    {"import onto a file", "import @/in.csv -o @/good.sif", 1, "@/good.sif: already exists"},
    {"import forced onto a file", "import @/in.csv -o @/forced.sif --force", 0, ""},
    {"claim without -o", "claim @/good.sif", 2, "claim needs -o CLAIM.pdf"},
    {"claim on A5", "claim @/good.sif --page a5 -o @/x.pdf", 2, "--page takes a4 or letter"},
    {"backup into no folder", "backup @/good.sif -o @/none/b.tar.gz", 1, "@/none/b.tar.gz: No such file or directory"},
    {"claim without a gallery", "claim @/good.sif --gallery @/none -o @/x.pdf", 1, ""},
    {"--where twice, claim", "claim @/good.sif --where a --where b -o @/x.pdf", 2, "--where is given more than once"},
};

TEST(Commands, ExitStatusesAndStreams) {
  Scratch dir;
  const std::string good = WriteAsProgram(dir / "good.sif", {}, {{"a.jpg", "A"}});
  WriteFile(dir / "huge.sif", WithHeader(good, "50000", "1"));
  WriteFile(dir / "in.csv", "PictureFile\r\na.jpg\r\n");
  WriteFile(dir / "forced.sif", "precious");
  const auto expand = [&dir](std::string a) {
    for (std::size_t at; (at = a.find('@')) != std::string::npos;) a.replace(at, 1, dir.str());
    return a;
  };
  for (const auto& c : kExitCases) {
    SCOPED_TRACE(c.name);
    std::vector<std::string> args;
    std::istringstream words(expand(c.args));
    for (std::string w; words >> w;) args.push_back(w);
    const Outcome r = RunProcess(args, c.outTo);
    EXPECT_EQ(r.status, c.status) << r.err;
    if (c.status == 0) {
      EXPECT_EQ(r.err, "");
    } else {
      EXPECT_THAT(r.err, StartsWith("chattelbook-sif: " + expand(c.err)));
    }
    if (c.status == 2) {
      EXPECT_EQ(r.out, "");
    }
  }
  EXPECT_EQ(ReadFile(dir / "good.sif"), good);
  EXPECT_EQ(ReadFile(dir / "forced.sif").size(), 2 * kRecordLength);
  // The forced import is the replaced file's first step to undo.
  EXPECT_THAT(Names(dir), ::testing::UnorderedElementsAre("good.sif", "huge.sif", "in.csv", "forced.sif", "r.htm",
                                                          ".forced.sif.history"));
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

// --where keeps to the slides found, in file order, show's under their record numbers.
TEST(Commands, WhereKeepsToTheSlidesFound) {
  Scratch dir;
  const std::string file = dir / "h.sif";
  WriteAsProgram(file, {},
                 {{"d.jpg", "Drill", "Tools", "Garage"},
                  {"s.jpg", "Sofa", "Furniture", "Lounge"},
                  {"b.jpg", "Bench", "Tools", "Garage", "", "", "", "600"}});
  // In order: show's count and numbers, the CSV header, the slides' texts.
  const auto said = [](const std::string& out) {
    static const std::regex marks("\\d+ of 3|Slide \\d+|PictureFile|Drill|Sofa|Bench");
    std::string seen;
    for (std::sregex_iterator m(out.begin(), out.end(), marks), end; m != end; ++m) seen += m->str() + "|";
    return seen;
  };
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"show", file, "--where", "location:garage"}, "2 of 3|Slide 1|Drill|Slide 3|Bench|"},
      {{"show", file, "--where", ""}, "Slide 1|Drill|Slide 2|Sofa|Slide 3|Bench|"},
      {{"export", file, "--where", "garage value>500"}, "PictureFile|Bench|"},
      {{"export", file, "--where", "tools", "--format", "json"}, "Drill|Bench|"},
  };
  for (const auto& [args, expected] : cases) {
    SCOPED_TRACE(args[0] + " --where '" + args[3] + "'");
    const Outcome r = RunInProcess(args);
    EXPECT_EQ(r.status, kExitOk) << r.err;
    EXPECT_EQ(said(r.out), expected);
  }
}

// A forced import is a step of the file it replaces: undone, redone, listed.
TEST(Commands, HistoryUndoAndRedoOfAnImport) {
  Scratch dir;
  const std::string file = dir / "h.sif", csv = dir / "in.csv";
  WriteAsProgram(file, {}, {{"d.jpg", "Drill"}});
  const std::string first = ReadFile(file);
  testing::WriteFile(csv, "PictureFile,SlideText\nb.jpg,Bench\n");
  ASSERT_EQ(RunInProcess({"import", csv, "-o", file, "--force"}).status, kExitOk);
  const std::string second = ReadFile(file);
  const std::tuple<std::vector<std::string>, int, const std::string*> steps[] = {{{"undo", file}, kExitOk, &first},
                                                                                 {{"undo", file}, kExitData, &first},
                                                                                 {{"redo", file}, kExitOk, &second},
                                                                                 {{"redo", file}, kExitData, &second}};
  for (const auto& [args, status, content] : steps) {
    EXPECT_EQ(RunInProcess(args).status, status) << args[0];
    EXPECT_EQ(ReadFile(file), *content) << args[0];
    // The slide an undone import brought is in the bin until the redo.
    const RemovedBin bin(Env::Default(), file);
    const auto& entries = bin.Entries();
    EXPECT_EQ(entries.empty() ? "" : entries[0].reason + " " + RTrim(entries[0].record.Get(Field::SlideText)),
              content == &first ? "undone Bench" : "")
        << args[0];
  }
  EXPECT_THAT(RunInProcess({"history", file}).out, ::testing::MatchesRegex("  1  [-0-9: ]+  Import  \\(1 slide\\)\n"));
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
  // The command, its status, and the first bytes through the pipe.
  const std::tuple<std::vector<std::string>, int, std::string> cases[] = {
      {{"thumbnail", dir / "x.sif", fifo, "--size", "16"}, kExitOk, "\x89PNG"},
      {{"backup", dir / "x.sif", "-o", fifo}, kExitOk, "\x1f\x8b"},
      {{"import", "-", "-o", fifo, "--force"}, kExitData, ""},
  };
  for (const auto& [args, status, head] : cases) {
    SCOPED_TRACE(args.front());
    EXPECT_EQ(RunInProcess(args, "PictureFile\nsofa.jpg\n").status, status);
    std::string got(64 * 1024, '\0');
    const ssize_t n = ::read(reader, got.data(), got.size());
    got.resize(n > 0 ? static_cast<std::size_t>(n) : 0);
    EXPECT_EQ(got.substr(0, head.size()), head);
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
  ASSERT_EQ(RunInProcess({"import", "-", "-o", dir / "link.sif", "--force"}, "PictureFile\nsofa.jpg\n").status,
            kExitOk);
  EXPECT_TRUE(fs::is_symlink(dir / "link.sif"));
  EXPECT_EQ(fs::status(dir / "real.sif").permissions(), fs::perms::owner_read | fs::perms::owner_write);
  struct stat st {};
  ASSERT_EQ(::stat((dir / "real.sif").c_str(), &st), 0);
  if (root) {
    EXPECT_EQ(st.st_uid, 65534u);
  }
  EXPECT_NE(ReadFile(dir / "real.sif"), ReadFile(dir / "x.sif"));
}

// An EXIF segment (APP1) holding nothing but orientation 6: the camera was
// turned, and the picture is shown turned a quarter clockwise. Little-endian
// TIFF, IFD0 at 8 with one entry: tag 0x0112, a SHORT, 6.
const std::string kTurnedClockwise =
    "\xFF\xE1\x00\x22"s
    "Exif\0\0II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0\x06\0\0\0\0\0\0\0"s;

struct Picture {
  int width, height;
  bool turned = false;
};

// A JPEG of the picture as stored: red above, blue below.
std::string Jpeg(const Picture& p) {
  QImage image(p.width, p.height, QImage::Format_RGB32);
  image.fill(Qt::blue);
  for (int y = 0; y < p.height / 2; ++y)
    for (int x = 0; x < p.width; ++x) image.setPixel(x, y, qRgb(255, 0, 0));
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "JPEG", 95);
  return bytes.toStdString().insert(2, p.turned ? kTurnedClockwise : "");  // after the start marker
}

// A probe's point and what it shows: 'r' red, 'b' blue, ' ' nothing.
using Probe = std::tuple<int, int, char>;

struct ThumbnailRow {
  const char* name;
  std::vector<Picture> pictures;  // one slide each, named 0.jpg, 1.jpg, ...
  int size;
  QSize expected;
  std::vector<Probe> probes;
};

const ThumbnailRow kRows[] = {
    {"one picture fills the size, keeping its shape", {{400, 200}}, 128, {128, 64}, {{64, 10, 'r'}, {64, 54, 'b'}}},
    {"a turned camera's picture comes out upright", {{200, 100, true}}, 128, {64, 128}, {{48, 64, 'r'}, {16, 64, 'b'}}},
    {"the first four fill it, smaller ones kept their size",
     {{100, 100, true}, {100, 100}, {100, 100}, {100, 100}, {100, 100}},
     256,
     {256, 256},
     {{28, 30, 'b'}, {100, 100, 'r'}, {192, 160, 'r'}, {192, 224, 'b'}, {10, 10, ' '}}},
};

char Seen(QRgb p) {
  if (qAlpha(p) == 0) return ' ';
  if (qRed(p) > 200 && qBlue(p) < 60) return 'r';
  return qBlue(p) > 200 && qRed(p) < 60 ? 'b' : '?';
}

// Runs thumbnail on Files/x.sif, whose slides name `pictures` in the
// gallery beside its folder; "" names a slide with no picture.
QImage Thumbnail(const Scratch& dir, const std::vector<std::string>& pictures, int size) {
  std::vector<SlideText> slides;
  for (const auto& p : pictures) slides.push_back({p, "Slide"});
  WriteAsProgram(dir / "Files/x.sif", {}, slides);
  const Outcome r = RunProcess({"thumbnail", dir / "Files/x.sif", dir / "x.png", "--size", std::to_string(size)});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.err, "");
  return QImage(QString::fromStdString(dir / "x.png"));
}

TEST(Thumbnail, SizeShapeOrientationAndGrid) {
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    Scratch dir;
    std::vector<std::string> names;
    for (const auto& p : row.pictures) {
      names.push_back(std::to_string(names.size()) + ".jpg");
      WriteFile(dir / ("Gallery/" + names.back()), Jpeg(p));
    }
    const QImage image = Thumbnail(dir, names, row.size);
    EXPECT_EQ(image.size(), row.expected);
    for (const auto& [x, y, seen] : row.probes) EXPECT_EQ(Seen(image.pixel(x, y)), seen) << x << "," << y;
  }
}

TEST(Thumbnail, TheProgramsIconWhenNoPictureReads) {
  Scratch dir;
  WriteFile(dir / "Gallery/notes.jpg", "not a picture");
  fs::create_directories(dir / "Gallery/folder.jpg");
  WriteFile(dir / "secret.jpg", Jpeg({100, 100}));
  const QImage image = Thumbnail(dir, {"", "missing.jpg", "notes.jpg", "folder.jpg", "../secret.jpg"}, 128);
  EXPECT_EQ(image.convertToFormat(QImage::Format_ARGB32), PaintProgramIcon(128).convertToFormat(QImage::Format_ARGB32));
}

struct ProgramFile {
  const char* name;
  Header header;
  std::vector<SlideText> slides;
};

// More slides than an export reads at once, each its own.
std::vector<SlideText> Numbered(int n) {
  std::vector<SlideText> slides;
  for (int i = 1; i <= n; ++i) slides.push_back({"p" + std::to_string(i) + ".jpg", "Slide " + std::to_string(i)});
  return slides;
}

const ProgramFile kFiles[] = {
    {"empty gallery", {1, "", "", ""}, {}},
    {"more slides than a block", {1, "", "", ""}, Numbered(300)},
    {"home security",
     {1, "Frame2.jpg", "Blue Sky.jpg", "Arial"},
     {{"chair.jpg", "Oak chair, \"Windsor\" style", "Furniture", "Lounge", "Ercol", "Windsor", "1234", "150"},
      {"tv.jpg", "Television\r\non the wall", "Electrical", "Lounge", "Sony", "", "AB123", "1,500"},
      {"pic.jpg", "", "", "", "", "", "", ""}}},
    {"real estate",
     {2, "", "Paper.jpg", "Times New Roman"},
     {{"house1.jpg", "Café at the corner, €350,000", "Freehold", "Glebe", "3", "Pool", "12 High St", "350000"}}},
    {"car yard",
     {3, "Frame1.jpg", "", "Verdana"},
     {{"car.jpg", "Ford Falcon", "Sedan", "1998", "Red", "Tow bar", "ABC-123", "$4,990"},
      {"ute.jpg", "Holden Ute", "Ute", "2001", "", "", "", "7500"}}},
    {"every field full",
     {1, std::string(26, 'b'), std::string(100, 'w'), std::string(26, 'f')},
     {{std::string(26, 'p'), std::string(100, 't'), std::string(26, 'c'), std::string(26, 'l'), std::string(26, 'm'),
       std::string(26, 'o'), std::string(26, 's'), std::string(11, 'v')}}},
};

// JSON carries the settings too; CSV only the slide records.
TEST(Import, ExportThenImportGivesBackTheFile) {
  for (const auto& f : kFiles)
    for (const std::string format : {"json", "csv"}) {
      SCOPED_TRACE(std::string(f.name) + " as " + format);
      Scratch dir;
      const std::string original = WriteAsProgram(dir / "original.sif", f.header, f.slides);
      const Outcome exported = RunInProcess({"export", dir / "original.sif", "--format", format});
      ASSERT_EQ(exported.status, 0) << exported.err;
      std::vector<std::string> args{"import", "-", "--format", format, "-o", dir / "back.sif"};
      if (format == "csv") args.insert(args.end(), {"--template", std::to_string(f.header.slideTemplate)});
      const Outcome imported = RunInProcess(args, exported.out);
      ASSERT_EQ(imported.status, 0) << imported.err;
      const std::size_t from = format == "csv" ? kRecordLength : 0;
      EXPECT_EQ(ReadFile(dir / "back.sif").substr(from), original.substr(from));
    }
}

// Columns are found by name in any case and order; fields are measured in
// Windows-1252 characters, and trailing blanks are padding, not text.
TEST(Import, CsvColumnsByNameAndFieldsInWindows1252Characters) {
  Scratch dir;
  const std::string name = "é€" + std::string(23, 'x') + "é";  // 26 characters, 29 bytes in UTF-8
  const Outcome r = RunInProcess({"import", "-", "-o", dir / "a.sif"},
                                 "value,PictureFile\r\n12" + std::string(23, ' ') + "," + name + "\r\n");
  ASSERT_EQ(r.status, 0) << r.err;
  const Outcome back = RunInProcess({"export", dir / "a.sif", "--format", "json"});
  EXPECT_THAT(back.out, HasSubstr("\"template\": 1,"));
  EXPECT_THAT(back.out, HasSubstr("\"pictureFile\": \"" + name + "\",\n      \"slideText\": \"\""));
  EXPECT_THAT(back.out, HasSubstr("\"value\": \"12\""));
}

TEST(Import, RefusesWithRowAndFieldAndWritesNothing) {
  const struct {
    const char* name;
    const char* format;
    std::string input;
    const char* message;
  } refusals[] = {
      {"text too long", "csv", "SlideText\r\nok\r\n" + std::string(101, 't') + "\r\n",
       "row 2, SlideText: 101 characters, longer than the 100 the field holds"},
      {"value too long", "csv", "Value\r\n123456789012\r\n", "row 1, Value: 12 characters, longer than the 11"},
      {"no Windows-1252 form", "csv", "Make,Model\r\nok,ok\r\nok,ok\r\nTick \xE2\x9C\x93,ok\r\n",
       "row 3, Make: U+2713 is a character Windows-1252 cannot hold"},
      {"slide too long in JSON", "json", "{\"slides\": [{\"serial\": \"" + std::string(27, 's') + "\"}]}",
       "row 1, Serial: 27 characters, longer than the 26"},
      {"setting too long", "json", "{\"reportFont\": \"" + std::string(27, 'f') + "\"}",
       "reportFont: 27 characters, longer than the 26"},
      {"template outside 1 to 3", "json", "{\"template\": 4}", "template 4 is outside 1 to 3"},
      {"not JSON", "json", "{\"slides\": [", "not JSON: "},
      {"unknown setting", "json", "{\"font\": \"Arial\"}", "unknown key \"font\""},
      {"template a fraction", "json", "{\"template\": 1.5}", "template: not a whole number"},
      {"slide no object", "json", "{\"slides\": [{}, 7]}", "row 2: not an object"},
      {"unknown slide key", "json", "{\"slides\": [{\"PictureFile\": \"a\"}]}", "row 1: unknown key \"PictureFile\""},
      {"field no text", "json", "{\"slides\": [{}, {\"value\": 150}]}", "row 2, Value: not a text"},
      {"quote not closed", "csv", "a\r\nb,\"open\r\nstill open", "line 2: a quoted field is not closed"},
      {"text after a quote", "csv", "\"multi\nline\",ok\n\"bad\"x", "line 3: text after the closing quote of a field"},
  };
  for (const auto& c : refusals) {
    SCOPED_TRACE(c.name);
    Scratch dir;
    const Outcome r = RunInProcess({"import", "-", "--format", c.format, "-o", dir / "out.sif"}, c.input);
    EXPECT_EQ(r.status, 1);
    EXPECT_THAT(r.err, HasSubstr(c.message));
    EXPECT_TRUE(Names(dir).empty());
  }
}

// Reading also takes what spreadsheets write, which a write never makes.
TEST(Csv, WritesAndReadsBack) {
  const struct {
    const char* name;
    std::vector<CsvRow> rows;  // in Windows-1252
    std::string text;          // in UTF-8
    bool written = true;
  } cases[] = {
      {"plain", {{"a", "b"}, {"", "c"}}, "a,b\r\n,c\r\n"},
      {"comma", {{"1,500", "x"}}, "\"1,500\",x\r\n"},
      {"quotes doubled", {{"Ring \"gold\""}}, "\"Ring \"\"gold\"\"\"\r\n"},
      {"line breaks kept as written", {{"two\r\nlines", "lf\nonly"}}, "\"two\r\nlines\",\"lf\nonly\"\r\n"},
      {"blanks at either end", {{" lead", "trail "}}, "\" lead\",\"trail \"\r\n"},
      {"specials among the first eight bytes",
       {{"5\" screen wide", "1,500 dollars", "lf\nonly, more"}},
       "\"5\"\" screen wide\",\"1,500 dollars\",\"lf\nonly, more\"\r\n"},
      {"beyond ASCII", {{"Caf\xE9 5\x80", "\x99\"\x80\""}}, "Café 5€,\"™\"\"€\"\"\"\r\n"},
      {"LF line ends, none at the end", {{"a", "b"}, {"c", "d"}}, "a,b\nc,\"d\"", false},
      {"byte-order mark, empty lines", {{"a", ""}, {"b"}}, "\uFEFFa,\r\n\r\n\nb\r\n", false},
      {"a quote inside a bare field", {{"5\" screen", "x"}}, "5\" screen,x", false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    std::string written;
    for (const auto& row : c.rows) AppendCsvRecord(written, std::vector<std::string_view>(row.begin(), row.end()));
    if (c.written) {
      EXPECT_EQ(written, c.text);
    }
    std::vector<CsvRow> back;
    std::string message;
    ASSERT_TRUE(ParseCsv(c.text, back, message)) << message;
    std::vector<CsvRow> expected = c.rows;
    for (auto& row : expected)
      for (auto& field : row) field = Cp1252ToUtf8(field);
    EXPECT_EQ(back, expected);
  }
}

// A stored field written as plain text, '_' standing for a padding blank and
// '~' for a NUL; padded with blanks or cut to `width`.
std::string StoredField(const std::string& plain, std::size_t width) {
  std::string f;
  for (char c : plain) f += c == '_' ? ' ' : c == '~' ? '\0' : static_cast<char>(-c);
  f.resize(width, ' ');
  return f;
}

// The rows of stored slides as AppendCsvSlide writes them once each field is
// unscrambled byte by byte.
std::string DecodedRows(const std::string& stored) {
  std::string rows;
  for (std::size_t at = 0; at + kRecordLength <= stored.size(); at += kRecordLength) {
    SlideRecord r;
    for (const auto& f : kFields) UnscrambleTo(stored.data() + at + f.offset, f.width, r.bytes().data() + f.offset);
    AppendCsvSlide(rows, r);
  }
  return rows;
}

// Equal texts, or else where they part.
void ExpectSame(const std::string& got, const std::string& expected) {
  const auto [g, e] = std::mismatch(got.begin(), got.end(), expected.begin(), expected.end());
  EXPECT_EQ(std::string(g, got.end()).substr(0, 80), std::string(e, expected.end()).substr(0, 80))
      << "after byte " << g - got.begin();
}

std::string StoredRows(std::string stored) {
  const std::size_t count = stored.size() / kRecordLength;
  stored.resize(stored.size() + kUnscrambleSpill, '\x9F');
  CsvRows rows;
  rows.Append(stored.data(), count);
  return std::string(rows.View());
}

// Rows are written from the stored slides, sixteen bytes at a time where they
// can; each case fills every field, so each width meets it.
TEST(Csv, StoredRowsAreTheDecodedSlidesRows) {
  const std::string cases[] = {
      "",                                                          // padding alone
      std::string(40, '~'),                                        // NULs alone
      "Oak chair",                                                 // plain
      "a b_c~d",                                                   // a blank, padding and a NUL inside
      " lead",                                                     // quoted for its first blank
      "trail  ",                                                   // trimmed
      "   ",                                                       // blanks alone
      "1,500",                                                     // a comma
      "5\" screen",                                                // a quote
      "\"\"",                                                      // quotes alone
      "two\r\nlines",                                              // a line break
      "tab\there",                                                 // a control that needs no quotes
      "abcdefghijklmno\"p\"",                                      // a quote ending the first 16 bytes
      "abcdefghijklmnop\"",                                        // a quote beginning the next
      "Caf\xE9 \x80",                                              // beyond ASCII
      "\x81\x8D\xFF",                                              // unassigned codes and the last
      "abcdefghijklmno\xE9\"\xE9",                                 // beyond ASCII beside a quote
      "\xE0t\xE9",                                                 // a character stored as padding
      std::string(100, 'w'),                                       // every field full
      std::string(15, 'x') + " y, \"z\" " + std::string(30, 'w'),  // runs of three kinds
  };
  for (const std::string& text : cases) {
    SCOPED_TRACE(::testing::PrintToString(text));
    std::string stored;
    for (const auto& f : kFields) stored += StoredField(text, f.width);
    ExpectSame(StoredRows(stored), DecodedRows(stored));
  }
  // Random slides, mostly text then padding, sometimes a gap inside.
  std::mt19937 random(7);
  const std::string palette = "aZ1 ,\"\r\n\t\x80\xE9\xFF\xE0";
  std::string stored;
  for (int slide = 0; slide < 3000; ++slide)
    for (const auto& f : kFields) {
      std::string text(random() % (f.width + 1), 'a');
      for (char& c : text) c = palette[random() % palette.size()];
      if (!text.empty() && random() % 8 == 0) text[random() % text.size()] = random() % 2 ? '_' : '~';
      stored += StoredField(text + (random() % 2 ? "~" : ""), f.width);
    }
  ExpectSame(StoredRows(stored), DecodedRows(stored));
}

// Enough slides for an export to share the rows between two threads, some
// past the end of a cut file: the rows come out in order, each once.
TEST(Csv, ALargeExportIsTheSlidesInOrder) {
  Scratch dir;
  const std::string path = dir / "large.sif";
  SlideArray slides(6001);
  for (std::size_t i = 1; i < slides.size(); ++i) {
    slides[i].Set(Field::SlideText, "Slide \"" + std::to_string(i) + "\", \x80");
    slides[i].Set(Field::Value, std::to_string(i));
  }
  ASSERT_TRUE(DataAccess().SaveSettings(path, {0, "", "", 1, ""}, slides).ok());
  fs::resize_file(path, 5000 * kRecordLength + 100);
  pack::SifDocument doc;
  std::string message;
  ASSERT_TRUE(pack::ReadSif(path, doc, message)) << message;
  std::string expected;
  AppendCsvHeader(expected);
  for (std::size_t i = 1; i < doc.Slides.size(); ++i) AppendCsvSlide(expected, doc.Slides[i]);
  ExpectSame(RunInProcess({"export", path}).out, expected);
}

// While the program has a file open, the commands that would replace it
// refuse; its own saves keep the lock; once it lets go, they work again.
TEST(OpenFileLock, CommandsLeaveAFileOpenInTheProgramAlone) {
  Scratch dir;
  const std::string open = dir / "app/Files/open.sif";
  WriteAsProgram(open, {}, {{"tv.jpg", "Television"}});
  ASSERT_EQ(RunInProcess({"backup", open, "-o", dir / "b.tar.gz"}).status, 0);
  WriteFile(dir / "x.csv", "PictureFile,SlideText\nsofa.jpg,Sofa\n");
  const std::string message = "chattelbook-sif: " + open + " is open in Chattelbook; close it there first\n";
  const std::vector<std::string> replacing[] = {
      {"import", dir / "x.csv", "-o", open, "--force"},
      {"restore", dir / "b.tar.gz", "--to", dir / "app", "--force"},
  };
  {
    ModGlobal g;
    MemorySettings settings;
    UIMainController program(dir / "app", settings, g);
    program.SetRegistryKeys(open);
    program.LockOpenFile();
    ErrorArray errors;
    ASSERT_TRUE(Report(program.LoadSettings(), errors));
    for (const bool saved : {false, true}) {
      if (saved) {
        ASSERT_TRUE(Report(program.SaveSettings(), errors));  // replaces the file by rename
      }
      const std::string bytes = ReadFile(open);
      for (const auto& args : replacing) {
        SCOPED_TRACE(args.front() + (saved ? " after a save" : ""));
        const Outcome refused = RunInProcess(args);
        EXPECT_EQ(refused.status, kExitData);
        EXPECT_EQ(refused.err, message);
        EXPECT_EQ(ReadFile(open), bytes);
      }
      EXPECT_EQ(RunInProcess({"export", open}).status, kExitOk);  // reading goes on
    }
  }
  for (const auto& args : replacing) EXPECT_EQ(RunInProcess(args).status, kExitOk) << args.front();
  EXPECT_FALSE(fs::exists(dir / "app/Files/.open.sif.lock"));  // each holder removes what it made
}

}  // namespace
}  // namespace cb::sif::testing
