// check must name each fault a load would meet, one line each, and pass a
// file the program wrote.

#include <gmock/gmock.h>

#include "SifTools.h"

namespace cb::sif::testing {
namespace {

const std::vector<SlideText> kThree = {
    {"a.jpg", "A", "Furniture", "Lounge", "", "", "", "10"},
    {"b.jpg", "B", "Furniture", "Kitchen", "", "", "", "20"},
    {"c.jpg", "C", "Art", "Hall", "", "", "", "30"},
};

std::string WithByte(std::string bytes, std::size_t at, char c) {
  bytes[at] = c;
  return bytes;
}

struct CheckCase {
  const char* name;
  std::string (*bytes)(const std::string& programFile);
  std::vector<std::string> findings;
};

const CheckCase kCases[] = {
    {"as the program saved it", [](const std::string& f) { return f; }, {}},
    {"count beyond the records",
     [](const std::string& f) { return f.substr(0, 3 * kRecordLength); },
     {"header: the slide count 3 is beyond the 2 slide records in the file; slides 3 to 3 load empty"}},
    {"last record cut short",
     [](const std::string& f) { return f.substr(0, 4 * kRecordLength - 8); },
     {"the file's 1104 bytes are no whole number of 278-byte records; the last record is cut short"}},
    {"count above 32767",
     [](const std::string& f) { return WithHeader(f, "40000", "1"); },
     {"header: the slide count \"40000\" is above 32767; a load fails"}},
    {"count no number",
     [](const std::string& f) { return WithHeader(f, "three", "1"); },
     {"header: the slide count \"three\" is not a number; a load finds no slides"}},
    {"template outside 1 to 3",
     [](const std::string& f) { return WithHeader(f, "3", "7"); },
     {"header: the template 7 is outside 1 to 3"}},
    {"template no number",
     [](const std::string& f) { return WithHeader(f, "3", "Home"); },
     {"header: the template \"Home\" is not a number; a load keeps the template it had"}},
    {"NUL in a slide's field",
     [](const std::string& f) { return WithByte(f, 2 * kRecordLength + 189 + 3, '\0'); },
     {"slide 2, Make: NUL bytes, which a load drops"}},
    {"NUL in a used header field",
     [](const std::string& f) { return WithByte(f, 189 + 25, '\0'); },
     {"header, ReportFont: NUL bytes, which a load drops"}},
    {"NUL in a header field the program leaves alone", [](const std::string& f) { return WithByte(f, 137, '\0'); }, {}},
    {"NUL behind the counted slides",
     [](const std::string& f) { return WithHeader(WithByte(f, 3 * kRecordLength, '\0'), "2", "1"); },
     {}},
    {"empty file",
     [](const std::string&) { return std::string(); },
     {"the file is empty; a load finds no slides and keeps the template it had"}},
};

TEST(Check, NamesEachFaultOnItsOwnLine) {
  Scratch dir;
  const std::string program = WriteAsProgram(dir / "program.sif", {1, "", "", "Arial"}, kThree);
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.name);
    WriteFile(dir / "case.sif", c.bytes(program));
    const Outcome r = RunInProcess({"check", dir / "case.sif"});
    std::string expected;
    for (const auto& line : c.findings) expected += line + "\n";
    EXPECT_EQ(r.out, expected);
    EXPECT_EQ(r.status, c.findings.empty() ? 0 : 1);
    EXPECT_EQ(r.err, "");
  }
}

TEST(Check, ListsPicturesMissingFromTheGallery) {
  Scratch dir;
  fs::create_directories(dir / "Gallery");
  WriteFile(dir / "Gallery/a.jpg", "x");
  WriteFile(dir / "Gallery/B.JPG", "x");
  WriteAsProgram(dir / "g.sif", {}, {{"a.jpg", ""}, {"b.jpg", ""}, {"c.jpg", ""}, {"", "no picture"}});
  const Outcome r = RunInProcess({"check", dir / "g.sif", "--gallery", dir / "Gallery"});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "slide 2: picture \"b.jpg\" is missing from " + (dir / "Gallery") +
                       " (\"B.JPG\" differs in case)\n"
                       "slide 3: picture \"c.jpg\" is missing from " + (dir / "Gallery") + "\n"
                       "slide 4: no picture file named\n");
}

}  // namespace
}  // namespace cb::sif::testing
