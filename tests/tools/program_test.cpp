// SPDX-License-Identifier: GPL-3.0-or-later
// The companion against the program's own code: reading a file gives what
// the program's load gives, check names each fault that load would meet, and
// report hands back the page the program's report generator writes.

#include <gmock/gmock.h>

#include "Report.h"
#include "SifTools.h"
#include "pack/SifFile.h"
#include "reports/UIReportController.h"

namespace cb::sif::testing {
namespace {

using namespace cb::pack;
using ::testing::HasSubstr;

TEST(SifFile, ReadAndCheckAgreeWithTheProgramsLoad) {
  Scratch app;
  const std::string f =
      WriteAsProgram(app / "made.sif", {2, "Frame3.jpg", "Clouds.jpg", "Times New Roman"},
                     {{"chair.jpg", "Oak chair", "Furniture", "Lounge", "Ikea", "Poäng", "1234", "150"},
                      {"tv.jpg", "Television", "Electrical", "Lounge", "", "", "", "1,500"},
                      {"ring.jpg", "Ring, \"gold\"", "Jewellery", "Bedroom", "", "", "AB 12", "€900"}});
  const auto nul = [&f](std::size_t at) { return f.substr(0, at) + '\0' + f.substr(at + 1); };
  // The one finding check prints for each copy; those ending "a load fails" do not load.
  const std::tuple<const char*, std::string, std::string> cases[] = {
      {"as saved", f, ""},
      {"count beyond the records", f.substr(0, 3 * kRecordLength),
       "header: the slide count 3 is beyond the 2 slide records in the file; slides 3 to 3 load empty"},
      {"last record cut short", f.substr(0, 4 * kRecordLength - 8),
       "the file's 1104 bytes are no whole number of 278-byte records; the last record is cut short"},
      {"count no number", WithHeader(f, "three", "2"),
       "header: the slide count \"three\" is not a number; a load finds no slides"},
      {"count with text behind", WithHeader(f, "2abc", "2"), ""},
      {"template outside 1 to 3", WithHeader(f, "3", "7"), "header: the template 7 is outside 1 to 3"},
      {"template no number", WithHeader(f, "3", "Home"),
       "header: the template \"Home\" is not a number; a load keeps the template it had"},
      {"NUL in a slide's field", nul(2 * kRecordLength + 189 + 3), "slide 2, Make: NUL bytes, which a load drops"},
      {"NUL in a used header field", nul(189 + 25), "header, ReportFont: NUL bytes, which a load drops"},
      {"NUL in a header field the program leaves alone", nul(137), ""},
      {"NUL behind the counted slides", WithHeader(nul(3 * kRecordLength), "2", "2"), ""},
      {"empty file", "", "the file is empty; a load finds no slides and keeps the template it had"},
      {"count above 32767", WithHeader(f, "40000", "2"),
       "header: the slide count \"40000\" is above 32767; a load fails"},
      {"template beyond 32 bits", WithHeader(f, "3", "99999999999"),
       "header: the template \"99999999999\" is too large a number; a load fails"},
  };
  for (const auto& [name, bytes, finding] : cases) {
    SCOPED_TRACE(name);
    const std::string path = app / "Files/case.sif";
    WriteFile(path, bytes);
    const Outcome r = RunInProcess({"check", path});
    EXPECT_EQ(r.out, finding.empty() ? "" : finding + "\n");
    EXPECT_EQ(r.status, finding.empty() ? 0 : 1);
    EXPECT_EQ(r.err, "");

    ModGlobal g;
    MemorySettings settings;
    UIMainController mc(app.str(), settings, g);
    mc.SlideInformationFilePath(path);
    mc.SlideTemplate(-5);  // what a failed template read leaves
    ErrorArray errors;
    const bool loads = !finding.ends_with("a load fails");
    SifDocument doc;
    std::string message;
    ASSERT_EQ(Report(mc.LoadSettings(), errors), loads);
    ASSERT_EQ(ReadSif(path, doc, message), loads) << message;
    if (!loads) {
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

TEST(Check, ListsPicturesMissingFromTheGallery) {
  Scratch dir;
  const std::string gallery = dir / "Gallery";
  WriteFile(gallery + "/a.jpg", "x");
  WriteFile(gallery + "/B.JPG", "x");
  WriteAsProgram(dir / "g.sif", {}, {{"a.jpg", ""}, {"b.jpg", ""}, {"c.jpg", ""}, {"", "no picture"}});
  const Outcome r = RunInProcess({"check", dir / "g.sif", "--gallery", gallery});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "slide 2: picture \"b.jpg\" is missing from " + gallery + " (\"B.JPG\" differs in case)\n" +
                       "slide 3: picture \"c.jpg\" is missing from " + gallery + "\nslide 4: no picture file named\n");
}

ReportLocale FixedLocale() {
  ReportLocale l;
  l.thousandsSeparator = ".";
  l.decimalPoint = ",";
  l.generalDate = [] { return std::string("1/02/2003 4:05:06 PM"); };
  return l;
}

struct ReportCase {
  const char* name;
  std::int32_t slideTemplate;  // written into the file's header
  ReportKind kind;
  std::optional<std::string> key;
  std::optional<std::string> font;
};

// The page the program writes: the file loaded as Open loads it, the report
// font taken from it, the report made by a fresh controller.
std::string ProgramPage(const Scratch& app, const std::string& path, const ReportCase& c) {
  ModGlobal g;
  MemorySettings settings;
  UIMainController mc(app.str(), settings, g);
  mc.SlideInformationFilePath(path);
  ErrorArray errors;
  EXPECT_TRUE(Report(mc.LoadSettings(), errors)) << errors[2];
  if (mc.SlideTemplate() < 1 || mc.SlideTemplate() > 3) mc.SlideTemplate(1);  // as the report chooser does
  UIReportController reports(mc, g.Slides, errors, FixedLocale());
  reports.ReportFont(c.font.value_or(mc.ReportFont()));
  const bool byCategory = c.kind == ReportKind::ByCategory;
  const bool ok = !c.key       ? (byCategory ? reports.CreateReportByCategory() : reports.CreateReportByLocation())
                  : byCategory ? reports.CreateSubReportByCategory(*c.key)
                               : reports.CreateSubReportByLocation(*c.key);
  EXPECT_TRUE(ok) << errors[2];
  return ReadFile(app / (c.key ? "Reports/Report 1.htm" : "Reports/Report1.htm"));
}

TEST(Report, IsThePageTheProgramWrites) {
  const std::vector<SlideText> slides = {
      {"chair.jpg", "Oak chair", "Furniture", "Lounge", "", "", "1234", "150"},
      {"sofa.jpg", "Sofa", "Furniture", "Lounge", "", "", "", "1,500"},
      {"desk.jpg", "Desk", "Furniture", "Study", "", "", "AB12", "2300.5"},
      {"tv.jpg", "Télé", "Electrical", "Lounge", "", "", "98765", "€99"},
      {"lamp.jpg", "Lamp", "Electrical", "", "", "", "", "40"},
  };
  const ReportCase cases[] = {
      {"summary by category", 1, ReportKind::ByCategory, {}, {}},
      {"summary by location", 1, ReportKind::ByLocation, {}, {}},
      {"sub-report of a category", 1, ReportKind::ByCategory, "Furniture", {}},
      {"sub-report of a suburb", 2, ReportKind::ByLocation, "Lounge", {}},
      {"another font", 2, ReportKind::ByCategory, {}, "Courier New"},
      {"template 9 reports as 1", 9, ReportKind::ByLocation, {}, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Scratch app;
    const std::string path = app / "Files/Home.sif";
    WriteFile(path,
              WithHeader(WriteAsProgram(path, {1, "", "", "Tahoma"}, slides), "5", std::to_string(c.slideTemplate)));
    SifDocument doc;
    std::string message, page;
    ASSERT_TRUE(ReadSif(path, doc, message)) << message;
    ASSERT_TRUE(MakeReport({c.kind, c.key, c.font, path}, doc, FixedLocale(), page, message)) << message;
    EXPECT_EQ(page, ProgramPage(app, path, c));
    EXPECT_THAT(page, HasSubstr("face='" + c.font.value_or("Tahoma") + "'"));
  }
}

}  // namespace
}  // namespace cb::sif::testing
