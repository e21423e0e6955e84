// report must hand back, byte for byte, the page the program's own report
// generator writes for the same file.

#include <gmock/gmock.h>

#include "Report.h"
#include "SifTools.h"
#include "reports/UIReportController.h"

namespace cb::sif::testing {
namespace {

using ::testing::HasSubstr;

const std::vector<SlideText> kSlides = {
    {"chair.jpg", "Oak chair", "Furniture", "Lounge", "", "", "1234", "150"},
    {"sofa.jpg", "Sofa", "Furniture", "Lounge", "", "", "", "1,500"},
    {"desk.jpg", "Desk", "Furniture", "Study", "", "", "AB12", "2300.5"},
    {"tv.jpg", "Télé", "Electrical", "Lounge", "", "", "98765", "€99"},
    {"lamp.jpg", "Lamp", "Electrical", "", "", "", "", "40"},
};

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

const ReportCase kCases[] = {
    {"summary by category", 1, ReportKind::ByCategory, {}, {}},
    {"summary by location", 1, ReportKind::ByLocation, {}, {}},
    {"sub-report of a category", 1, ReportKind::ByCategory, "Furniture", {}},
    {"sub-report of a suburb", 2, ReportKind::ByLocation, "Lounge", {}},
    {"another font", 2, ReportKind::ByCategory, {}, "Courier New"},
    {"template 9 reports as 1", 9, ReportKind::ByLocation, {}, {}},
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
  const bool ok = !c.key ? (byCategory ? reports.CreateReportByCategory() : reports.CreateReportByLocation())
                  : byCategory ? reports.CreateSubReportByCategory(*c.key)
                               : reports.CreateSubReportByLocation(*c.key);
  EXPECT_TRUE(ok) << errors[2];
  return ReadFile(app / (c.key ? "Reports/Report 1.htm" : "Reports/Report1.htm"));
}

TEST(Report, IsThePageTheProgramWrites) {
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.name);
    Scratch app;
    fs::create_directories(app / "Files");
    const std::string path = app / "Files/Home.sif";
    WriteFile(path, WithHeader(WriteAsProgram(path, {1, "", "", "Tahoma"}, kSlides), std::to_string(kSlides.size()),
                                std::to_string(c.slideTemplate)));

    SifDocument doc;
    std::string message, page;
    ASSERT_TRUE(ReadSif(path, doc, message)) << message;
    const ReportRequest request{c.kind, c.key, c.font, path};
    ASSERT_TRUE(MakeReport(request, doc, FixedLocale(), page, message)) << message;
    EXPECT_EQ(page, ProgramPage(app, path, c));
    EXPECT_THAT(page, HasSubstr("face='" + c.font.value_or("Tahoma") + "'"));
  }
}

}  // namespace
}  // namespace cb::sif::testing
