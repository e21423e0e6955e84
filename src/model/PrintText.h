// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The messages of the report and help viewers' Print.

#include <string>
#include <string_view>

namespace cb {

inline constexpr char kPrintDisabled[] = "The Print command is currently disabled.";
// A print that failed with `description`; `topic` is what the advice tells
// the user to right-click: "report" or "help topic".
std::string PrintErrorText(std::string_view description, std::string_view topic);

}  // namespace cb
