// SPDX-License-Identifier: GPL-3.0-or-later
// The two interchange formats: export then import gives back the file the
// program wrote, and what a file cannot hold, or malformed input, is refused
// with a message that finds the spot and nothing is written.

#include <gmock/gmock.h>

#include "Csv.h"
#include "Formats.h"
#include "SifTools.h"

namespace cb::sif::testing {
namespace {

using ::testing::HasSubstr;

struct ProgramFile {
  const char* name;
  Header header;
  std::vector<SlideText> slides;
};

const ProgramFile kFiles[] = {
    {"empty gallery", {1, "", "", ""}, {}},
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
