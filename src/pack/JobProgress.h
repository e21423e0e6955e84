// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// How a long job (a claim pack, a backup, a restore) tells how far it is and
// learns that the user cancelled. The job calls it at each unit of work and
// at least every few megabytes within one; false stops the job, which then
// leaves nothing behind.

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace cb::pack {

struct JobStep {
  std::string_view unit;  // "Picture", "File", ...
  std::size_t index = 0;  // from 1
  std::size_t count = 0;  // 0 while the count is not yet known
};

using JobProgress = std::function<bool(const JobStep&)>;

// A job nobody watches.
inline bool Unwatched(const JobStep&) { return true; }

// "Picture 132 of 500", or "File 12" while the count is unknown.
std::string StepText(const JobStep& step);

}  // namespace cb::pack
