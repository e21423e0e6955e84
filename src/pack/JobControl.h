// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the jobs share to hear their JobProgress: a call every few megabytes
// within one long unit, and the failure a cancel ends in.

#include <cstddef>
#include <string>

#include "base/Status.h"
#include "pack/JobProgress.h"

namespace cb::pack {

// The most a job streams between two calls: about a tenth of a second of
// compressing, so a cancel is heard at once.
inline constexpr std::size_t kBytesBetweenCalls = 4u << 20;

// Calls the progress with one unit's step again each time another
// kBytesBetweenCalls of it have passed.
class StepBeat {
 public:
  StepBeat(const JobProgress& progress, const JobStep& step) : progress_(progress), step_(step) {}

  // Counts `n` more bytes; false once the user has cancelled.
  bool Passed(std::size_t n) {
    bytes_ += n;
    if (bytes_ >= kBytesBetweenCalls && !cancelled_) {
      bytes_ = 0;
      cancelled_ = !progress_(step_);
    }
    return !cancelled_;
  }
  bool cancelled() const { return cancelled_; }

 private:
  const JobProgress& progress_;
  JobStep step_;
  std::size_t bytes_ = 0;
  bool cancelled_ = false;
};

// What a cancelled job answers, `path` being what it was writing or reading.
inline Status Cancelled(const std::string& path) { return Status::Described(path + ": cancelled"); }

}  // namespace cb::pack
