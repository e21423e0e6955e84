// The two histories: the numbered report files and the viewers' pages.

#include <gtest/gtest.h>

#include "model/WBStack.h"
#include "reports/ReportPages.h"

namespace cb {
namespace {

struct Step {
  std::int32_t operation;
  const char* fileName;
  const char* result;
  std::int32_t current;
};

TEST(ReportStack, NumbersTheFilesOfADrillDown) {
  const Step steps[] = {
      {8, "", "Report 1.htm", 0},  // before the first summary
      {9, "/r/Report1.htm", "/r/Report1.htm", 1},
      {7, "", "Report 1.htm", 1},  // a name nothing writes
      {8, "", "Report 2.htm", 1},
      {0, "/r/Report 2.htm", "/r/Report 2.htm", 2},
      {8, "", "Report 3.htm", 2},
      {0, "/r/Report 3.htm", "/r/Report 3.htm", 3},
      {-1, "", "/r/Report 2.htm", 2},
      {-1, "", "/r/Report1.htm", 1},
      {-1, "", "", 1},  // not below the first
      {1, "", "/r/Report 2.htm", 2},
      {0, "/r/other.htm", "/r/other.htm", 3},  // a push below the end overwrites
      {1, "", "", 3},                          // nothing after the end
      {5, "x", "", 3},
      {9, "/r/Report1.htm", "/r/Report1.htm", 1},  // a new summary restarts the list
      {8, "", "Report 2.htm", 1},
  };
  ReportPages pages;
  for (const auto& s : steps) {
    const auto op = static_cast<StackOp>(s.operation);  // the numbers callers have always used
    EXPECT_EQ(pages.Stack(op, s.fileName), s.result) << s.operation << " " << s.fileName;
    EXPECT_EQ(pages.Current(), s.current) << s.operation << " " << s.fileName;
  }
  EXPECT_EQ(pages.Items().size(), 2u);
}

TEST(ReportStack, NegativeNumbersKeepTheirSign) {
  EXPECT_EQ(BlankLedDecimal(-2), "-2");
  EXPECT_EQ(BlankLedDecimal(0), " 0");
}

struct WBStep {
  std::int32_t operation;
  const char* fileName;
  const char* result;
  std::int32_t current;
  std::int32_t total;
};

TEST(WBStack, BackForwardAndPushDropsTheForwardHistory) {
  const WBStep steps[] = {
      {2, "", "", 0, 0},
      {1, "", "", 0, 0},  // an empty start changes nothing
      {1, "a", "a", 1, 1},
      {3, "a", "a", 2, 2},  // the viewer pushes its first page once more
      {3, "b", "b", 3, 3},
      {3, "", "", 3, 3},
      {2, "", "a", 2, 3},
      {2, "", "a", 1, 3},
      {2, "", "a", 1, 3},  // not below the first
      {4, "", "a", 2, 3},
      {3, "c", "c", 3, 3},  // "b" is gone
      {2, "", "a", 2, 3},
      {4, "", "c", 3, 3},
      {4, "", "", 4, 3},  // forward is unchecked
      {1, "z", "z", 1, 1},
      {9, "q", "z", 1, 1},
  };
  WBStack stack;
  for (const auto& s : steps) {
    EXPECT_EQ(stack.GetStackFile(s.operation, s.fileName), s.result) << s.operation << " " << s.fileName;
    EXPECT_EQ(stack.CurrentItem(), s.current) << s.operation << " " << s.fileName;
    EXPECT_EQ(stack.TotalItems(), s.total) << s.operation << " " << s.fileName;
  }
  EXPECT_EQ(stack.FileName(), "");
}

}  // namespace
}  // namespace cb
