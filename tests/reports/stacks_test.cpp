// The viewers' page history.

#include <gtest/gtest.h>

#include "model/WBStack.h"

namespace cb {
namespace {

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
