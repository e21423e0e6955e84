// SPDX-License-Identifier: GPL-3.0-or-later
// Report pages compared byte for byte with the pages under golden/<case>/,
// then the controller's files, names and failures. Each case holds
// slides.txt (one slide a line: PictureFile|SlideText|Category|Location|Serial|Value),
// case.txt (report, key, template, font) and page.htm, the file the report must write.
// CHATTELBOOK_UPDATE_GOLDEN=1 rewrites page.htm from the current code.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>

#include "reports/UIReportController.h"
#include "state/SettingsStore.h"
#include "state/UIMainController.h"
#include "state/modGlobal.h"
#include "support/TempDir.h"

namespace cb::testing {
namespace {

namespace fs = std::filesystem;

// Blanks inside the bars are kept, so keys with padding can be written; lines
// that are empty or start with "#" are skipped; Make, Model and Spare are blank.
SlideArray ParseSlideTable(const std::string& text) {
  constexpr Field kColumns[] = {Field::PictureFile, Field::SlideText, Field::Category,
                                Field::Location,    Field::Serial,    Field::Value};
  SlideArray slides(1);
  std::istringstream in(text);
  std::string line, cell;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    SlideRecord r;
    for (Field f : {Field::Spare, Field::Make, Field::Model}) r.Set(f, "");
    std::istringstream cells(line);
    for (Field f : kColumns) r.Set(f, std::getline(cells, cell, '|') ? cell : "");
    slides.push_back(r);
  }
  return slides;
}

// Lines of the form "name = value".
std::map<std::string, std::string> ReadCase(const std::string& path) {
  std::map<std::string, std::string> values;
  std::istringstream in(ReadFile(path));
  std::string name, eq;
  while (in >> name >> eq) std::getline(in >> std::ws, values[name]);
  return values;
}

std::vector<std::string> Cases() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(GOLDEN))
    if (entry.is_directory()) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

// A report controller over g.Slides in a temporary installation, with the
// open file and the date every golden page shows.
class ReportController : public ::testing::Test {
 protected:
  ReportController() {
    mc = std::make_unique<UIMainController>(app.str(), settings, g);
    mc->SlideInformationFilePath("/home/ann/Chattelbook/Files/Household.sif");
    mc->SlideTemplate(1);
  }

  UIReportController& Controller(const std::string& font = "Arial Narrow") {
    ReportLocale locale;
    locale.generalDate = [] { return std::string("22/11/2026 20:07:34"); };
    reports = std::make_unique<UIReportController>(*mc, g.Slides, g.ErrorInfo, locale);
    reports->ReportFont(font);
    return *reports;
  }

  // A page as written, line end included.
  std::string Page(const std::string& name) const { return ReadFile(app / ("Reports/" + name)); }

  TempDir app;
  MemorySettings settings;
  ModGlobal g;
  std::unique_ptr<UIMainController> mc;
  std::unique_ptr<UIReportController> reports;
};

class GoldenPage : public ReportController, public ::testing::WithParamInterface<std::string> {};

TEST_P(GoldenPage, WritesThePageByteForByte) {
  const std::string dir = std::string(GOLDEN) + "/" + GetParam();
  auto c = ReadCase(dir + "/case.txt");
  g.Slides = ParseSlideTable(ReadFile(dir + "/slides.txt"));
  mc->SlideTemplate(std::stoi(c["template"]));
  UIReportController& r = Controller(c["font"]);

  // A sub-report follows its summary, as a click on the summary page does.
  const bool category = c["report"].ends_with("category"), sub = c["report"].starts_with("sub-");
  ASSERT_TRUE(category ? r.CreateReportByCategory() : r.CreateReportByLocation());
  const std::string& key = c["key"];
  ASSERT_TRUE(!sub || (category ? r.CreateSubReportByCategory(key) : r.CreateSubReportByLocation(key)));
  const std::string page = Page(sub ? "Report 2.htm" : "Report1.htm");
  if (std::getenv("CHATTELBOOK_UPDATE_GOLDEN")) WriteFile(dir + "/page.htm", page);
  EXPECT_EQ(page, ReadFile(dir + "/page.htm"));
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenPage, ::testing::ValuesIn(Cases()), [](const auto& row) { return row.param; });

TEST_F(ReportController, DrillDownFilesAreNumberedFromTwoAfterEachSummary) {
  g.Slides = ParseSlideTable(
      "sofa.jpg|Sofa|Furniture|Lounge||1500\ntv.jpg|TV|Electrical|Lounge||900\n"
      "bed.jpg|Bed|Furniture|Bedroom||700\nsofa.jpg|Old sofa|Furniture|Garage||50\n");
  UIReportController& r = Controller();
  ASSERT_TRUE(r.CreateReportByCategory());
  EXPECT_EQ(r.ReportStack(StackOp::CurrentName, ""), "Report 1.htm");
  ASSERT_TRUE(r.CreateSubReportByCategory("Furniture"));
  ASSERT_TRUE(r.CreateSubReportByCategory("Electrical"));
  EXPECT_EQ(r.ReportStack(StackOp::CurrentName, ""), "Report 3.htm");
  EXPECT_NE(Page("Report 3.htm").find("Electrical"), std::string::npos);

  ASSERT_TRUE(r.CreateReportByLocation());
  ASSERT_TRUE(r.CreateSubReportByLocation("Lounge"));
  EXPECT_EQ(r.ReportStack(StackOp::CurrentName, ""), "Report 2.htm");
  EXPECT_NE(Page("Report 2.htm").find("<title>Sub-Report By Location</title>"), std::string::npos);
  // The older third file stays until a later drill-down writes that name.
  EXPECT_NE(Page("Report 3.htm").find("Electrical"), std::string::npos);
}

TEST_F(ReportController, ASumBeyondADoubleFailsTheReport) {
  g.Slides = ParseSlideTable("a.jpg|A|Cars|Yard||1E308\nb.jpg|B|Cars|Yard||1E308\n");
  UIReportController& r = Controller();
  EXPECT_FALSE(r.CreateReportByCategory());
  EXPECT_EQ(g.ErrorInfo[0], "6");
  EXPECT_EQ(g.ErrorInfo[2], "Overflow");
  EXPECT_FALSE(fs::exists(app / "Reports/Report1.htm"));
  // Each value alone is in range, so the sub-report is written.
  EXPECT_TRUE(r.CreateSubReportByCategory("Cars"));
}

}  // namespace
}  // namespace cb::testing
