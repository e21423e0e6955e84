// SPDX-License-Identifier: GPL-3.0-or-later
#include "gallery/ScrollRules.h"

#include <algorithm>
#include <array>
#include <limits>

namespace cb {
namespace {

constexpr std::int32_t kPage = 15;
constexpr std::int32_t kColumn = 3;

enum class Guard { None, RoofBelowN, PageBeforeEnd, BaseNotFirst };
// What a failed guard does to the bar and to L.
enum class OnRefusal { None, PushBack, TakeValue };

using Move = RecordWindow (*)(const RecordWindow& w, std::int32_t d, std::int32_t v, std::int32_t n);

struct Rule {
  ScrollRow row;
  Guard guard;
  OnRefusal onRefusal;
  RefillKind refill;
  std::int32_t offset;
  // Offset rows move the window after their refill, jumps before theirs.
  Move move;
  // The page step right may leave Roof above N; its status text hides that.
  bool capStatusRoof;
};

RecordWindow Stay(const RecordWindow& w, std::int32_t, std::int32_t, std::int32_t) { return w; }

RecordWindow StepRight(const RecordWindow& w, std::int32_t, std::int32_t, std::int32_t n) {
  const std::int32_t roof = w.Roof + kColumn <= n ? w.Roof + kColumn : n;
  return {w.Base + kColumn, roof, w.CurrentImageNumber + kColumn};
}

RecordWindow PageRight(const RecordWindow& w, std::int32_t, std::int32_t, std::int32_t) {
  return {w.Base + kPage, w.Roof + kPage, w.CurrentImageNumber + kPage};
}

RecordWindow StepLeft(const RecordWindow& w, std::int32_t, std::int32_t, std::int32_t) {
  return {w.Base - kColumn, w.Roof - kColumn, w.CurrentImageNumber - kColumn};
}

RecordWindow PageLeft(const RecordWindow& w, std::int32_t, std::int32_t, std::int32_t) {
  if (w.Base - kPage > 1) return {w.Base - kPage, w.Base - 1, 1};
  return {1, kPage, 1};
}

// A jump left takes the bar's value itself as the new Base.
RecordWindow JumpLeft(const RecordWindow& w, std::int32_t, std::int32_t v, std::int32_t) {
  return {v, v + kPage - 1, w.CurrentImageNumber};
}

// A jump right adds the difference, and a full last page stops it at N.
RecordWindow JumpRight(const RecordWindow& w, std::int32_t d, std::int32_t, std::int32_t n) {
  RecordWindow next{w.Base + d, w.Base + d + kPage - 1, w.CurrentImageNumber};
  if (next.Roof > n) {
    next.Roof = n;
    next.Base = n - (kPage - 1);
  }
  return next;
}

constexpr std::array<Rule, 7> kRules{{
    {ScrollRow::Stay, Guard::None, OnRefusal::None, RefillKind::None, 0, Stay, false},
    {ScrollRow::StepRight, Guard::RoofBelowN, OnRefusal::PushBack, RefillKind::Offset, +kColumn,
     StepRight, false},
    {ScrollRow::PageRight, Guard::PageBeforeEnd, OnRefusal::TakeValue, RefillKind::Offset, +kPage,
     PageRight, true},
    {ScrollRow::StepLeft, Guard::BaseNotFirst, OnRefusal::TakeValue, RefillKind::Offset, -kColumn,
     StepLeft, false},
    {ScrollRow::PageLeft, Guard::BaseNotFirst, OnRefusal::TakeValue, RefillKind::Offset, -kPage,
     PageLeft, false},
    {ScrollRow::JumpLeft, Guard::None, OnRefusal::None, RefillKind::Direct, 0, JumpLeft, false},
    {ScrollRow::JumpRight, Guard::RoofBelowN, OnRefusal::TakeValue, RefillKind::Direct, 0,
     JumpRight, false},
}};

constexpr bool RulesFollowRows() {
  for (std::size_t i = 0; i < kRules.size(); ++i)
    if (static_cast<std::size_t>(kRules[i].row) != i) return false;
  return true;
}
static_assert(RulesFollowRows(), "kRules is indexed by ScrollRow");

// The steps that have a rule of their own; every other step is a jump.
struct ExactStep {
  std::int32_t d;
  ScrollRow row;
};
constexpr std::array<ExactStep, 5> kExactSteps{{
    {0, ScrollRow::Stay},
    {+1, ScrollRow::StepRight},
    {+kPage, ScrollRow::PageRight},
    {-1, ScrollRow::StepLeft},
    {-kPage, ScrollRow::PageLeft},
}};

ScrollRow RowFor(std::int32_t d) {
  for (const auto& s : kExactSteps)
    if (s.d == d) return s.row;
  return d < 0 ? ScrollRow::JumpLeft : ScrollRow::JumpRight;
}

const Rule& RuleFor(ScrollRow row) { return kRules[static_cast<std::size_t>(row)]; }

bool Holds(Guard guard, const RecordWindow& w, std::int32_t n) {
  switch (guard) {
    case Guard::None: return true;
    case Guard::RoofBelowN: return w.Roof < n;
    case Guard::PageBeforeEnd: return w.Base + (kPage - 1) < n;
    case Guard::BaseNotFirst: return w.Base != 1;
  }
  return true;
}

}  // namespace

RecordWindow OpeningWindow(std::int32_t n) {
  return {n != 0 ? 1 : 0, std::min(n, kPage), 1};
}

ScrollRange GalleryScrollRange(std::int32_t n) {
  ScrollRange range;
  range.Max = n % kPage == 0 ? n : (n / kPage) * kPage + kPage;
  return range;
}

ToolkitBarRange MapToToolkitBar(const ScrollRange& range) {
  constexpr std::int32_t kBarLimit = std::numeric_limits<std::int16_t>::max();
  return {static_cast<int>(range.Min), static_cast<int>(std::min(range.Max, kBarLimit)),
          static_cast<int>(range.SmallChange), static_cast<int>(range.LargeChange)};
}

std::int16_t HandlerValue(int toolkitValue) {
  return static_cast<std::int16_t>(std::clamp<int>(toolkitValue, std::numeric_limits<std::int16_t>::min(),
                                                   std::numeric_limits<std::int16_t>::max()));
}

std::int32_t LoadScrollValue(const ToolkitBarRange& bar) { return bar.minimum; }

CellFill FillFor(const Refill& refill, std::int32_t record, std::int32_t n) {
  // The header lies below the first slide and is never shown as one.
  if (record < 1) return CellFill::OutOfRange;
  if (record <= n) return CellFill::Load;
  // The column and page refills test against N; a jump's refill does not.
  return refill.kind == RefillKind::Offset ? CellFill::Empty : CellFill::OutOfRange;
}

ScrollStep BeginScroll(const RecordWindow& window, std::int32_t scrollValue, std::int16_t v,
                       std::int32_t n) {
  const std::int32_t d = v - scrollValue;
  const Rule& rule = RuleFor(RowFor(d));
  ScrollStep step;
  step.row = rule.row;
  step.window = window;
  step.scrollValue = v;
  if (!Holds(rule.guard, window, n)) {
    step.refused = true;
    if (rule.onRefusal == OnRefusal::PushBack) {
      // L already holds a value the bar once had, so it fits the bar.
      step.pushBack = static_cast<std::int16_t>(scrollValue);
      step.scrollValue = scrollValue;
    }
    return step;
  }
  step.refill.kind = rule.refill;
  if (rule.refill == RefillKind::Direct) step.window = rule.move(window, d, v, n);
  if (rule.refill != RefillKind::None) {
    step.refill.first = step.window.Base;
    step.refill.last = step.window.Roof;
    step.refill.offset = rule.offset;
  }
  return step;
}

ScrollFinish FinishScroll(const ScrollStep& step, const RecordWindow& live, std::int32_t n) {
  const Rule& rule = RuleFor(step.row);
  const RecordWindow window =
      rule.refill == RefillKind::Offset ? rule.move(live, 0, 0, n) : live;
  const std::int32_t roof = rule.capStatusRoof && window.Roof > n ? n : window.Roof;
  return {window, roof};
}

std::string GalleryStatusText(std::int32_t base, std::int32_t roof, std::int32_t n) {
  return "Slides: " + std::to_string(base) + " to " + std::to_string(roof) + " of " +
         std::to_string(n);
}

}  // namespace cb
