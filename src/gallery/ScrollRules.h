// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What one change of the gallery's scroll bar does to the window over the
// records. The bar does not scroll pixels: its value V is compared with L,
// its value when the handler last completed, and the step D = V - L picks
// one of seven rules. A small step moves one column (three records), a large
// step a page (fifteen), anything else is a jump. The rules differ by
// direction on purpose. Every decision is O(1); a refill touches at most
// fifteen cells, whatever the size of the collection.
//
// A step runs in two halves around the refill of the cells, because the
// missing-file protocol may remove records and move Roof while the cells load:
//   step = BeginScroll(...)      guards, refusal, jumps move the window
//   refill the cells             ClearSlideImages, then step.refill cell by cell
//   FinishScroll(step, ...)      column and page steps move the window, with
//                                Base, Roof and N as they stand after the refill

#include <cstdint>
#include <optional>
#include <string>

namespace cb {

// The records on show: CurrentlyActiveBase, CurrentlyActiveRoof and
// CurrentImageNumber of the application controller.
struct RecordWindow {
  std::int32_t Base = 0;
  std::int32_t Roof = 0;
  std::int32_t CurrentImageNumber = 0;
  friend bool operator==(const RecordWindow&, const RecordWindow&) = default;
};

// The window a load opens on: Base 1 (0 for an empty collection), Roof the
// lesser of 15 and N, CurrentImageNumber 1.
RecordWindow OpeningWindow(std::int32_t n);
// The bar is enabled only when the collection outgrows one page.
constexpr bool ScrollBarEnabled(std::int32_t n) { return n > 15; }
// Roof as the gallery's activation repairs it after a page step overshot N.
constexpr std::int32_t RoofOnActivate(std::int32_t roof, std::int32_t n) {
  return roof > n ? n : roof;
}

// The bar's range as the load sets it when N > 15: Min 1, Max N rounded up
// to whole pages of fifteen, SmallChange 1, LargeChange 15. L starts at 0.
struct ScrollRange {
  std::int32_t Min = 1;
  std::int32_t Max = 0;
  std::int32_t SmallChange = 1;
  std::int32_t LargeChange = 15;
};
ScrollRange GalleryScrollRange(std::int32_t n);

// The toolkit bar standing for the gallery's bar runs from Min, as the load
// sets it, so a drag of the thumb to the left end gives V = 1 and a jump left
// can never make the header record (element 0) the first on show. A toolkit
// bar cannot stand below its minimum, so a fresh bar stands at Min, and L
// starts there rather than at 0 (LoadScrollValue): the first small step right
// still reaches the handler as D = +1, and a large step left from the second
// page as D = -15. Max is held to 32767, the bar's 16-bit limit, which a page
// count rounded up from 32761 slides or more would pass.
// The bar must report only completed moves (no tracking while dragged), and
// its write-back must not be blocked: the nested run of the handler is wanted.
struct ToolkitBarRange {
  int minimum = 0;
  int maximum = 0;
  int singleStep = 1;
  int pageStep = 15;
};
ToolkitBarRange MapToToolkitBar(const ScrollRange& range);
// The value V the handler works with, from the toolkit bar's value.
std::int16_t HandlerValue(int toolkitValue);
// L after a load: where the fresh toolkit bar stands.
std::int32_t LoadScrollValue(const ToolkitBarRange& bar);

// The seven rules, by the step D = V - L.
enum class ScrollRow {
  Stay,       // D = 0: only the status text
  StepRight,  // D = +1: one column right, while Roof < N
  PageRight,  // D = +15: one page right, while Base + 14 < N
  StepLeft,   // D = -1: one column left, unless Base is 1
  PageLeft,   // D = -15: one page left, unless Base is 1
  JumpLeft,   // any other D < 0: Base := V
  JumpRight,  // any other D > 0, while Roof < N: Base moves by D, capped at the end
};

enum class RefillKind {
  None,    // nothing is reloaded
  Offset,  // cells show the old window's records moved by `offset`
  Direct,  // cells show the new window's records
};

// The cells a step reloads. After ClearSlideImages, cell i (from 1 to
// Cells()) shows RecordFor(i); cells past Cells() stay as cleared, even when
// the window then says otherwise.
struct Refill {
  RefillKind kind = RefillKind::None;
  std::int32_t first = 0;  // loop over records first..last, fixed before it runs
  std::int32_t last = -1;
  std::int32_t offset = 0;
  std::int32_t Cells() const { return last >= first ? last - first + 1 : 0; }
  std::int32_t RecordFor(int cell) const { return first + cell - 1 + offset; }
};

// What the refill does with one cell, given N as it stands at that moment.
enum class CellFill {
  Load,        // load the picture and tool tip of the slide
  Empty,       // no picture, tool tip "Empty"
  OutOfRange,  // the record is no slide (the header, 0, included): the cell
               // stays as cleared, and frmLoading is unloaded for the rest of the step
};
CellFill FillFor(const Refill& refill, std::int32_t record, std::int32_t n);

// The first half of a step: what the bar's change asks of the gallery.
struct ScrollStep {
  ScrollRow row = ScrollRow::Stay;
  // The handler leaves at once: no refill, no status text.
  bool refused = false;
  // Before leaving, write this value into the bar (the column step right at
  // the end pushes the bar back). The write raises the change event again,
  // and that nested run finds D = 0.
  std::optional<std::int16_t> pushBack;
  // L once the handler returns.
  std::int32_t scrollValue = 0;
  // The window during the refill: jumps have already moved it.
  RecordWindow window;
  Refill refill;
};

// Decides the step for bar value `v`, with L `scrollValue`, the window on
// show and N slides. Touches nothing.
ScrollStep BeginScroll(const RecordWindow& window, std::int32_t scrollValue, std::int16_t v,
                       std::int32_t n);

// The second half, after the refill of a step that was not refused.
struct ScrollFinish {
  RecordWindow window;       // to store back in the application controller
  std::int32_t statusRoof;   // the Roof the status text shows
};
// `live` and `n` are the window and N as they stand after the refill.
ScrollFinish FinishScroll(const ScrollStep& step, const RecordWindow& live, std::int32_t n);

// The main window's status text for the records on show, e.g.
// "Slides: 1 to 15 of 20".
std::string GalleryStatusText(std::int32_t base, std::int32_t roof, std::int32_t n);

}  // namespace cb
