// The controller's files, names and failures; page bytes are in golden_test,
// links followed through the windows in report_window_test.

#include <gtest/gtest.h>

#include <filesystem>

#include "ReportFixture.h"
#include "SlideTable.h"

namespace cb::testing {
namespace {

class ReportController : public ReportFixture {
 protected:
  void SetUp() override {
    g.Slides = ParseSlideTable(
        "sofa.jpg|Sofa|Furniture|Lounge||1500\n"
        "tv.jpg|TV|Electrical|Lounge||900\n"
        "bed.jpg|Bed|Furniture|Bedroom||700\n"
        "sofa.jpg|Old sofa|Furniture|Garage||50\n");
  }
};

TEST_F(ReportController, DrillDownFilesAreNumberedFromTwoAfterEachSummary) {
  UIReportController& r = Controller();
  ASSERT_TRUE(r.CreateReportByCategory());
  EXPECT_TRUE(Exists("Report1.htm"));
  EXPECT_EQ(r.ReportStack(StackOp::CurrentName, ""), "Report 1.htm");
  ASSERT_TRUE(r.CreateSubReportByCategory("Furniture"));
  ASSERT_TRUE(r.CreateSubReportByCategory("Electrical"));
  EXPECT_TRUE(Exists("Report 2.htm"));
  EXPECT_TRUE(Exists("Report 3.htm"));
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
  EXPECT_FALSE(Exists("Report1.htm"));
  // Each value alone is in range, so the sub-report is written.
  EXPECT_TRUE(r.CreateSubReportByCategory("Cars"));
}

}  // namespace
}  // namespace cb::testing
