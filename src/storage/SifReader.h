// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The load rules of a Slide Information File, once for the program's load,
// the command-line companion and the fuzz target: what the header's count
// and template allow, and the reading of the records behind them.

#include <cstddef>
#include <functional>

#include "base/Status.h"
#include "model/SlideRecord.h"
#include "storage/Env.h"
#include "storage/SifCodec.h"

namespace cb {

// The largest count a load or save can loop over: the loops count in 16 bits.
inline constexpr long kMaxRecords = 32767;

// What a load makes of the header's slide count, beside `recordsHeld`, the
// slide records the file holds.
enum class CountVerdict {
  Fits,
  NotANumber,     // no leading digit: the load finds no slides
  Unreadable,     // beyond 32 bits: the load fails before storing a setting
  AboveLimit,     // above kMaxRecords: the load fails after storing the settings
  BeyondRecords,  // the slides past the end of the file load empty
};
CountVerdict JudgeCount(const SifHeader& h, long recordsHeld);

// Whether a load fails on the count, whatever the file holds.
bool CountFailsLoad(const SifHeader& h);

// What a load does with the header's template.
enum class TemplateVerdict {
  Take,
  KeepOld,  // the text is no number: the template the program had stays
  Fails,    // too large a number: the load fails
};
TemplateVerdict JudgeTemplate(const SifHeader& h);

// The slide records behind the header in a file of `size` bytes; a record
// cut short counts.
long RecordsHeld(long long size);

// A file as a load reads it.
struct SifRead {
  bool HeaderRead = false;
  SifHeader Header;
  // Element 0 is the header record as read, still scrambled; 1..n the slides, decoded.
  SlideArray Slides = SlideArray(1);
};

// Reads `file` as a load does: the header, then the count's and the
// template's rules in the load's order, then slides 1..count. A failing
// read stops there; `read.Slides` then holds the count's length.
Status ReadSif(RecordFile& file, SifRead& read);

// Slide records as stored, still scrambled: `count` of them back to back at
// `stored`, followed by kUnscrambleSpill readable bytes.
using StoredBlocks = std::function<void(const char* stored, std::size_t count)>;

// The slides a read hands on, by number: those of first..last that the
// header counts. An empty span reads the header alone.
struct SlideSpan {
  long first = 1;
  long last = kMaxRecords;
};

// Reads `file` as ReadSif does but keeps no slide: `take` gets the slides of
// `span` a block at a time, still scrambled, for a reader that decodes each
// field where it wants the text; `read.Slides` holds the header alone. A
// failing read stops there, after the blocks before it.
Status ReadSifStored(RecordFile& file, SifRead& read, const StoredBlocks& take, SlideSpan span = {});

}  // namespace cb
