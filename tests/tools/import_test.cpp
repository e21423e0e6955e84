// Export then import must give back the file the program wrote, and import
// must refuse what the file cannot hold without writing anything.

#include <gmock/gmock.h>

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

TEST(Import, FieldsAreMeasuredInWindows1252Characters) {
  Scratch dir;
  // 26 characters, 29 bytes in UTF-8; trailing blanks are padding, not text.
  const std::string name = "é€" + std::string(23, 'x') + "é";
  const Outcome r = RunInProcess({"import", "-", "-o", dir / "a.sif"}, "PictureFile,Value\r\n" + name + ",12   " +
                                                                         std::string(20, ' ') + "\r\n");
  ASSERT_EQ(r.status, 0) << r.err;
  const Outcome back = RunInProcess({"export", dir / "a.sif", "--format", "json"});
  EXPECT_THAT(back.out, HasSubstr("\"pictureFile\": \"" + name + "\""));
  EXPECT_THAT(back.out, HasSubstr("\"value\": \"12\""));
}

struct Refusal {
  const char* name;
  const char* format;
  std::string input;
  const char* message;
};

const Refusal kRefusals[] = {
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
};

TEST(Import, RefusesWithRowAndFieldAndWritesNothing) {
  for (const auto& c : kRefusals) {
    SCOPED_TRACE(c.name);
    Scratch dir;
    const Outcome r = RunInProcess({"import", "-", "--format", c.format, "-o", dir / "out.sif"}, c.input);
    EXPECT_EQ(r.status, 1);
    EXPECT_THAT(r.err, HasSubstr(c.message));
    EXPECT_TRUE(Names(dir).empty());
  }
}

TEST(Import, KeepsAnExistingFileUnlessForced) {
  Scratch dir;
  WriteFile(dir / "in.csv", "PictureFile\r\na.jpg\r\n");
  WriteFile(dir / "out.sif", "precious");
  const std::vector<std::string> args{"import", dir / "in.csv", "-o", dir / "out.sif"};

  const Outcome refused = RunInProcess(args);
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.err, HasSubstr("already exists"));
  EXPECT_EQ(ReadFile(dir / "out.sif"), "precious");

  auto forced = args;
  forced.push_back("--force");
  ASSERT_EQ(RunInProcess(forced).status, 0);
  EXPECT_EQ(ReadFile(dir / "out.sif").size(), 2 * kRecordLength);
  EXPECT_THAT(Names(dir), ::testing::UnorderedElementsAre("in.csv", "out.sif"));
}

}  // namespace
}  // namespace cb::sif::testing
