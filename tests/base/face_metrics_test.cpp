// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "base/FaceMetrics.h"

namespace cb {
namespace {

TEST(FaceMetrics, WidthsComeFromTheAdvanceTableByCharacter) {
  const NamedFace* verdana = FindNamedFace("Verdana");
  ASSERT_NE(verdana, nullptr);
  struct Row {
    const char* text;
    double ems;
  };
  const Row rows[] = {
      {"", 0},
      {" ~", 0.351 + 0.818},  // both ends of the table
      {"Slide: F1", 0.683 + 0.274 * 2 + 0.623 + 0.595 + 0.454 + 0.351 + 0.574 + 0.635},
      {"caf\xC3\xA9", 0.520 + 0.600 + 0.351 + 0.635},  // one character beyond the table, two bytes
      {"\t", 0.635},
  };
  for (const Row& r : rows) EXPECT_NEAR(WidthInEms(*verdana, r.text), r.ems, 1e-9) << r.text;
  EXPECT_EQ(StandIns(*verdana).front(), "DejaVu Sans");
  EXPECT_EQ(FindNamedFace("Tahoma"), nullptr);
}

}  // namespace
}  // namespace cb
