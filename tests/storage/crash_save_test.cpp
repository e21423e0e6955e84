// A save killed at any moment leaves the file whole: a child process saves
// two collections in turn, over and over, and is killed at random; after
// every kill the file loads and is, byte for byte, one of the two.
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <iostream>
#include <random>

#include "storage/DataAccess.h"
#include "support/TempDir.h"

namespace cb {
namespace {

using testing::ReadFile;

SlideArray Collection(char mark, int n) {
  SlideArray s(static_cast<std::size_t>(n) + 1);
  for (int i = 1; i <= n; ++i) {
    s[static_cast<std::size_t>(i)].Set(Field::SlideText, std::string(90, mark) + std::to_string(i));
    s[static_cast<std::size_t>(i)].Set(Field::Value, std::to_string(i));
  }
  return s;
}

TEST(CrashSave, EveryKillLeavesTheOldOrTheNewCollection) {
  testing::TempDir dir;
  const std::string path = dir / "big.sif";
  const SifSettings settings{0, "frame.jpg", "wall.jpg", 1, "Arial"};
  // Equal lengths, so either save over the other gives the same bytes as a fresh one.
  const SlideArray a = Collection('a', 3000), b = Collection('b', 3000);
  ASSERT_TRUE(DataAccess().SaveSettings(path, settings, b).ok());
  const std::string bytesB = ReadFile(path);
  ASSERT_TRUE(DataAccess().SaveSettings(path, settings, a).ok());
  const std::string bytesA = ReadFile(path);

  std::mt19937 rng(std::random_device{}());
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(3);
  int kills = 0, sawA = 0, sawB = 0;
  while (std::chrono::steady_clock::now() < end) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      ::prctl(PR_SET_PDEATHSIG, SIGKILL);
      for (unsigned i = 0;; ++i) (void)DataAccess().SaveSettings(path, settings, i % 2 ? a : b);
    }
    ::usleep(static_cast<useconds_t>(rng() % 40000));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ++kills;

    const std::string now = ReadFile(path);
    ASSERT_TRUE(now == bytesA || now == bytesB) << "torn after kill " << kills;
    (now == bytesA ? sawA : sawB)++;
    SifSettings loaded;
    SlideArray slides;
    ASSERT_TRUE(DataAccess().LoadSettings({path, "big.sif", path}, loaded, slides).ok());
    ASSERT_EQ(slides.size(), a.size());
  }
  std::cout << kills << " kills survived (" << sawA << " left the first collection, " << sawB << " the second)\n";
  RecordProperty("kills", kills);
  EXPECT_GT(sawB, 0);  // saves did complete between kills
}

}  // namespace
}  // namespace cb
