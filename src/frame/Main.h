// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The program's entry point and the start-up helpers.

#include <string>

namespace cb {

class SettingsStore;

// Starts the program from the directory of the executable with the user's
// settings. False when the start ended the program (a refused login).
bool Main();

// The same from `appPath` with `settings`, which must outlive the program's state.
bool Main(const std::string& appPath, SettingsStore& settings);

// Lets window events run until the clock's second of the day passes
// `seconds` beyond the present one, or the splash is dismissed.
void WaitSeconds(int seconds);

}  // namespace cb
