// Following a page's link: by the title of the page, a sub-report written
// or the slide shown through the windows.

#include <gtest/gtest.h>

#include "ReportFixture.h"
#include "SlideTable.h"

namespace cb::testing {
namespace {

// Records what the controller asks of the windows.
struct FakeWindows : ReportSlideWindows {
  void UnloadSlideWindow() override { calls.push_back("unload"); }
  RtError ShowReportSlide(std::int32_t record) override {
    calls.push_back("show " + std::to_string(record));
    return result;
  }
  void SetStatusText(const std::string& text) override { calls.push_back("status " + text); }

  std::vector<std::string> calls;
  RtError result = RtError::None;
};

class ReportLinks : public ReportFixture {
 protected:
  void SetUp() override {
    g.Slides = ParseSlideTable(
        "sofa.jpg|Sofa|Furniture|Lounge||1500\n"
        "tv.jpg|TV|Electrical|Lounge||900\n"
        "sofa.jpg|Old sofa|Furniture|Garage||50\n");
  }
  UIReportController& Reports() {
    UIReportController& r = Controller();
    r.SlideWindows(&windows);
    return r;
  }
  FakeWindows windows;
};

TEST_F(ReportLinks, ASummarysLinkWritesTheNextSubReport) {
  UIReportController& r = Reports();
  ASSERT_TRUE(r.CreateReportByLocation());
  ASSERT_TRUE(r.FollowLink("Report By Location", "Lounge"));
  EXPECT_NE(Page("Report 2.htm").find("<title>Sub-Report By Location</title>"), std::string::npos);
  EXPECT_NE(Page("Report 2.htm").find(">Lounge<"), std::string::npos);
  ASSERT_TRUE(r.FollowLink("Report By Category", "Electrical"));
  EXPECT_NE(Page("Report 3.htm").find("<title>Sub-Report By Category</title>"), std::string::npos);
  EXPECT_TRUE(windows.calls.empty());
}

TEST_F(ReportLinks, ASubReportsLinkShowsTheFirstSlideOfThatPicture) {
  mc->CurrentImageNumber(3);
  UIReportController& r = Reports();
  for (const char* title :
       {"Sub-Report By Category", "Sub-Report By Location", "Sub-Report By Year", "Sub-Report By Suburb"}) {
    windows.calls.clear();
    ASSERT_TRUE(r.FollowLink(title, "sofa.jpg")) << title;
    EXPECT_EQ(windows.calls, (std::vector<std::string>{"unload", "show 1", "status Slide: 1"})) << title;
    EXPECT_EQ(mc->CurrentImageNumber(), 1);
  }
  windows.calls.clear();
  ASSERT_TRUE(r.FollowLink("Sub-Report By Category", "tv.jpg"));
  EXPECT_EQ(windows.calls, (std::vector<std::string>{"unload", "show 2", "status Slide: 2"}));
}

TEST_F(ReportLinks, FailuresLeaveFalse) {
  UIReportController& r = Reports();
  EXPECT_FALSE(r.FollowLink("Chattelbook Help", "sofa.jpg"));  // a page of no report
  EXPECT_TRUE(windows.calls.empty());
  EXPECT_FALSE(Exists("Report 2.htm"));

  windows.result = RtError::ObjectNotSet;  // no gallery to show the slide
  EXPECT_FALSE(r.FollowLink("Sub-Report By Category", "tv.jpg"));
  EXPECT_EQ(g.ErrorInfo[0], "91");
  EXPECT_EQ(g.ErrorInfo[1], "UIReportController");

  r.SlideWindows(nullptr);
  g.ErrorInfo = {};
  ErrorArray errors;
  EXPECT_FALSE(r.ShowLocationSlide("tv.jpg", errors));
  EXPECT_EQ(errors[0], "91");
}

}  // namespace
}  // namespace cb::testing
