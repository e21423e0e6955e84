#include <gtest/gtest.h>

#include "help/HelpViewerRules.h"

namespace cb {
namespace {

// The page shown for a file that cannot be read names it, and a name made
// of markup stays text.
TEST(HelpViewerRules, MissingPageShowsTheNameAsText) {
  const std::string page = MissingHelpPage("/opt/a&b/<i>help099.htm");
  EXPECT_NE(page.find("<title>Page not found</title>"), std::string::npos);
  EXPECT_NE(page.find("/opt/a&amp;b/&lt;i&gt;help099.htm"), std::string::npos);
  EXPECT_EQ(page.find("<i>help099"), std::string::npos);
}

}  // namespace
}  // namespace cb
