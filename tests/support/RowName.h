// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Names each row of a parameterised suite by its `name` member, so ctest
// lists "Rows/EmptyValue" rather than "Rows/3".

#include <gtest/gtest.h>

#include <string>

namespace cb::testing {

struct RowName {
  template <class Row>
  std::string operator()(const ::testing::TestParamInfo<Row>& row) const {
    return std::string(row.param.name);
  }
};

}  // namespace cb::testing
