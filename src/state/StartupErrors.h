// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What start-up does with a failure of one of its steps: the step is passed
// over in every case, and some failures are told to the user.

#include <optional>
#include <string>

#include "base/RuntimeError.h"

namespace cb {

struct StartupMessage {
  std::string text;
  std::string title;
};

// The message for a failure of `e` during start-up, or none for the failures
// that pass silently (a missing or unreadable wallpaper among them).
std::optional<StartupMessage> StartupErrorMessage(RtError e, const std::string& appTitle);

}  // namespace cb
