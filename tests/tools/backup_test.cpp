// SPDX-License-Identifier: GPL-3.0-or-later
// backup and restore: a round trip gives back every file byte for byte, and
// an archive that is damaged, does not match its manifest or names a place
// outside the application directory is refused before anything is written.

#include <gmock/gmock.h>

#include <archive.h>
#include <archive_entry.h>
#include <sys/stat.h>

#include "SifTools.h"
#include "pack/Backup.h"
#include "pack/Manifest.h"

namespace cb::sif::testing {
namespace {

using namespace cb::pack;
using ::testing::HasSubstr;
using ::testing::StartsWith;

// Every regular file under `root`, relative name to bytes.
std::map<std::string, std::string> Tree(const fs::path& root) {
  std::map<std::string, std::string> files;
  for (const auto& e : fs::recursive_directory_iterator(root))
    if (e.is_regular_file()) files[fs::relative(e.path(), root).string()] = ReadFile(e.path().string());
  return files;
}

// One backup of an application directory whose slides name pictures that
// are there, one twice, and some that cannot be read: restored elsewhere,
// over the files it came from, and damaged.
TEST(Backup, RestoreGivesBackEveryFileByteForByte) {
  Scratch dir;
  const std::string root = dir / "app", sif = root + "/Files/Home.sif", archive = dir / "home.tar.gz";
  std::vector<SlideText> slides;
  for (const char* p : {"tv.jpg", "Télé.jpg", "gone.jpg", "tv.jpg", "two\nlines.jpg", "back\\slash.jpg", "folder.jpg",
                        "link.jpg", "fifo.jpg"})
    slides.push_back({p, "Slide"});
  WriteAsProgram(sif, {1, "oak.jpg", "sage.jpg", "Tahoma"}, slides);
  WriteFile(root + "/Gallery/tv.jpg", std::string("\xFF\xD8tv\0picture", 12));
  WriteFile(root + "/Gallery/T\xC3\xA9l\xC3\xA9.jpg", "tele");
  WriteFile(root + "/Gallery/two\nlines.jpg", "newline");
  WriteFile(root + "/Gallery/back\\slash.jpg", "backslash");
  WriteFile(root + "/Gallery/unnamed.jpg", "no slide names this");
  WriteFile(root + "/Background/oak.jpg", "frame");
  WriteFile(root + "/Wallpaper/sage.jpg", "wallpaper");
  fs::create_directory(root + "/Gallery/folder.jpg");
  fs::create_directory_symlink(root + "/Files", root + "/Gallery/link.jpg");
  ASSERT_EQ(::mkfifo((root + "/Gallery/fifo.jpg").c_str(), 0644), 0);
  const Outcome b = RunProcess({"backup", sif, "-o", archive});
  ASSERT_EQ(b.status, 0) << b.err;
  EXPECT_EQ(b.out, "7 files backed up into " + archive + ", 4 missing\n");
  const std::pair<int, std::string> leftOut[] = {{3, "gone.jpg\" is missing"},
                                                 {7, "folder.jpg\" is a folder, not a picture"},
                                                 {8, "link.jpg\" is a folder, not a picture"},
                                                 {9, "fifo.jpg\" is not a regular file"}};
  for (const auto& [slide, why] : leftOut)
    EXPECT_THAT(b.err, HasSubstr("slide " + std::to_string(slide) + ": \"" + root + "/Gallery/" + why +
                                 "; listed in the manifest"));
  const std::string unpack =
      "mkdir x && cd x && tar -xzf " + archive + " && sha256sum --quiet --strict -c manifest.sha256";
  const Outcome sums = RunProcess({"-c", "cd " + dir.str() + " && " + unpack}, "", "sh");
  EXPECT_EQ(sums.status, 0) << sums.out << sums.err;

  const std::string to = dir / "restored";
  const Outcome r = RunProcess({"restore", archive, "--to", to});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_THAT(r.err, HasSubstr("Gallery/gone.jpg was missing when the backup was made"));
  std::map<std::string, std::string> expected = Tree(root);
  expected.erase("Gallery/unnamed.jpg");
  EXPECT_EQ(Tree(to), expected);

  // Existing files are replaced only with --force.
  const std::map<std::string, std::string> before = Tree(root);
  WriteFile(root + "/Gallery/tv.jpg", "edited since");
  const Outcome refused = RunProcess({"restore", archive, "--to", root});
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.err, HasSubstr("give --force to replace them\n  Files/Home.sif\n  Gallery/tv.jpg\n"));
  EXPECT_EQ(ReadFile(root + "/Gallery/tv.jpg"), "edited since");
  const Outcome forced = RunProcess({"restore", archive, "--to", root, "--force"});
  EXPECT_EQ(forced.status, 0) << forced.err;
  EXPECT_EQ(Tree(root), before);

  const std::string bytes = ReadFile(archive);
  std::string flipped = bytes;
  flipped[bytes.size() / 2] = static_cast<char>(flipped[bytes.size() / 2] ^ 0x5A);
  const std::pair<const char*, std::string> damages[] = {
      {"a flipped byte", flipped}, {"cut in half", bytes.substr(0, bytes.size() / 2)}, {"not an archive", "hello"}};
  for (const auto& [name, damaged] : damages) {
    SCOPED_TRACE(name);
    WriteFile(archive, damaged);
    const Outcome d = RunProcess({"restore", archive, "--to", dir / "damaged"});
    EXPECT_EQ(d.status, 1);
    EXPECT_THAT(d.err, StartsWith("chattelbook-sif: " + archive + ": "));
    EXPECT_FALSE(fs::exists(dir / "damaged"));
  }
}

struct TarEntry {
  std::string name;
  std::string bytes;
  mode_t type = AE_IFREG;
  std::string link{};  // symlink target, or hardlink source when `hard`
  bool hard = false;
};

void WriteTar(const std::string& path, const std::vector<TarEntry>& entries, bool gzip = true) {
  archive* a = archive_write_new();
  if (gzip) archive_write_add_filter_gzip(a);
  archive_write_set_format_pax_restricted(a);
  ASSERT_EQ(archive_write_open_filename(a, path.c_str()), ARCHIVE_OK);
  for (const auto& t : entries) {
    archive_entry* e = archive_entry_new();
    archive_entry_set_pathname(e, t.name.c_str());
    archive_entry_set_filetype(e, t.type);
    archive_entry_set_perm(e, 0644);
    if (t.hard)
      archive_entry_set_hardlink(e, t.link.c_str());
    else if (!t.link.empty())
      archive_entry_set_symlink(e, t.link.c_str());
    archive_entry_set_size(e, t.type == AE_IFREG && !t.hard ? static_cast<la_int64_t>(t.bytes.size()) : 0);
    archive_write_header(a, e);
    if (t.type == AE_IFREG && !t.hard) archive_write_data(a, t.bytes.data(), t.bytes.size());
    archive_entry_free(e);
  }
  archive_write_close(a);
  archive_write_free(a);
}

// A manifest naming each entry with the hash of its bytes.
TarEntry ManifestOf(const std::vector<TarEntry>& entries) {
  std::string text;
  for (const auto& t : entries) text += Sha256Hex(t.bytes) + "  " + t.name + "\n";
  return {std::string(kManifestName), text};
}

TEST(Backup, RestoreRefusesBadArchivesAndWritesNothing) {
  const TarEntry sif{"Files/Home.sif", "slides"};
  const TarEntry picture{"Gallery/tv.jpg", "picture"}, other{"Gallery/tv.jpg", "another picture"};
  const std::string m(kManifestName);
  struct Case {
    const char* name;
    std::vector<TarEntry> entries;
    const char* complaint;
    bool gzip = true;
  };
  const Case cases[] = {
      {"a wrong hash", {sif, picture, ManifestOf({sif, other})}, "\"Gallery/tv.jpg\" does not match its SHA-256"},
      {"a file the manifest does not name", {sif, picture, ManifestOf({sif})}, "is not in the manifest"},
      {"a named file the archive lacks", {sif, ManifestOf({sif, picture})}, "in the manifest but not in the archive"},
      {"no manifest", {sif, picture}, "no manifest.sha256"},
      {"a manifest line of another kind", {sif, {m, "Files/Home.sif\n"}}, "manifest line 1"},
      {"an unknown escape", {sif, {m, "\\" + Sha256Hex("slides") + "  Files/\\t.sif\n"}}, "line 1"},
      {"an absolute path", {sif, {"/tmp/evil.jpg", "x"}, ManifestOf({sif})}, "an absolute path"},
      {"a climb out", {sif, {"../evil.jpg", "x"}, ManifestOf({sif})}, "would leave the application directory"},
      {"a climb out of a folder", {sif, {"Gallery/../../evil.jpg", "x"}, ManifestOf({sif})}, "would leave"},
      {"a symbolic link", {sif, {"Gallery/tv.jpg", "", AE_IFLNK, "/etc/passwd"}, ManifestOf({sif})}, "is a link"},
      {"a hard link", {sif, {"Gallery/tv.jpg", "", AE_IFREG, "Files/Home.sif", true}, ManifestOf({sif})}, "is a link"},
      {"a folder outside the backup's", {sif, {"Reports/Report1.htm", "x"}, ManifestOf({sif})}, "no part of a backup"},
      {"a directory", {sif, {"Gallery/sub", "", AE_IFDIR}, ManifestOf({sif})}, "not a regular file"},
      {"a name that is no UTF-8",
       {sif, {"Gallery/\xFF.jpg", "x"}, ManifestOf({sif, {"Gallery/\xFF.jpg", "x"}})},
       "\"Gallery/\\xFF.jpg\" is not a name this program writes"},
      {"a tar without gzip", {sif, ManifestOf({sif})}, "not a gzip-compressed tar archive", false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Scratch dir;
    const std::string archive = dir / "bad.tar.gz";
    WriteTar(archive, c.entries, c.gzip);
    const Outcome r = RunProcess({"restore", archive, "--to", dir / "app/sub"});
    EXPECT_EQ(r.status, 1);
    EXPECT_THAT(r.err, HasSubstr(c.complaint));
    EXPECT_THAT(r.err, HasSubstr("nothing was written"));
    EXPECT_EQ(Names(dir), std::vector<std::string>{"bad.tar.gz"});
  }
}

// However many members follow, the check ends at the first one the
// manifest does not name.
TEST(Backup, RestoreStopsAtTheFirstMemberTheManifestLacks) {
  Scratch dir;
  const std::string archive = dir / "stray.tar.gz";
  const std::vector<TarEntry> named{{"Files/Home.sif", "slides"}, {"Gallery/a.jpg", "a"}, {"Gallery/b.jpg", "b"}};
  WriteTar(archive, {named[0], {"Gallery/stray.jpg", "stray"}, named[1], named[2], ManifestOf(named)});
  std::vector<std::string> steps;
  const auto note = [&steps](const JobStep& step) {
    steps.push_back(StepText(step));
    return true;
  };
  RestorePlan plan;
  EXPECT_EQ(PlanRestore(archive, dir / "app", note, plan).description(),
            archive + ": \"Gallery/stray.jpg\" is not in the manifest");
  EXPECT_EQ(steps, std::vector<std::string>{"Checking file 1"});
}

}  // namespace
}  // namespace cb::sif::testing
