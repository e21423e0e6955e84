// SPDX-License-Identifier: GPL-3.0-or-later
// The undo history beside a slide file: undo and redo give every version of
// the file back byte for byte, a crash at any point leaves a history that
// undoes into earlier versions only, or none, and a file changed elsewhere
// sets its history aside.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <random>

#include "model/SlideRecord.h"
#include "storage/KeptPictures.h"
#include "storage/RemovedSlides.h"
#include "storage/SlideHistory.h"
#include "support/FaultEnv.h"

namespace cb {
namespace {

using Fit = SlideHistory::Fit;
constexpr std::size_t L = kRecordLength;
const std::string kPath = "/home/ann/Files/My.sif";

std::string Letters(std::mt19937& rng, std::size_t n) {
  std::string s(n, ' ');
  for (char& c : s) c = static_cast<char>('a' + rng() % 26);
  return s;
}

// A file as a save leaves it: the count at the header's start, then the
// records; a file never shrinks, so records beyond the count are stale.
int Count(const std::string& f) { return std::stoi(f.substr(0, 6)); }
void SetCount(std::string& f, int n) { f.replace(0, 6, (std::to_string(n) + "      ").substr(0, 6)); }
std::string File(int records, std::mt19937& rng) {
  std::string f(L, ' ');
  SetCount(f, records);
  for (int i = 0; i < records; ++i) f += Letters(rng, L);
  return f;
}

// Removes slide `gone` as a save does: those after it move down, the last one's old copy stays.
void Remove(std::string& f, std::size_t gone) {
  const auto n = static_cast<std::size_t>(Count(f));
  f.replace(gone * L, (n - gone) * L, f.substr((gone + 1) * L, (n - gone) * L));
  SetCount(f, static_cast<int>(n - 1));
}

// One change of the kinds the program makes, at most 40 slides.
std::string Change(std::string f, std::mt19937& rng) {
  const auto n = static_cast<std::size_t>(Count(f));
  switch (n == 0 ? 1 : n == 40 ? 2 : rng() % 5) {
    case 0:  // one field of one slide
      f.replace((1 + rng() % n) * L + rng() % (L - 11), 11, Letters(rng, 11));
      break;
    case 1: {  // slides added (n < 40), over stale ones where there are
      const std::size_t added = std::min<std::size_t>(1 + rng() % 3, 40 - n);
      f.resize(std::max(f.size(), (n + added + 1) * L));
      for (std::size_t i = n + 1; i <= n + added; ++i) f.replace(i * L, L, Letters(rng, L));
      SetCount(f, static_cast<int>(n + added));
      break;
    }
    case 2:
      Remove(f, 1 + rng() % n);
      break;
    case 3:  // the background named in the header
      f.replace(11, 26, Letters(rng, 26));
      break;
    default:  // every slide (a sort, an import)
      for (std::size_t i = 1; i <= n; ++i) f.replace(i * L, L, Letters(rng, L));
  }
  return f;
}

std::string Read(Env& env) {
  std::string bytes;
  env.ReadWhole(kPath, bytes);
  return bytes;
}

enum class Op { Change, Undo, Redo };

Op Pick(std::mt19937& rng, const SlideHistory& h) {
  const unsigned roll = rng() % 10;
  if (roll < 3 && h.UndoName()) return Op::Undo;
  if (roll < 5 && h.RedoName()) return Op::Redo;
  return Op::Change;
}

// `op` as the program makes it: the history, then the file, then the stamp.
// Every other undo and redo is made in place.
bool Apply(Env& env, SlideHistory& h, Op op, const std::string& changed = {}) {
  const bool inPlace = op != Op::Change && h.Done() % 2 == 0;
  const std::string now = Read(env);
  std::string next = inPlace ? now : changed;
  const std::string_view from = inPlace ? std::string_view(next) : std::string_view(now);
  const Status s = op == Op::Change ? h.Record("Edit Slide", now, next)
                   : op == Op::Undo ? h.Undo(from, next)
                                    : h.Redo(from, next);
  if (!s.ok() || ReplaceFile(env, kPath, next, 0666) != RtError::None) return false;
  h.Written();
  return true;
}

// Redoes to the last step, then undoes to the first: whether every version
// met is the one that one of `models` (the versions by step) gives for its step.
bool Walks(Env& env, SlideHistory& h, const std::vector<std::vector<std::string>>& models) {
  std::vector<std::pair<std::size_t, std::string>> met{{h.Done(), Read(env)}};
  for (const Op op : {Op::Redo, Op::Undo})
    while (op == Op::Redo ? h.RedoName() : h.UndoName()) {
      if (!Apply(env, h, op)) return false;
      met.emplace_back(h.Done(), Read(env));
    }
  return h.Done() == 0 && std::any_of(models.begin(), models.end(), [&](const auto& versions) {
           return std::all_of(
                      met.begin(), met.end(),
                      [&](const auto& m) { return m.first < versions.size() && versions[m.first] == m.second; }) &&
                  std::any_of(met.begin(), met.end(), [&](const auto& m) { return m.first == versions.size() - 1; });
         });
}

// The versions after a step by its number, once `op` is done.
std::vector<std::string> Then(std::vector<std::string> versions, const SlideHistory& h, Op op,
                              const std::string& changed) {
  if (op == Op::Change) {
    versions.resize(static_cast<std::size_t>(h.Done()) + 1);
    versions.push_back(changed);
  }
  return versions;
}

TEST(SlideHistory, UndoAndRedoGiveEveryVersionBack) {
  std::mt19937 rng(7);
  testing::FaultEnv env(1);  // no crash here: its stamps let Open skip the hash
  std::vector<std::string> versions{File(12, rng)};
  env.Lasting(kPath, versions[0]);
  auto h = std::make_unique<SlideHistory>(env, kPath);
  ASSERT_EQ(h->Open(), Fit::Fits);
  for (int changes = 0; changes < 1000;) {
    const Op op = Pick(rng, *h);
    std::string changed;
    if (op == Op::Change) {
      for (changed = Read(env); changed == Read(env);) changed = Change(changed, rng);
      ++changes;
    }
    versions = Then(std::move(versions), *h, op, changed);
    ASSERT_TRUE(Apply(env, *h, op, changed));
    ASSERT_EQ(Read(env), versions[static_cast<std::size_t>(h->Done())]) << changes;
    if (rng() % 8 == 0) {  // the program starts again
      h = std::make_unique<SlideHistory>(env, kPath);
      ASSERT_EQ(h->Open(), Fit::Fits);
    }
  }
  EXPECT_TRUE(Walks(env, *h, {versions}));
}

TEST(SlideHistory, ACrashAtAnyPointNeverUndoesIntoAWrongFile) {
  std::mt19937 rng(11);
  testing::FaultEnv env(3);
  std::vector<std::string> versions{File(8, rng)};
  env.Lasting(kPath, versions[0]);
  int steps = 0, points = 0, setAside = 0, failed = 0;
  for (; steps < 80; ++steps) {
    SlideHistory h(env, kPath);
    ASSERT_EQ(h.Open(), Fit::Fits);
    const Op op = Pick(rng, h);
    const std::string changed = op == Op::Change ? Change(Read(env), rng) : "";
    const std::vector<std::string> then = Then(versions, h, op, changed);
    // A crash may leave the steps that could have been redone dropped, and the change not yet recorded.
    const std::vector<std::string> dropped(versions.begin(), versions.begin() + h.Done() + 1);
    env.Settle();  // the last step's stamp, never synced, is on the disk by now
    for (int at = 0;; ++at, ++points) {
      testing::FaultEnv machine(env);
      SlideHistory before(machine, kPath);
      before.Open();
      machine.stepsLeft = at;
      Apply(machine, before, op, changed);
      if (machine.stepsLeft > 0) break;  // done before the power failed
      machine.Restart();
      SlideHistory after(machine, kPath);
      if (after.Open() == Fit::SetAside) {
        ++setAside;
        continue;
      }
      failed += !Walks(machine, after, {versions, then, dropped});
    }
    ASSERT_TRUE(Apply(env, h, op, changed));
    versions = then;
  }
  std::printf("%d steps, %d crash points: %d set aside, %d failed\n", steps, points, setAside, failed);
  EXPECT_EQ(failed, 0);
  EXPECT_EQ(setAside, 0);
}

// A file of `slides` in memory and its history, opened.
class History : public ::testing::Test {
 protected:
  void Start(int slides, unsigned seed) {
    rng.seed(seed);
    env.Files()[kPath] = File(slides, rng);
    ASSERT_EQ(h.Open(), Fit::Fits);
  }
  std::size_t HistoryBytes() {
    std::size_t bytes = 0;
    for (const auto& [path, content] : env.Files())
      if (path.starts_with(SlideHistory::FolderOf(kPath) + "/")) bytes += content.size();
    return bytes;
  }
  bool SetAside(const std::string& suffix) {
    return env.KindOf(SlideHistory::FolderOf(kPath) + suffix + "/cursor") == EntryKind::File;
  }

  MemoryEnv env;
  std::mt19937 rng;
  SlideHistory h{env, kPath};
};

// Found by the next Open, or by the next change, whose "before" is not the history's last version.
TEST_F(History, AFileChangedElsewhereSetsItsHistoryAside) {
  Start(5, 5);
  const std::string first = Read(env), second = Change(first, rng), elsewhere = first + "elsewhere";
  for (const bool byOpen : {true, false}) {
    env.Files()[kPath] = first;
    ASSERT_TRUE(Apply(env, h, Op::Change, second));
    env.Files()[kPath] = elsewhere;
    if (byOpen) {
      EXPECT_EQ(h.Open(), Fit::SetAside);
    } else {
      ASSERT_TRUE(Apply(env, h, Op::Change, second));  // a new history, of this step alone
      EXPECT_TRUE(Walks(env, h, {{elsewhere, second}}));
    }
    EXPECT_EQ(h.Steps().size(), byOpen ? 0u : 1u);
    EXPECT_TRUE(SetAside(byOpen ? ".set-aside" : ".set-aside.2"));
    env.RemoveTree(SlideHistory::FolderOf(kPath));
  }
}

// Bytes that are not the file the history left are refused and left as
// they were, made in place or not; a step file that does not give the
// version it should sets the history aside.
TEST_F(History, UndoRefusesWhatItCannotUndoExactly) {
  Start(4, 6);
  std::string b = Read(env);
  b[20] ^= 1;  // the header alone
  ASSERT_TRUE(Apply(env, h, Op::Change, b));
  std::string other = b, copy = "kept";
  other.back() ^= 1;  // a slide the step leaves alone
  const std::string was = other;
  EXPECT_FALSE(h.Undo(other, copy).ok());
  EXPECT_FALSE(h.Undo(other, other).ok());
  EXPECT_EQ(copy, "kept");
  EXPECT_EQ(other, was);
  EXPECT_EQ(h.Done(), 1);
  EXPECT_FALSE(SetAside(".set-aside"));

  std::string& step = env.Files()[SlideHistory::FolderOf(kPath) + "/00000001.step"];
  step[step.size() / 2] ^= 1;
  EXPECT_FALSE(h.Undo(b, copy).ok());
  EXPECT_EQ(h.Done(), 0);
  EXPECT_TRUE(SetAside(".set-aside"));
}

TEST_F(History, TheOldestStepsGoBeyondTheLimits) {
  Start(3, 9);
  for (int i = 0; i <= SlideHistory::kKeptSteps; ++i) ASSERT_TRUE(Apply(env, h, Op::Change, Change(Read(env), rng)));
  EXPECT_EQ(h.Steps().size(), SlideHistory::kKeptSteps);
  EXPECT_EQ(h.Steps().front().number, 2);

  // Whole changes of the largest file: each step holds it twice.
  SlideHistory big(env, "/big.sif");
  env.Files()["/big.sif"] = File(32767, rng);
  std::size_t kept = 0;
  for (int i = 0; i < 4; ++i) {
    const std::string now = env.Files()["/big.sif"], next = File(32767, rng);
    ASSERT_TRUE(big.Record("Import", now, next).ok());
    env.Files()["/big.sif"] = next;
    kept += 2 * next.size();
  }
  EXPECT_GT(kept, static_cast<std::size_t>(SlideHistory::kKeptBytes));
  EXPECT_EQ(big.Steps().front().number, 2);
}

TEST_F(History, AmendedSavesMakeOneStep) {
  Start(6, 4);
  const std::string a = Read(env), b = Change(a, rng), c = Change(b, rng);
  ASSERT_TRUE(h.Record("Remove Missing Slides", a, b).ok());
  ASSERT_TRUE(h.Record("Remove Missing Slides", b, c, true).ok());
  env.Files()[kPath] = c;
  ASSERT_EQ(h.Steps().size(), 1u);
  EXPECT_TRUE(Walks(env, h, {{a, c}}));
}

// Pictures kept with a step count towards the limit and go with the step:
// when a new change drops it undone, when the limit drops it, and at the
// next Open when no step took them.
TEST_F(History, PicturesKeptWithAStepGoWithIt) {
  Start(4, 6);
  const std::string half(SlideHistory::kKeptBytes / 2, 'p'), gallery = "/g/tv.jpg", camera = "/c/tv.jpg";
  env.Files()[gallery] = half;
  env.Files()[camera] = half + "new";
  const auto stepWithPictures = [&] {
    KeptPictures pictures(env, kPath);
    pictures.Keep(gallery, camera);
    ASSERT_TRUE(Apply(env, h, Op::Change, Change(Read(env), rng)));
    ASSERT_TRUE(h.AddBytes(h.Done(), pictures.Attach(h.Done())).ok());
  };
  const std::size_t empty = HistoryBytes();
  stepWithPictures();
  EXPECT_GT(HistoryBytes(), empty + 2 * half.size());
  ASSERT_TRUE(Apply(env, h, Op::Undo));
  ASSERT_TRUE(Apply(env, h, Op::Change, Change(Read(env), rng)));
  EXPECT_LT(HistoryBytes(), empty + half.size());

  stepWithPictures();  // alone beyond the limit, kept while it is the newest
  ASSERT_TRUE(Apply(env, h, Op::Change, Change(Read(env), rng)));
  EXPECT_EQ(h.Steps().size(), 1u);
  EXPECT_LT(HistoryBytes(), empty + half.size());

  KeptPictures(env, kPath).Keep(gallery, camera);  // a save that never came
  ASSERT_EQ(h.Open(), Fit::Fits);
  EXPECT_LT(HistoryBytes(), empty + half.size());
}

// At the largest file, what an edit of one value and a removal add to the history.
TEST_F(History, SmallChangesMakeSmallSteps) {
  Start(32767, 2);
  for (const std::size_t most : {1024, 1536}) {
    std::string next = Read(env);
    if (most == 1024) next.replace(16000 * L + 267, 11, "1234.50    ");
    if (most == 1536) Remove(next, 16000);
    const std::size_t was = HistoryBytes();
    ASSERT_TRUE(Apply(env, h, Op::Change, next));
    EXPECT_LE(HistoryBytes() - was, most);
  }
}

// The bin of removed slides: steps of removals ("bc" takes b and c in one
// step), then the entries chosen are put back, or forgotten.
TEST(RemovedBin, PutsSlidesBackWhereTheyStood) {
  struct Case {
    const char* name;
    std::vector<std::string> steps;
    std::vector<std::size_t> chosen;
    bool forget;
    std::string slides;  // afterwards
    std::size_t binned;  // left in the bin
  };
  const Case cases[] = {
      {"before its follower", {"c"}, {0}, false, "abcde", 0},
      {"at the end, its follower gone", {"d", "e"}, {1}, false, "abcd", 1},
      {"the last one", {"e"}, {0}, false, "abcde", 0},
      {"one step of two", {"bc"}, {0, 1}, false, "abcde", 0},
      {"two steps, newest first", {"b", "c"}, {0, 1}, false, "abcde", 0},
      {"two steps, oldest first", {"c", "b"}, {1, 0}, false, "abcde", 0},
      {"forgotten", {"b", "d"}, {0}, true, "ace", 1},
  };
  const auto text = [](const SlideArray& a) {
    std::string t;
    for (std::size_t i = 1; i < a.size(); ++i) t += a[i].View(Field::SlideText)[0];
    return t;
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    MemoryEnv env;
    SlideArray slides(1);
    for (char letter : std::string("abcde")) slides.emplace_back().Set(Field::SlideText, std::string(1, letter));
    {
      RemovedBin bin(env, kPath);
      for (const std::string& step : c.steps) {
        SlideArray after;
        std::copy_if(slides.begin(), slides.end(), std::back_inserter(after),
                     [&](const SlideRecord& r) { return step.find(r.View(Field::SlideText)[0]) == std::string::npos; });
        ASSERT_EQ(bin.Add(GoneSlides(slides, after, "removed", 7)), RtError::None);
        slides = after;
      }
    }
    RemovedBin bin(env, kPath);  // read again, as after a restart
    ASSERT_EQ(bin.Entries().size(), std::accumulate(c.steps.begin(), c.steps.end(), std::size_t{0},
                                                    [](std::size_t n, const std::string& s) { return n + s.size(); }));
    EXPECT_EQ(bin.Entries()[0].reason, "removed");
    if (!c.forget) PutBack(slides, bin.At(c.chosen));
    ASSERT_EQ(bin.Forget(c.chosen), RtError::None);
    EXPECT_EQ(text(slides), c.slides);
    EXPECT_EQ(RemovedBin(env, kPath).Entries().size(), c.binned);
  }
}

TEST(RemovedBin, KeepsTheNewestAndReadsNoDamagedFile) {
  MemoryEnv env;
  RemovedBin bin(env, kPath);
  for (std::int64_t t = 1; t <= 1001; ++t)
    ASSERT_EQ(bin.Add({RemovedSlide{SlideRecord(), t, "removed", 1, {}}}), RtError::None);
  RemovedBin read(env, kPath);
  ASSERT_EQ(read.Entries().size(), RemovedBin::kKept);
  EXPECT_EQ(read.Entries().front().time, 1001);
  EXPECT_EQ(read.Entries().back().time, 2);
  std::string& bytes = env.Files()[SlideHistory::FolderOf(kPath) + "/removed"];
  bytes.pop_back();
  EXPECT_TRUE(RemovedBin(env, kPath).Entries().empty());
}

}  // namespace
}  // namespace cb
