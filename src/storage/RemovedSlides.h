// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The bin of a slide file: the slides taken out of it, newest first, kept in
// its history folder as the file "removed", so that they can be put back
// where they stood long after the step that took them is out of reach.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "model/SlideRecord.h"
#include "storage/Env.h"

namespace cb {

struct RemovedSlide {
  SlideRecord record;                   // its fields, as in memory
  std::int64_t time = 0;                // seconds since 1970, UTC
  std::string reason;                   // "removed", "picture not found", ...
  std::int32_t position = 0;            // its record number then
  std::optional<SlideRecord> follower;  // the record after it then; none when it was last
};

// The slides of `before` (from 1) whose bytes are gone from `after`, as
// entries of one step: the last first, so that putting them back in that
// order finds each one's follower in place.
std::vector<RemovedSlide> GoneSlides(const SlideArray& before, const SlideArray& after, std::string_view reason,
                                     std::int64_t time);

// Puts `entries` back into `slides`, in their order: each just before the
// first record equal to its follower, else at the end.
void PutBack(SlideArray& slides, const std::vector<RemovedSlide>& entries);

// How a step met the file: made by a change, undone, or redone.
enum class StepWay { Made, Undone, Redone };

// Keeps the bin of `sifPath` in step with step `step`, which went `way` from
// the slides `before` to `after`: the slides it brought back leave the bin,
// and those it took away enter it with their reason ("removed", "undone",
// ...). The bin is read only when the step can concern it.
void BinStep(Env& env, const std::string& sifPath, std::string_view step, StepWay way, const SlideArray& before,
             const SlideArray& after, std::int64_t time);

class RemovedBin {
 public:
  static constexpr std::size_t kKept = 1000;  // the oldest go beyond it

  // Reads the bin of `sifPath`; a missing or unreadable one is empty.
  RemovedBin(Env& env, const std::string& sifPath);

  const std::vector<RemovedSlide>& Entries() const { return entries_; }

  // Puts `step` (one step's slides) in front and writes the bin.
  RtError Add(std::vector<RemovedSlide> step);
  // Takes out the newest entry of each slide of `back` (an undo or redo
  // brought them back) and writes the bin when one was there.
  RtError Returned(const std::vector<RemovedSlide>& back);
  // Takes the entries at `chosen` out of the bin and writes it.
  RtError Forget(const std::vector<std::size_t>& chosen);
  // The entries at `chosen`, in bin order.
  std::vector<RemovedSlide> At(const std::vector<std::size_t>& chosen) const;

 private:
  RtError Write();

  Env& env_;
  std::string path_;
  std::vector<RemovedSlide> entries_;
};

}  // namespace cb
