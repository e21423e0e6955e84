// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The program's entry point and the start-up helpers.

#include <QStringList>

#include <string>

namespace cb {

class SettingsStore;

// Runs the program on its command line (Qt's own options already taken):
// starts it, or hands the file to the program already running on the same
// data folder. The process's exit status.
int RunProgram(const QStringList& args);

// Starts the program from `appPath` with `settings`, which must outlive the
// program's state. False when the start ended the program (a refused login).
bool Main(const std::string& appPath, SettingsStore& settings);

// Lets window events run until the clock's second of the day passes
// `seconds` beyond the present one, or the splash is dismissed.
void WaitSeconds(int seconds);

}  // namespace cb
