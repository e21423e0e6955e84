// SPDX-License-Identifier: GPL-3.0-or-later
// backup and restore: a round trip gives back every file byte for byte, and
// an archive that is damaged, does not match its manifest or names a place
// outside the application directory is refused before anything is written.

#include <gmock/gmock.h>

#include <archive.h>
#include <archive_entry.h>
#include <sys/stat.h>

#include <functional>

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
  if (!fs::exists(root)) return files;
  for (const auto& e : fs::recursive_directory_iterator(root))
    if (e.is_regular_file()) files[fs::relative(e.path(), root).string()] = ReadFile(e.path().string());
  return files;
}

// One backup of an application directory whose slides name pictures that
// are there, one that is not, and one twice: restored elsewhere, over the
// files it came from, and damaged.
TEST(Backup, RestoreGivesBackEveryFileByteForByte) {
  Scratch dir;
  const std::string root = dir / "app", sif = root + "/Files/Home.sif", archive = dir / "home.tar.gz";
  for (const char* f : {"Files", "Gallery", "Background", "Wallpaper"}) fs::create_directories(root + "/" + f);
  WriteAsProgram(sif, {1, "oak.jpg", "sage.jpg", "Tahoma"},
                 {{"tv.jpg", "TV"}, {"Télé.jpg", "Télé"}, {"gone.jpg", "Gone"}, {"tv.jpg", "Same picture"},
                  {"two\nlines.jpg", "Newline"}, {"back\\slash.jpg", "Backslash"}});
  WriteFile(root + "/Gallery/tv.jpg", std::string("\xFF\xD8tv\0picture", 12));
  WriteFile(root + "/Gallery/T\xC3\xA9l\xC3\xA9.jpg", "tele");
  WriteFile(root + "/Gallery/two\nlines.jpg", "newline");
  WriteFile(root + "/Gallery/back\\slash.jpg", "backslash");
  WriteFile(root + "/Gallery/unnamed.jpg", "no slide names this");
  WriteFile(root + "/Background/oak.jpg", "frame");
  WriteFile(root + "/Wallpaper/sage.jpg", "wallpaper");
  const Outcome b = RunProcess({"backup", sif, "-o", archive}, dir);
  ASSERT_EQ(b.status, 0) << b.err;
  EXPECT_EQ(b.out, "7 files backed up into " + archive + ", 1 missing\n");
  EXPECT_THAT(b.err, HasSubstr("slide 3: \"" + root + "/Gallery/gone.jpg\" is missing"));
  int check = -1;
  Piped("mkdir " + (dir / "x") + " && cd " + (dir / "x") + " && tar -xzf " + archive +
            " && sha256sum --quiet --strict -c manifest.sha256 >&2", &check);
  EXPECT_EQ(check, 0);

  const std::string to = dir / "restored";
  const Outcome r = RunProcess({"restore", archive, "--to", to}, dir);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_THAT(r.err, HasSubstr("Gallery/gone.jpg was missing when the backup was made"));
  std::map<std::string, std::string> expected = Tree(root);
  expected.erase("Gallery/unnamed.jpg");
  EXPECT_EQ(Tree(to), expected);

  // Existing files are replaced only with --force.
  const std::map<std::string, std::string> before = Tree(root);
  WriteFile(root + "/Gallery/tv.jpg", "edited since");
  const Outcome refused = RunProcess({"restore", archive, "--to", root}, dir);
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.err, HasSubstr("give --force to replace them\n  Files/Home.sif\n  Gallery/tv.jpg\n"));
  EXPECT_EQ(ReadFile(root + "/Gallery/tv.jpg"), "edited since");
  const Outcome forced = RunProcess({"restore", archive, "--to", root, "--force"}, dir);
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
    const Outcome d = RunProcess({"restore", archive, "--to", dir / "damaged"}, dir);
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
  const TarEntry picture{"Gallery/tv.jpg", "picture"};
  struct Case {
    const char* name;
    std::vector<TarEntry> entries;
    const char* complaint;
    bool gzip = true;
  };
  const Case cases[] = {
      {"a hash that does not match",
       {sif,
        picture,
        {std::string(kManifestName),
         Sha256Hex("slides") + "  Files/Home.sif\n" + Sha256Hex("another picture") + "  Gallery/tv.jpg\n"}},
       "\"Gallery/tv.jpg\" does not match its SHA-256"},
      {"a file the manifest does not name", {sif, picture, ManifestOf({sif})}, "is not in the manifest"},
      {"a named file the archive lacks", {sif, ManifestOf({sif, picture})}, "in the manifest but not in the archive"},
      {"no manifest", {sif, picture}, "no manifest.sha256"},
      {"a manifest line of another kind", {sif, {std::string(kManifestName), "Files/Home.sif\n"}}, "manifest line 1"},
      {"an unknown escape", {sif, {std::string(kManifestName), "\\" + Sha256Hex("slides") + "  Files/\\t.sif\n"}}, "line 1"},
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
    const Outcome r = RunProcess({"restore", archive, "--to", dir / "app/sub"}, dir);
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
  std::vector<TarEntry> named{{"Files/Home.sif", "slides"}};
  for (const char* p : {"Gallery/a.jpg", "Gallery/b.jpg", "Gallery/c.jpg"}) named.push_back({p, p});
  std::vector<TarEntry> entries = named;
  entries.insert(entries.begin() + 1, {"Gallery/stray.jpg", "stray"});
  entries.push_back(ManifestOf(named));
  WriteTar(archive, entries);
  std::vector<std::string> steps;
  RestorePlan plan;
  const Status s = PlanRestore(archive, dir / "app", [&](const JobStep& step) {
    steps.push_back(StepText(step));
    return true;
  }, plan);
  EXPECT_EQ(s.description(), archive + ": \"Gallery/stray.jpg\" is not in the manifest");
  EXPECT_EQ(steps, std::vector<std::string>{"Checking file 1"});
}

// A picture left out of a backup is told with the reason.
TEST(Backup, TellsWhyAPictureIsLeftOut) {
  Scratch dir;
  const std::string root = dir / "app", sif = root + "/Files/Home.sif";
  const struct {
    const char* picture;
    std::function<void(const std::string&)> make;
    const char* why;
  } cases[] = {
      {"gone.jpg", [](const std::string&) {}, "is missing"},
      {"folder.jpg", [](const std::string& p) { fs::create_directory(p); }, "is a folder, not a picture"},
      {"link.jpg", [&](const std::string& p) { fs::create_directory_symlink(root + "/Files", p); },
       "is a folder, not a picture"},
      {"fifo.jpg", [](const std::string& p) { ::mkfifo(p.c_str(), 0644); }, "is not a regular file"},
  };
  for (const char* f : {"Files", "Gallery"}) fs::create_directories(root + "/" + f);
  std::vector<SlideText> slides;
  for (const auto& c : cases) slides.push_back({c.picture, "x"});
  WriteAsProgram(sif, {}, slides);
  for (const auto& c : cases) c.make(root + "/Gallery/" + c.picture);
  const Outcome b = RunProcess({"backup", sif, "-o", dir / "home.tar.gz"}, dir);
  EXPECT_EQ(b.status, 0) << b.err;
  for (std::size_t i = 0; i < std::size(cases); ++i)
    EXPECT_THAT(b.err, HasSubstr("slide " + std::to_string(i + 1) + ": \"" + root + "/Gallery/" + cases[i].picture +
                                 "\" " + cases[i].why + "; listed in the manifest"));
}

}  // namespace
}  // namespace cb::sif::testing
