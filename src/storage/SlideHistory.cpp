// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/SlideHistory.h"

#include <algorithm>
#include <bit>
#include <chrono>
#include <cstdio>
#include <cstring>

#include "base/Words.h"
#include "model/SlideRecord.h"
#include "storage/KeptPictures.h"

namespace cb {
namespace {

constexpr std::string_view kSource = "SlideHistory";
constexpr unsigned kNewFileMode = 0666;
constexpr std::string_view kStepMagic = "CBHSTEP1", kCursorMagic = "CBHCURS1";
constexpr std::string_view kChangedElsewhere = "The file is not as its history left it.";
constexpr std::string_view kUnreadable = "The file's history cannot be read; it was set aside.";
// Beyond this many records removed and added, a change is kept as one hunk
// from its first difference to its last: the search grows with the square
// of this, and the hunk is no larger than the two versions.
constexpr int kMaxEdits = 512;

// ---- Hashing: 16 bytes at a time through a 64 x 64 -> 128-bit multiply, as wyhash does.

__extension__ using Wide = unsigned __int128;
constexpr std::uint64_t kP0 = 0xa0761d6478bd642full, kP1 = 0xe7037ed1a0b428dbull, kP2 = 0x8ebc6af09c88c6e3ull;

std::uint64_t Fold(std::uint64_t a, std::uint64_t b) {
  const Wide r = static_cast<Wide>(a) * b;
  return static_cast<std::uint64_t>(r) ^ static_cast<std::uint64_t>(r >> 64);
}

// Little-endian whatever the machine, so that a history reads the same everywhere.
std::uint64_t Word(const char* p) {
  const std::uint64_t w = words::Load(p);
  if constexpr (std::endian::native == std::endian::big) return __builtin_bswap64(w);
  return w;
}

// Two lanes of 16 bytes each, which the processor multiplies side by side.
std::uint64_t HashBytes(std::string_view b, std::uint64_t seed) {
  const char* p = b.data();
  std::size_t n = b.size();
  std::uint64_t h = Fold(seed ^ kP0, b.size() ^ kP1), g = h ^ kP2;
  for (; n > 32; p += 32, n -= 32) {
    h = Fold(Word(p) ^ kP1, Word(p + 8) ^ h);
    g = Fold(Word(p + 16) ^ kP2, Word(p + 24) ^ g);
  }
  char last[32] = {};
  if (n) std::memcpy(last, p, n);
  h = Fold(Word(last) ^ kP1, Word(last + 8) ^ h);
  g = Fold(Word(last + 16) ^ kP2, Word(last + 24) ^ g);
  return Fold(h ^ kP2, g ^ kP0);
}

// The hash of a whole file, made of its records' hashes; `records` gets those.
std::uint64_t FileHash(std::string_view file, std::vector<std::uint64_t>* records = nullptr) {
  std::uint64_t h = Fold(file.size() ^ kP2, kP1);
  for (std::size_t at = 0; at < file.size(); at += kRecordLength) {
    const std::uint64_t r = HashBytes(file.substr(at, kRecordLength), kP2);
    if (records) records->push_back(r);
    h = Fold(h ^ r, kP0);
  }
  return h;
}

// ---- Little-endian fields, and a hash at the end that a torn or damaged file fails.

class Out {
 public:
  explicit Out(std::string_view magic) : s_(magic) {}
  Out& U64(std::uint64_t v) {
    for (int i = 0; i < 8; ++i) s_ += static_cast<char>(v >> (8 * i));
    return *this;
  }
  Out& I32(std::int32_t v) { return U64(static_cast<std::uint32_t>(v)); }
  Out& Text(std::string_view t) {
    U64(t.size());
    s_ += t;
    return *this;
  }
  std::string Sealed() {
    U64(HashBytes(s_, kP1));
    return std::move(s_);
  }

 private:
  std::string s_;
};

class In {
 public:
  In(std::string_view s, std::string_view magic) {
    ok_ = s.size() >= magic.size() + 8 && s.starts_with(magic);
    if (!ok_) return;
    body_ = s.substr(0, s.size() - 8);
    pos_ = magic.size();
    ok_ = HashBytes(body_, kP1) == U64At(body_.size());
  }
  std::uint64_t U64() {
    if (!ok_ || body_.size() - pos_ < 8) return ok_ = false, 0;
    const std::uint64_t v = U64At(pos_);
    pos_ += 8;
    return v;
  }
  std::int32_t I32() {
    const std::uint64_t v = U64();
    if (v > 0xffffffffu) ok_ = false;
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(v));
  }
  std::string_view Raw(std::uint64_t n) {
    if (!ok_ || body_.size() - pos_ < n) return ok_ = false, std::string_view();
    const std::string_view v = body_.substr(pos_, n);
    pos_ += n;
    return v;
  }
  std::string_view Text() { return Raw(U64()); }
  bool ok() const { return ok_; }
  bool Finished() const { return ok_ && pos_ == body_.size(); }

 private:
  std::uint64_t U64At(std::size_t at) const {
    const std::string_view whole(body_.data(), body_.size() + 8);
    std::uint64_t v = 0;
    for (int i = 7; i >= 0; --i) v = v << 8 | static_cast<unsigned char>(whole[at + static_cast<std::size_t>(i)]);
    return v;
  }

  std::string_view body_;
  std::size_t pos_ = 0;
  bool ok_ = false;
};

// ---- The difference of two files, record by record.

struct Range {
  std::size_t oldAt, oldEnd, newAt, newEnd;  // records [at, end) of the old file and the new
};

// The bytes of records [at, end) of `file`, the last one maybe short.
std::string_view RecordBytes(std::string_view file, std::size_t at, std::size_t end) {
  return file.substr(std::min(at * kRecordLength, file.size()), (end - at) * kRecordLength);
}

// Where the furthest path of d edits on diagonal k (x - y) starts its run of
// equal records, from those of d - 1 edits (`prev`, diagonals -(d-1)..d-1 at
// prev[k + d - 1]): one record added (down) or removed (right) further, and
// never off the grid of n old and m new records. x is -1 when neither fits.
struct Start {
  int x;
  bool down;
};
Start StartOf(const int* prev, int d, int k, int n, int m) {
  if (d == 0) return {0, true};
  const auto fits = [&](int x) { return x >= 0 && x <= n && x - k >= 0 && x - k <= m; };
  const int down = k < d && prev[k + d] >= 0 ? prev[k + d] : -1;
  const int right = k > -d && prev[k + d - 2] >= 0 ? prev[k + d - 2] + 1 : -1;
  if (fits(down) && (!fits(right) || down >= right)) return {down, true};
  return {fits(right) ? right : -1, false};
}

// Myers' O(ND) search, after the equal records at both ends are set apart.
std::vector<Range> MiddleRanges(const std::vector<std::uint64_t>& ha, const std::vector<std::uint64_t>& hb) {
  const auto same = [&](std::size_t i, std::size_t j) { return ha[i] == hb[j]; };
  std::size_t p = 0, s = 0;
  while (p < ha.size() && p < hb.size() && same(p, p)) ++p;
  while (s < ha.size() - p && s < hb.size() - p && same(ha.size() - 1 - s, hb.size() - 1 - s)) ++s;
  const int n = static_cast<int>(ha.size() - p - s), m = static_cast<int>(hb.size() - p - s);
  if (n == 0 && m == 0) return {};

  // trace[d * d + d + k]: the furthest x on diagonal k after d edits, -1 where none.
  std::vector<int> trace;
  int edits = -1;
  for (int d = 0; d <= kMaxEdits && edits < 0; ++d) {
    const std::size_t base = static_cast<std::size_t>(d) * static_cast<std::size_t>(d);
    trace.resize(base + 2 * static_cast<std::size_t>(d) + 1, -1);
    const int* prev = d ? &trace[base - (2 * static_cast<std::size_t>(d) - 1)] : nullptr;
    for (int k = -d; k <= d && edits < 0; k += 2) {
      int x = StartOf(prev, d, k, n, m).x;
      if (x < 0) continue;
      while (x < n && x - k < m && same(p + static_cast<std::size_t>(x), p + static_cast<std::size_t>(x - k))) ++x;
      trace[base + static_cast<std::size_t>(d + k)] = x;
      if (x == n && x - k == m) edits = d;
    }
  }
  if (edits < 0) return {{p, p + static_cast<std::size_t>(n), p, p + static_cast<std::size_t>(m)}};

  // Back from the end: each edit is one record removed or added; adjoining ones make one range.
  std::vector<Range> ranges;
  int x = n, y = m;
  for (int d = edits; d > 0; --d) {
    const int k = x - y;
    const std::size_t prevBase = static_cast<std::size_t>(d - 1) * static_cast<std::size_t>(d - 1);
    const Start start = StartOf(&trace[prevBase], d, k, n, m);
    x = start.down ? start.x : start.x - 1;
    y = start.down ? start.x - k - 1 : start.x - k;
    const auto ox = p + static_cast<std::size_t>(x), oy = p + static_cast<std::size_t>(y);
    const Range edit{ox, ox + !start.down, oy, oy + start.down};
    if (!ranges.empty() && ranges.back().oldAt == edit.oldEnd && ranges.back().newAt == edit.newEnd)
      ranges.back().oldAt = edit.oldAt, ranges.back().newAt = edit.newAt;
    else
      ranges.push_back(edit);
  }
  std::reverse(ranges.begin(), ranges.end());
  return ranges;
}

// Whether the records outside `ranges` are alike byte for byte, as their hashes say.
bool AlikeBetween(std::string_view a, std::string_view b, const std::vector<Range>& ranges) {
  std::size_t oldAt = 0, newAt = 0;
  const auto alike = [&](std::size_t oldEnd, std::size_t newEnd) {
    return RecordBytes(a, oldAt, oldEnd) == RecordBytes(b, newAt, newEnd);
  };
  for (const Range& r : ranges) {
    if (!alike(r.oldAt, r.newAt)) return false;
    oldAt = r.oldEnd, newAt = r.newEnd;
  }
  return alike(a.size() / kRecordLength + 1, b.size() / kRecordLength + 1);
}

// The ranges of records that differ: fewest records first, found by their
// hashes, then checked against the bytes; one range of the whole file when
// two records' hashes are alike but not they.
std::vector<Range> DiffRecords(std::string_view a, const std::vector<std::uint64_t>& ha, std::string_view b,
                               const std::vector<std::uint64_t>& hb) {
  std::vector<Range> ranges = MiddleRanges(ha, hb);
  if (AlikeBetween(a, b, ranges)) return ranges;
  return {{0, ha.size(), 0, hb.size()}};
}

std::string Hex(std::uint64_t v) {
  char text[17];
  std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(v));
  return text;
}

std::int64_t Now() {
  using namespace std::chrono;
  return duration_cast<seconds>(system_clock::now().time_since_epoch()).count();
}

}  // namespace

// A step as its file holds it. Hunks view `buffer` when read from a file,
// else the two versions they were made from.
struct SlideHistory::StepFile {
  struct Hunk {
    std::uint64_t oldAt = 0, newAt = 0;
    std::string_view oldBytes, newBytes;
    // Applied forward, or with `back` backward: where the hunk stands in the
    // version it is applied to, the bytes it finds there, and those it puts.
    std::uint64_t At(bool back) const { return back ? newAt : oldAt; }
    std::string_view Found(bool back) const { return back ? newBytes : oldBytes; }
    std::string_view Put(bool back) const { return back ? oldBytes : newBytes; }
  };
  std::int64_t time = 0;
  std::string name;
  std::int32_t touched = 0;
  std::uint64_t beforeSize = 0, beforeHash = 0, afterSize = 0, afterHash = 0;
  std::vector<Hunk> hunks;
  std::string buffer;

  StepFile() = default;
  // The step from `before` to `after`, their hashes and their records' hashes given.
  StepFile(std::string_view stepName, std::string_view before, std::uint64_t hb, const std::vector<std::uint64_t>& rb,
           std::string_view after, std::uint64_t ha, const std::vector<std::uint64_t>& ra)
      : time(Now()), name(stepName), beforeSize(before.size()), beforeHash(hb), afterSize(after.size()), afterHash(ha) {
    for (const Range& r : DiffRecords(before, rb, after, ra)) {
      hunks.push_back({r.oldAt * kRecordLength, r.newAt * kRecordLength, RecordBytes(before, r.oldAt, r.oldEnd),
                       RecordBytes(after, r.newAt, r.newEnd)});
      // The header (record 0) is no slide.
      touched += static_cast<std::int32_t>(std::max(r.oldEnd - r.oldAt, r.newEnd - r.newAt) -
                                           (r.oldAt == 0 && r.newAt == 0 ? 1 : 0));
    }
  }

  std::string Encode() const {
    Out out(kStepMagic);
    out.U64(static_cast<std::uint64_t>(time)).Text(name).I32(touched);
    out.U64(beforeSize).U64(beforeHash).U64(afterSize).U64(afterHash).U64(hunks.size());
    for (const Hunk& h : hunks) out.U64(h.oldAt).U64(h.newAt).Text(h.oldBytes).Text(h.newBytes);
    return out.Sealed();
  }

  bool Decode() {
    In in(buffer, kStepMagic);
    time = static_cast<std::int64_t>(in.U64());
    name = in.Text();
    touched = in.I32();
    beforeSize = in.U64(), beforeHash = in.U64(), afterSize = in.U64(), afterHash = in.U64();
    for (std::uint64_t count = in.U64(); in.ok() && count > 0; --count) {
      Hunk h;
      h.oldAt = in.U64(), h.newAt = in.U64();
      h.oldBytes = in.Text(), h.newBytes = in.Text();
      hunks.push_back(h);
    }
    return in.Finished();
  }

  // Whether every hunk finds its bytes in `from`, in order, and the result
  // has the size of the other version.
  bool Fits(std::string_view from, bool back) const {
    std::size_t pos = 0, size = from.size();
    for (const Hunk& h : hunks) {
      const std::uint64_t at = h.At(back);
      const std::string_view found = h.Found(back);
      if (at < pos || at > from.size() || from.substr(at, found.size()) != found) return false;
      pos = at + found.size();
      size = size - found.size() + h.Put(back).size();
    }
    return size == (back ? beforeSize : afterSize);
  }
  // Whether `file` is the other version, by its hash.
  bool Made(std::string_view file, bool back) const { return FileHash(file) == (back ? beforeHash : afterHash); }

  // Makes `file` the other version in place, with no second copy of it:
  // every hunk checked first, and put back when the result is not that version.
  bool ApplyInPlace(std::string& file, bool back) const {
    if (!Fits(file, back)) return false;
    // From the last hunk back, so that each lands where it was found.
    for (auto h = hunks.rbegin(); h != hunks.rend(); ++h)
      file.replace(h->At(back), h->Found(back).size(), h->Put(back));
    if (Made(file, back)) return true;
    PutBack(file, back);
    return false;
  }
  // Puts `file`, made the other version in place, back as it was.
  void PutBack(std::string& file, bool back) const {
    // From the first hunk on: each stands where it was found once those before it are put back.
    for (const Hunk& h : hunks) file.replace(h.At(back), h.Put(back).size(), h.Found(back));
  }

  // The other version from `from`: the one after the step, or with `back` the one before it.
  bool Apply(std::string_view from, bool back, std::string& out) const {
    if (!Fits(from, back)) return false;
    out.clear();
    out.reserve(back ? beforeSize : afterSize);
    std::size_t pos = 0;
    for (const Hunk& h : hunks) {
      out.append(from.substr(pos, h.At(back) - pos)).append(h.Put(back));
      pos = h.At(back) + h.Found(back).size();
    }
    out.append(from.substr(pos));
    return Made(out, back);
  }
};

SlideHistory::SlideHistory(Env& env, std::string sifPath)
    : env_(env), sifPath_(std::move(sifPath)), folder_(FolderOf(sifPath_)) {}

std::string SlideHistory::FolderOf(const std::string& sifPath) {
  const auto name = sifPath.rfind('/') + 1;  // 0 without a folder
  return sifPath.substr(0, name) + "." + sifPath.substr(name) + ".history";
}

std::string SlideHistory::StepPath(std::int32_t n) const {
  char name[24];
  std::snprintf(name, sizeof name, "/%08d.step", static_cast<int>(n));
  return folder_ + name;
}

std::uint64_t SlideHistory::HashAt(std::int32_t n) const { return n < first_ ? firstBeforeHash_ : At(n).afterHash; }

void SlideHistory::Reset() {
  first_ = 1, last_ = 0, cursor_ = 0;
  firstBeforeHash_ = 0;
  kept_.clear();
}

std::string SlideHistory::StampPath() const { return folder_ + "/" + std::string(kStampFile); }

void SlideHistory::SetAsideFolder(Env& env, const std::string& folder) {
  if (env.KindOf(folder) == EntryKind::Missing) return;
  std::string aside = folder + ".set-aside";
  for (int n = 2; env.KindOf(aside) != EntryKind::Missing; ++n) aside = folder + ".set-aside." + std::to_string(n);
  env.Rename(folder, aside);
}

void SlideHistory::SetAside() {
  SetAsideFolder(env_, folder_);
  Reset();
}

bool SlideHistory::ReadCursor() {
  Reset();
  std::string bytes;
  if (env_.ReadWhole(folder_ + "/cursor", bytes) != RtError::None) return false;
  In in(bytes, kCursorMagic);
  first_ = in.I32(), last_ = in.I32(), cursor_ = in.I32();
  firstBeforeHash_ = in.U64();
  if (!in.ok() || first_ < 1 || last_ < first_ - 1 || cursor_ < first_ - 1 || cursor_ > last_) return Reset(), false;
  for (std::int32_t n = first_; n <= last_ && in.ok(); ++n) {
    Kept k;
    k.info.number = n;
    k.info.time = static_cast<std::int64_t>(in.U64());
    k.info.name = in.Text();
    k.info.slidesTouched = in.I32();
    k.bytes = in.U64(), k.afterHash = in.U64();
    kept_.push_back(std::move(k));
  }
  if (!in.Finished()) return Reset(), false;
  return true;
}

Status SlideHistory::WriteCursor() {
  Out out(kCursorMagic);
  out.I32(first_).I32(last_).I32(cursor_).U64(firstBeforeHash_);
  for (const Kept& k : kept_)
    out.U64(static_cast<std::uint64_t>(k.info.time))
        .Text(k.info.name)
        .I32(k.info.slidesTouched)
        .U64(k.bytes)
        .U64(k.afterHash);
  const RtError e = ReplaceFile(env_, folder_ + "/cursor", out.Sealed(), kNewFileMode);
  return e == RtError::None ? Status() : Status(e, kSource);
}

bool SlideHistory::ReadStep(std::int32_t n, StepFile& step) const {
  return env_.ReadWhole(StepPath(n), step.buffer) == RtError::None && step.Decode();
}

Status SlideHistory::WriteStep(std::int32_t n, const StepFile& step, std::uint64_t& bytes) {
  const std::string encoded = step.Encode();
  bytes = encoded.size();
  const RtError e = ReplaceFile(env_, StepPath(n), encoded, kNewFileMode);
  return e == RtError::None ? Status() : Status(e, kSource);
}

Status SlideHistory::Commit() {
  std::uint64_t total = 0;
  for (const Kept& k : kept_) total += k.bytes;
  std::vector<std::int32_t> dropped;
  while (first_ < last_ && (last_ - first_ + 1 > kKeptSteps || total > static_cast<std::uint64_t>(kKeptBytes))) {
    total -= kept_.front().bytes;
    firstBeforeHash_ = kept_.front().afterHash;
    kept_.erase(kept_.begin());
    dropped.push_back(first_++);
  }
  if (Status s = WriteCursor(); !s.ok()) return ReadCursor(), s;
  for (const std::int32_t n : dropped) RemoveStep(n);
  return {};
}

void SlideHistory::RemoveStep(std::int32_t n) {
  env_.Remove(StepPath(n));
  KeptPictures::Forget(env_, folder_, n);
}

Status SlideHistory::AddBytes(std::int32_t step, std::uint64_t bytes) {
  if (bytes == 0 || step < first_ || step > last_) return {};
  At(step).bytes += bytes;
  return Commit();
}

// Files of steps no cursor names (step files and kept pictures, named from
// the step's number): left by a crash before the cursor was written, or
// before the removal after it, or pictures kept for a save that never ended.
void SlideHistory::RemoveStrays() {
  std::vector<DirEntry> entries;
  env_.ListDirectory(folder_, entries);
  for (const DirEntry& e : entries) {
    if (e.name.size() < 10 || (e.name[8] != '.' && e.name[8] != '-') ||
        !std::all_of(e.name.begin(), e.name.begin() + 8, [](char c) { return c >= '0' && c <= '9'; }))
      continue;
    const int n = std::stoi(e.name.substr(0, 8));
    if (n < first_ || n > last_) env_.Remove(folder_ + "/" + e.name);
  }
}

bool SlideHistory::StampedHash(std::uint64_t& hash) const {
  const std::string stamp = env_.Stamp(sifPath_);
  std::string kept;
  if (stamp.empty() || env_.ReadWhole(StampPath(), kept) != RtError::None || kept.size() <= 17 ||
      std::string_view(kept).substr(17) != stamp + "\n")
    return false;
  hash = std::strtoull(kept.substr(0, 16).c_str(), nullptr, 16);
  return true;
}

bool SlideHistory::FitTo(std::uint64_t hash) {
  if (last_ < first_ || hash == HashAt(cursor_)) return true;
  // One step off: the file's write after the history's never happened.
  if (cursor_ >= first_ && hash == HashAt(cursor_ - 1))
    --cursor_;
  else if (cursor_ < last_ && hash == HashAt(cursor_ + 1))
    ++cursor_;
  else
    return false;
  static_cast<void>(WriteCursor());  // if it does not last, the next Open puts it right again
  return true;
}

SlideHistory::Fit SlideHistory::Open() {
  Reset();
  if (env_.KindOf(folder_) == EntryKind::Missing) return Fit::Fits;
  if (!ReadCursor()) return SetAside(), Fit::SetAside;
  // The stamp remembered after the last write gives the file's hash while the file is still that one;
  // a stamp that fits nothing is a hint gone wrong, and the file itself decides.
  std::uint64_t hash = 0;
  if (StampedHash(hash) && FitTo(hash)) return Fit::Fits;
  std::string bytes;
  if (const RtError e = env_.ReadWhole(sifPath_, bytes); e != RtError::None && e != RtError::FileNotFound)
    return SetAside(), Fit::SetAside;
  if (!FitTo(FileHash(bytes))) return SetAside(), Fit::SetAside;
  RemoveStrays();
  Written();
  return Fit::Fits;
}

Status SlideHistory::Record(std::string_view name, std::string_view before, std::string_view after, bool amend) {
  std::vector<std::uint64_t> records;
  records.reserve(before.size() / kRecordLength + 1);
  const std::uint64_t beforeHash = FileHash(before, &records);
  // A file changed elsewhere: its history no longer leads to it, and starts again.
  if (last_ >= first_ && beforeHash != HashAt(cursor_)) SetAside();
  if (amend && cursor_ >= first_) {
    if (cursor_ != last_) return {RtError::InvalidCall, kSource};
    return Amend(name, before, beforeHash, records, after);
  }
  return Append(name, before, beforeHash, records, after);
}

Status SlideHistory::Append(std::string_view name, std::string_view before, std::uint64_t beforeHash,
                            const std::vector<std::uint64_t>& beforeRecords, std::string_view after) {
  std::vector<std::uint64_t> ra;
  ra.reserve(after.size() / kRecordLength + 1);
  const std::uint64_t ha = FileHash(after, &ra);
  const StepFile step(name, before, beforeHash, beforeRecords, after, ha, ra);
  if (step.hunks.empty()) return {};  // a save that changed nothing

  // The steps that could have been redone go first, and that lasts before the new step is written over them.
  if (cursor_ < last_) {
    const std::int32_t oldLast = last_;
    last_ = cursor_;
    kept_.resize(static_cast<std::size_t>(last_ - first_ + 1));
    if (Status s = WriteCursor(); !s.ok()) return ReadCursor(), s;
    for (std::int32_t n = last_ + 1; n <= oldLast; ++n) RemoveStep(n);
  }
  if (kept_.empty()) {  // the numbers go on from the steps undone and dropped, if any
    firstBeforeHash_ = beforeHash;
    if (const RtError e = env_.MakeDirectory(folder_, 0777); e != RtError::None) return {e, kSource};
    // A new folder gets its cursor first: a crash before the step's cursor then leaves an empty history, not none.
    if (env_.KindOf(folder_ + "/cursor") == EntryKind::Missing)
      if (Status s = WriteCursor(); !s.ok()) return s;
  }
  Kept kept{{cursor_ + 1, step.time, step.name, step.touched}, 0, ha};
  if (Status s = WriteStep(cursor_ + 1, step, kept.bytes); !s.ok()) return ReadCursor(), s;
  kept_.push_back(std::move(kept));
  last_ = ++cursor_;
  return Commit();
}

// The step at the cursor, which is the last, is replaced by one from the
// version before it to `after`; the same number, so its file is replaced
// whole. A crash between that and the cursor's write leaves a step that
// fails its hashes: the next undo sets the history aside.
Status SlideHistory::Amend(std::string_view name, std::string_view before, std::uint64_t beforeHash,
                           const std::vector<std::uint64_t>& beforeRecords, std::string_view after) {
  StepFile last;
  std::string base;
  if (!ReadStep(cursor_, last) || last.afterHash != HashAt(cursor_) || last.beforeHash != HashAt(cursor_ - 1) ||
      !last.Apply(before, true, base)) {
    SetAside();
    return Append(name, before, beforeHash, beforeRecords, after);
  }
  if (base == after) {  // the amended step undoes itself: it goes
    kept_.pop_back();
    last_ = --cursor_;
    if (Status s = WriteCursor(); !s.ok()) return ReadCursor(), s;
    RemoveStep(cursor_ + 1);
    return {};
  }
  std::vector<std::uint64_t> rb, ra;
  const std::uint64_t hb = FileHash(base, &rb), ha = FileHash(after, &ra);
  const StepFile step(name, base, hb, rb, after, ha, ra);
  Kept& kept = At(cursor_);
  kept.info = {cursor_, step.time, step.name, step.touched};
  kept.afterHash = ha;
  if (Status s = WriteStep(cursor_, step, kept.bytes); !s.ok()) return ReadCursor(), s;
  return Commit();
}

Status SlideHistory::Move(bool back, std::string_view current, std::string& result) {
  const std::int32_t n = back ? cursor_ : cursor_ + 1;
  if (back ? cursor_ < first_ : cursor_ >= last_) return {RtError::InvalidCall, kSource};
  // `current` viewing all of `result` asks for the step in place.
  const bool inPlace = current.data() == result.data() && current.size() == result.size();
  StepFile step;
  std::string out;
  // A result with the hash it should have says that `current` was the version it should be too: the
  // hunks' bytes matched and the rest is `current`'s. So `current` is hashed only when that fails.
  if (!ReadStep(n, step) || step.beforeHash != HashAt(n - 1) || step.afterHash != HashAt(n) ||
      !(inPlace ? step.ApplyInPlace(result, back) : step.Apply(current, back, out))) {
    if (FileHash(inPlace ? result : current) != HashAt(back ? n : n - 1)) return Status::Described(kChangedElsewhere);
    return SetAside(), Status::Described(kUnreadable);
  }
  cursor_ = back ? n - 1 : n;
  if (Status s = WriteCursor(); !s.ok()) {
    cursor_ = back ? n : n - 1;
    if (inPlace) step.PutBack(result, back);
    return s;
  }
  if (!inPlace) result = std::move(out);
  return {};
}

Status SlideHistory::Undo(std::string_view current, std::string& before) { return Move(true, current, before); }

Status SlideHistory::Redo(std::string_view current, std::string& after) { return Move(false, current, after); }

void SlideHistory::Written() {
  if (last_ < first_) return;
  const std::string stamp = env_.Stamp(sifPath_);
  std::unique_ptr<WritableFile> file;
  // A hint only, so not synced: a stamp lost or torn makes the next Open hash the file.
  if (stamp.empty() || env_.NewWritableFile(StampPath(), kNewFileMode, file) != RtError::None) return;
  file->Append(Hex(HashAt(cursor_)) + " " + stamp + "\n");
  file->Close();
}

std::optional<std::string> SlideHistory::UndoName() const {
  if (cursor_ < first_) return std::nullopt;
  return At(cursor_).info.name;
}

std::optional<std::string> SlideHistory::RedoName() const {
  if (cursor_ >= last_) return std::nullopt;
  return At(cursor_ + 1).info.name;
}

std::vector<HistoryStepInfo> SlideHistory::Steps() const {
  std::vector<HistoryStepInfo> steps;
  for (const Kept& k : kept_) steps.push_back(k.info);
  return steps;
}

std::int32_t SlideHistory::Done() const { return cursor_; }

}  // namespace cb
