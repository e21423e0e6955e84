// SPDX-License-Identifier: GPL-3.0-or-later
// The claim, the backup and the restore as the windows run them: their
// steps arrive in order with their counts, and a cancel leaves nothing.
// The backup's manifest reads back every name it writes.

#include <gmock/gmock.h>

#include <QGuiApplication>

#include <ctime>
#include <filesystem>
#include <functional>
#include <set>

#include "pack/Backup.h"
#include "pack/ClaimPack.h"
#include "pack/Manifest.h"
#include "pack/SifFile.h"
#include "support/TempDir.h"

namespace cb::pack {
namespace {

namespace fs = std::filesystem;

// Every file and folder under `root`.
std::set<std::string> Tree(const fs::path& root) {
  std::set<std::string> names;
  for (const auto& e : fs::recursive_directory_iterator(root)) names.insert(fs::relative(e.path(), root).string());
  return names;
}

// An application directory: a file of four slides, each picture in the
// gallery, and a backup of it all.
struct App {
  cb::testing::TempDir dir;
  std::string sif = dir / "Files/Home.sif", archive = dir / "home.tar.gz";
  App() {
    SlideArray slides(5);
    for (int i = 1; i <= 4; ++i) {
      const std::string name = "p" + std::to_string(i) + ".jpg";
      slides[i].Set(Field::PictureFile, name);
      cb::testing::WriteFile(dir / ("Gallery/" + name), "picture " + name);
    }
    fs::create_directories(dir / "Files");
    std::string message;
    EXPECT_TRUE(WriteSif(sif, {0, "", "", 1, ""}, slides, false, message)) << message;
    BackupResult result;
    EXPECT_TRUE(MakeBackup({sif, "", archive}, Unwatched, result).ok());
  }
};

TEST(Jobs, StepInOrderAndLeaveNothingWhenCancelled) {
  const auto steps = [](const char* unit, int count, bool counted) {
    std::vector<std::string> out;
    for (int i = 1; i <= count; ++i) out.push_back(StepText({unit, std::size_t(i), counted ? std::size_t(count) : 0}));
    return out;
  };
  std::vector<std::string> restore = steps("Checking file", 5, false);
  for (const auto& s : steps("Restoring file", 5, true)) restore.push_back(s);
  const struct {
    const char* name;
    std::function<Status(const App&, const JobProgress&)> run;
    std::string written;  // what the job writes, relative to the application directory
    std::vector<std::string> steps;
  } jobs[] = {
      {"claim",
       [](const App& a, const JobProgress& p) {
         std::vector<std::string> notes;
         return MakeClaimPack({a.sif, "", ReportKind::ByCategory, QPageSize::A4, a.dir / "claim.pdf"}, p, notes);
       },
       "claim.pdf", steps("Picture", 4, true)},
      {"backup",
       [](const App& a, const JobProgress& p) {
         BackupResult result;
         return MakeBackup({a.sif, "", a.dir / "again.tar.gz"}, p, result);
       },
       "again.tar.gz", steps("File", 5, true)},
      {"restore",
       [](const App& a, const JobProgress& p) {
         RestorePlan plan;
         const Status planned = PlanRestore(a.archive, a.dir / "restored", p, plan);
         return planned.ok() ? CarryOutRestore(plan, p) : planned;
       },
       "home.tar.gz", restore},
  };
  for (const auto& job : jobs) {
    SCOPED_TRACE(job.name);
    App app;
    const std::set<std::string> before = Tree(app.dir.str());
    std::vector<std::string> seen;
    const std::size_t cancelAt = job.steps.size() * 3 / 4;  // past halfway: a restore has staged files
    const Status cancelled = job.run(app, [&](const JobStep& s) {
      seen.push_back(StepText(s));
      return seen.size() < cancelAt;
    });
    EXPECT_EQ(cancelled.description(), (app.dir / job.written) + ": cancelled");
    EXPECT_EQ(Tree(app.dir.str()), before);

    seen.clear();
    const Status done = job.run(app, [&](const JobStep& s) {
      if (seen.empty() || seen.back() != StepText(s)) seen.push_back(StepText(s));  // a long unit repeats its step
      return true;
    });
    EXPECT_TRUE(done.ok()) << done.description();
    EXPECT_EQ(seen, job.steps);
  }
}

// The header has promised the size seen at opening; a file cut short
// while it streams fails the backup instead of tearing the archive.
TEST(Jobs, BackupRefusesAFileThatChangesWhileItIsRead) {
  App app;
  const std::string picture = app.dir / "Gallery/p2.jpg";
  cb::testing::WriteFile(picture, std::string(5u << 20, 'x'));
  int calls = 0;
  BackupResult result;
  const auto cutShort = [&](const JobStep& step) {
    if (step.index == 3 && ++calls == 2) fs::resize_file(picture, 1);  // its second call comes 4 MiB in
    return true;
  };
  const Status s = MakeBackup({app.sif, "", app.dir / "torn.tar.gz"}, cutShort, result);
  EXPECT_EQ(s.description(), picture + ": changed while it was read");
  EXPECT_FALSE(fs::exists(app.dir / "torn.tar.gz"));
}

TEST(Jobs, WordsAndTheDefaultBackupPath) {
  EXPECT_EQ(StepText({"Picture", 132, 500}), "Picture 132 of 500");
  EXPECT_EQ(StepText({"Checking file", 12, 0}), "Checking file 12");
  std::tm halfPastMidnight{};  // the local date, whatever the zone
  halfPastMidnight.tm_year = 126, halfPastMidnight.tm_mon = 10, halfPastMidnight.tm_mday = 25;
  halfPastMidnight.tm_min = 30, halfPastMidnight.tm_isdst = -1;
  EXPECT_EQ(DefaultBackupPath("Files/My.sif", std::mktime(&halfPastMidnight)), "Files/My-2026-11-25.tar.gz");
}

// Names sha256sum escapes, and others it keeps as they are.
TEST(Backup, ManifestKeepsEveryNameItWrites) {
  Manifest m;
  for (const std::string name : {"Gallery/two\nlines.jpg", "Gallery/back\\slash\\n.jpg", "Gallery/\xE9t\xE9.jpg",
                                 "  Gallery/lead.jpg", "Gallery/\\", "Gallery/\r.jpg"}) {
    m.hashes[name] = Sha256Hex(name);
    m.order.push_back(name);
    m.missing.push_back(name + "-gone");
  }
  std::string message;
  const auto back = ParseManifest(ManifestText(m, "Home.sif"), message);
  ASSERT_TRUE(back) << message;
  EXPECT_EQ(back->hashes, m.hashes);
  EXPECT_EQ(back->order, m.order);
  EXPECT_EQ(back->missing, m.missing);
}

}  // namespace
}  // namespace cb::pack

int main(int argc, char** argv) {
  // The claim lays out text, which needs fonts and so the GUI side of Qt.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
