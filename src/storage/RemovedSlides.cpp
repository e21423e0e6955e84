// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/RemovedSlides.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <set>
#include <string_view>

#include "storage/HistorySteps.h"
#include "storage/SlideHistory.h"

namespace cb {
namespace {

constexpr std::string_view kMagic = "chattelbook removed 1\n";

// The steps that take slides away, and the reason the bin gives for them.
struct BinReason {
  std::string_view step;
  std::string_view reason;
};
constexpr std::array<BinReason, 3> kBinReasons{{
    {steps::kRemoveSlide, "removed"},
    {steps::kRemoveMissing, "picture not found"},
    {steps::kModifyCollection, "Modify Slide Collection"},
}};

std::string_view ReasonOf(std::string_view step, StepWay way) {
  // Undone, any step but an edit (which takes no slide away) may take slides away.
  if (way == StepWay::Undone) return step == steps::kEditSlide ? std::string_view() : "undone";
  for (const BinReason& r : kBinReasons)
    if (r.step == step) return r.reason;
  return {};
}

void PutInt(std::string& out, std::uint64_t v, int bytes) {
  for (int i = 0; i < bytes; ++i) out += static_cast<char>((v >> (8 * i)) & 0xff);
}

void PutRecord(std::string& out, const SlideRecord& r) { out.append(r.bytes().data(), kRecordLength); }

// Reads the bin's bytes; any shortfall marks the whole bin unreadable.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : rest_(bytes) {}
  bool ok() const { return ok_; }
  bool empty() const { return rest_.empty(); }
  std::uint64_t Int(int bytes) {
    std::uint64_t v = 0;
    const std::string_view b = Take(static_cast<std::size_t>(bytes));
    for (std::size_t i = 0; i < b.size(); ++i) v |= std::uint64_t(static_cast<unsigned char>(b[i])) << (8 * i);
    return v;
  }
  SlideRecord Record() {
    SlideRecord r;
    const std::string_view b = Take(kRecordLength);
    if (ok_) std::memcpy(r.bytes().data(), b.data(), kRecordLength);
    return r;
  }
  std::string_view Take(std::size_t n) {
    if (!ok_ || rest_.size() < n) {
      ok_ = false;
      return {};
    }
    const std::string_view b = rest_.substr(0, n);
    rest_.remove_prefix(n);
    return b;
  }

 private:
  std::string_view rest_;
  bool ok_ = true;
};

}  // namespace

std::vector<RemovedSlide> GoneSlides(const SlideArray& before, const SlideArray& after, std::string_view reason,
                                     std::int64_t time) {
  std::map<SlideRecord::Bytes, int> left;  // how many of each record `after` still holds
  for (std::size_t i = 1; i < after.size(); ++i) ++left[after[i].bytes()];
  std::vector<RemovedSlide> gone;
  for (std::size_t i = 1; i < before.size(); ++i) {
    if (auto it = left.find(before[i].bytes()); it != left.end() && it->second > 0) {
      --it->second;
      continue;
    }
    RemovedSlide r{before[i], time, std::string(reason), static_cast<std::int32_t>(i), std::nullopt};
    if (i + 1 < before.size()) r.follower = before[i + 1];
    gone.push_back(std::move(r));
  }
  std::reverse(gone.begin(), gone.end());
  return gone;
}

void PutBack(SlideArray& slides, const std::vector<RemovedSlide>& entries) {
  for (const RemovedSlide& e : entries) {
    auto at = slides.end();
    if (e.follower && slides.size() > 1) {
      const auto found = std::find(slides.begin() + 1, slides.end(), *e.follower);
      if (found != slides.end()) at = found;
    }
    slides.insert(at, e.record);
  }
}

void BinStep(Env& env, const std::string& sifPath, std::string_view step, StepWay way, const SlideArray& before,
             const SlideArray& after, std::int64_t time) {
  const std::string_view reason = ReasonOf(step, way);
  if (reason.empty() && way == StepWay::Made) return;
  RemovedBin bin(env, sifPath);
  if (way != StepWay::Made) bin.Returned(GoneSlides(after, before, {}, 0));
  if (!reason.empty()) bin.Add(GoneSlides(before, after, reason, time));
}

RemovedBin::RemovedBin(Env& env, const std::string& sifPath)
    : env_(env), path_(SlideHistory::FolderOf(sifPath) + "/removed") {
  std::string bytes;
  if (env_.ReadWhole(path_, bytes) != RtError::None || !std::string_view(bytes).starts_with(kMagic)) return;
  Reader in(std::string_view(bytes).substr(kMagic.size()));
  std::vector<RemovedSlide> read;
  while (in.ok() && !in.empty()) {
    RemovedSlide r;
    r.record = in.Record();
    r.time = static_cast<std::int64_t>(in.Int(8));
    r.position = static_cast<std::int32_t>(in.Int(4));
    if (in.Int(1) != 0) r.follower = in.Record();
    r.reason = std::string(in.Take(static_cast<std::size_t>(in.Int(1))));
    read.push_back(std::move(r));
  }
  if (in.ok()) entries_ = std::move(read);
}

RtError RemovedBin::Add(std::vector<RemovedSlide> step) {
  if (step.empty()) return RtError::None;
  entries_.insert(entries_.begin(), std::make_move_iterator(step.begin()), std::make_move_iterator(step.end()));
  if (entries_.size() > kKept) entries_.resize(kKept);
  return Write();
}

std::vector<RemovedSlide> RemovedBin::At(const std::vector<std::size_t>& chosen) const {
  std::vector<RemovedSlide> picked;
  for (std::size_t i : std::set<std::size_t>(chosen.begin(), chosen.end()))
    if (i < entries_.size()) picked.push_back(entries_[i]);
  return picked;
}

RtError RemovedBin::Returned(const std::vector<RemovedSlide>& back) {
  bool found = false;
  for (const RemovedSlide& r : back) {
    const auto it =
        std::find_if(entries_.begin(), entries_.end(), [&](const RemovedSlide& e) { return e.record == r.record; });
    if (it == entries_.end()) continue;
    entries_.erase(it);
    found = true;
  }
  return found ? Write() : RtError::None;
}

RtError RemovedBin::Forget(const std::vector<std::size_t>& chosen) {
  const std::set<std::size_t> gone(chosen.begin(), chosen.end());
  std::vector<RemovedSlide> kept;
  for (std::size_t i = 0; i < entries_.size(); ++i)
    if (!gone.contains(i)) kept.push_back(std::move(entries_[i]));
  entries_ = std::move(kept);
  return Write();
}

RtError RemovedBin::Write() {
  std::string out(kMagic);
  for (const RemovedSlide& r : entries_) {
    PutRecord(out, r.record);
    PutInt(out, static_cast<std::uint64_t>(r.time), 8);
    PutInt(out, static_cast<std::uint32_t>(r.position), 4);
    PutInt(out, r.follower ? 1 : 0, 1);
    if (r.follower) PutRecord(out, *r.follower);
    const std::string_view reason = std::string_view(r.reason).substr(0, 255);
    PutInt(out, reason.size(), 1);
    out += reason;
  }
  return ReplaceFile(env_, path_, out, 0600);
}

}  // namespace cb
