// Reading a file from any path must give what the program's load gives, and
// writing must give what the program's File New and saves give.

#include "SifFile.h"
#include "SifTools.h"

namespace cb::sif::testing {
namespace {

const std::vector<SlideText> kSlides = {
    {"chair.jpg", "Oak chair", "Furniture", "Lounge", "Ikea", "Poäng", "1234", "150"},
    {"tv.jpg", "Television", "Electrical", "Lounge", "", "", "", "1,500"},
    {"ring.jpg", "Ring, \"gold\"", "Jewellery", "Bedroom", "", "", "AB 12", "€900"},
};

struct ReadCase {
  const char* name;
  std::string (*bytes)(const std::string& programFile);
  bool loads;
};

const ReadCase kReadCases[] = {
    {"as saved", [](const std::string& f) { return f; }, true},
    {"count beyond the records", [](const std::string& f) { return f.substr(0, 3 * kRecordLength); }, true},
    {"record cut short", [](const std::string& f) { return f.substr(0, 3 * kRecordLength + 100); }, true},
    {"template no number", [](const std::string& f) { return WithHeader(f, "3", "x"); }, true},
    {"count with text behind", [](const std::string& f) { return WithHeader(f, "2abc", "2"); }, true},
    {"count no number", [](const std::string& f) { return WithHeader(f, "abc", "2"); }, true},
    {"empty file", [](const std::string&) { return std::string(); }, true},
    {"count above 32767", [](const std::string& f) { return WithHeader(f, "40000", "2"); }, false},
    {"template beyond 32 bits", [](const std::string& f) { return WithHeader(f, "3", "99999999999"); }, false},
};

TEST(SifFile, ReadsWhatTheProgramsLoadReads) {
  Scratch app;
  fs::create_directories(app / "Files");
  const std::string program =
      WriteAsProgram(app / "made.sif", {2, "Frame3.jpg", "Clouds.jpg", "Times New Roman"}, kSlides);

  for (const auto& c : kReadCases) {
    SCOPED_TRACE(c.name);
    const std::string path = app / "Files/case.sif";
    WriteFile(path, c.bytes(program));

    ModGlobal g;
    MemorySettings settings;
    UIMainController mc(app.str(), settings, g);
    mc.SlideInformationFilePath(path);
    mc.SlideTemplate(-5);  // what a failed template read leaves
    ErrorArray errors;
    const bool loaded = Report(mc.LoadSettings(), errors);

    SifDocument doc;
    std::string message;
    ASSERT_EQ(ReadSif(path, doc, message), c.loads) << message;
    ASSERT_EQ(loaded, c.loads);
    if (!c.loads) {
      EXPECT_FALSE(message.empty());
      continue;
    }
    EXPECT_EQ(doc.Slides, g.Slides);
    EXPECT_EQ(doc.Header.NumberOfRecords.value, mc.NumberOfRecords());
    EXPECT_EQ(doc.Header.BackgroundImage, mc.BackgroundImage());
    EXPECT_EQ(doc.Header.Wallpaper, mc.Wallpaper());
    EXPECT_EQ(doc.Header.ReportFont, mc.ReportFont());
    EXPECT_EQ(TemplateOf(doc).value_or(-5), mc.SlideTemplate());
  }
}

}  // namespace
}  // namespace cb::sif::testing
