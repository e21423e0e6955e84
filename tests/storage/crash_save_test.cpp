// SPDX-License-Identifier: GPL-3.0-or-later
// A save that loses power at any step leaves the file whole, the old
// collection or the new one, and the new one once the save has returned.
#include <gtest/gtest.h>

#include "storage/DataAccess.h"
#include "support/FaultEnv.h"
#include "support/RowName.h"
#include "support/SifFixture.h"

namespace cb {
namespace {

const std::string kPath = "/app/Files/big.sif";
const SifSettings kSettings{0, "frame.jpg", "wall.jpg", 1, "Arial"};

SlideArray Collection(char mark, int n) { return testing::Numbered(n, std::string(90, mark)); }

struct Disk {
  const char* name;
  bool renameSyncsFolder, fileSyncWorks;
  bool whole;  // whether every crash leaves the file whole
};

const Disk kDisks[] = {
    {"as_the_program_expects", true, true, true},
    // The checks must see a save that does not make its steps last.
    {"rename_without_folder_sync", false, true, false},
    {"file_sync_that_never_reaches_the_disk", true, false, false},
};

// The first crash that leaves something else, "" when none does.
std::string FirstTear(const Disk& disk, unsigned seed) {
  MemoryEnv memory;
  if (!DataAccess(memory).SaveSettings(kPath, kSettings, Collection('a', 300)).ok()) return "no first save";
  const std::string before = memory.Files()[kPath];
  if (!DataAccess(memory).SaveSettings(kPath, kSettings, Collection('b', 200)).ok()) return "no second save";
  const std::string after = memory.Files()[kPath];  // what lies past the new end stays
  for (int steps = 0;; ++steps) {
    testing::FaultEnv env(seed + static_cast<unsigned>(steps));
    env.renameSyncsFolder = disk.renameSyncsFolder;
    env.fileSyncWorks = disk.fileSyncWorks;
    env.Lasting(kPath, before);
    env.stepsLeft = steps;
    const bool saved = DataAccess(env).SaveSettings(kPath, kSettings, Collection('b', 200)).ok();
    env.Restart();
    std::string now;
    env.ReadWhole(kPath, now);
    if (now != after && (saved || now != before))
      return "power lost after step " + std::to_string(steps) + (saved ? " of a finished save" : "") + ": " +
             std::to_string(now.size()) + " bytes, neither collection";
    if (saved) return "";
  }
}

class CrashSave : public ::testing::TestWithParam<Disk> {};

TEST_P(CrashSave, EveryStepLeavesTheOldOrTheNewCollection) {
  for (unsigned seed = 1; seed <= 500; seed += 100) {
    const std::string tear = FirstTear(GetParam(), seed);
    EXPECT_EQ(tear.empty(), GetParam().whole) << "seed " << seed << ": " << tear;
  }
}

INSTANTIATE_TEST_SUITE_P(Disks, CrashSave, ::testing::ValuesIn(kDisks), testing::RowName());

}  // namespace
}  // namespace cb
