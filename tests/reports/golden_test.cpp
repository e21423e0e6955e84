// Report pages compared byte for byte with the pages under golden/<case>/.
// Each case holds slides.txt (see SlideTable.h), case.txt (report, key,
// template, font) and page.htm, the file the report must write.
// CHATTELBOOK_UPDATE_GOLDEN=1 rewrites page.htm from the current code.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>

#include "ReportFixture.h"
#include "SlideTable.h"

namespace cb::testing {
namespace {

namespace fs = std::filesystem;

std::map<std::string, std::string> ReadCase(const std::string& path) {
  std::map<std::string, std::string> values;
  std::istringstream in(ReadFile(path));
  std::string line;
  while (std::getline(in, line)) {
    const auto eq = line.find('=');
    if (line.empty() || line[0] == '#' || eq == std::string::npos) continue;
    values[line.substr(0, line.find_last_not_of(' ', eq - 1) + 1)] = line.substr(line.find_first_not_of(' ', eq + 1));
  }
  return values;
}

std::vector<std::string> Cases() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(GOLDEN))
    if (entry.is_directory()) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

class GoldenPage : public ReportFixture, public ::testing::WithParamInterface<std::string> {};

TEST_P(GoldenPage, WritesThePageByteForByte) {
  const std::string dir = std::string(GOLDEN) + "/" + GetParam();
  auto c = ReadCase(dir + "/case.txt");
  g.Slides = ParseSlideTable(ReadFile(dir + "/slides.txt"));
  mc->SlideTemplate(std::stoi(c["template"]));
  UIReportController& r = Controller(c["font"]);

  const std::string& report = c["report"];
  std::string written = "Report1.htm";
  if (report == "category") {
    ASSERT_TRUE(r.CreateReportByCategory());
  } else if (report == "location") {
    ASSERT_TRUE(r.CreateReportByLocation());
  } else {
    // A sub-report follows its summary, as a click on the summary page does.
    ASSERT_TRUE(report == "sub-category" ? r.CreateReportByCategory() : r.CreateReportByLocation());
    ASSERT_TRUE(report == "sub-category" ? r.CreateSubReportByCategory(c["key"])
                                         : r.CreateSubReportByLocation(c["key"]));
    written = "Report 2.htm";
  }
  const std::string page = Page(written);
  if (std::getenv("CHATTELBOOK_UPDATE_GOLDEN")) WriteFile(dir + "/page.htm", page);
  EXPECT_EQ(page, ReadFile(dir + "/page.htm"));
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenPage, ::testing::ValuesIn(Cases()),
                         [](const auto& row) { return row.param; });

}  // namespace
}  // namespace cb::testing
