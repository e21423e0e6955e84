// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "base/Cp1252.h"
#include "base/FaceMetrics.h"
#include "base/FileListing.h"
#include "base/Status.h"
#include "base/Text.h"

namespace cb {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using Names = std::vector<std::string>;

TEST(TextTest, TextToLongConvertsOrRefuses) {
  const std::pair<std::string, std::int32_t> values[] = {{"3", 3},   {" 3 ", 3}, {"-12", -12},
                                                         {"2.5", 2}, {"3.5", 4}, {"2147483647", 2147483647}};
  for (const auto& [text, value] : values) {
    const auto r = TextToLong(text);
    EXPECT_EQ(r.error, RtError::None) << text;
    EXPECT_EQ(r.value, value) << text;
  }
  const std::pair<std::string, RtError> refused[] = {{"", RtError::TypeMismatch},
                                                     {"x", RtError::TypeMismatch},
                                                     {"1x", RtError::TypeMismatch},
                                                     {"2147483648", RtError::Overflow}};
  for (const auto& [text, error] : refused) EXPECT_EQ(TextToLong(text).error, error) << text;
}

TEST(TextTest, DirectoryLookupHelpers) {
  const std::pair<std::string, std::string> ensure[] = {
      {"/etc", "/etc/"}, {"/etc/  ", "/etc/"}, {"C:\\WIN\\", "C:\\WIN\\"}, {"", "/"}};
  for (auto [in, out] : ensure) {
    EnsureTrailingBackslash(in);
    EXPECT_EQ(in, out);
  }
  EXPECT_EQ(StripAtNul("abc\0def"s), "abc");
  EXPECT_EQ(StripAtNul("abc"), "abc");
  EXPECT_EQ(Trim(" \ta \0 "s), "\ta \0"s);  // blanks only
}

TEST(TextTest, SameNameFoldsAsciiOnly) {
  EXPECT_TRUE(SameName("PictureFile", "picturefile"));
  EXPECT_TRUE(SameName("", ""));
  EXPECT_FALSE(SameName("Value", "Values"));
  EXPECT_FALSE(SameName("\xC9t\xE9", "\xE9t\xE9"));  // Windows-1252 letters keep their case
  EXPECT_FALSE(SameName("[", "{"));                  // '[' is not an upper-case '{'
}

TEST(StatusTest, FillsTheArrayOnlyOnFailure) {
  ErrorArray errors{"kept0", "kept1", "kept2"};
  EXPECT_TRUE(Report(Status(), errors));
  EXPECT_EQ(errors, (ErrorArray{"kept0", "kept1", "kept2"}));
  EXPECT_FALSE(Report(Status::Described("Cannot find it."), errors));
  EXPECT_EQ(errors, (ErrorArray{"kept0", "kept1", "Cannot find it."}));
  EXPECT_FALSE(Report(Status(RtError::PathNotFound, "DataAccess"), errors));
  EXPECT_EQ(errors, (ErrorArray{"76", "DataAccess", "Path not found"}));
}

TEST(Cp1252Test, ConvertsBothWays) {
  EXPECT_EQ(Cp1252ToUtf8("caf\xE9 \x80 \x99"), "café € ™");
  EXPECT_EQ(Utf8ToCp1252("café € ™"), "caf\xE9 \x80 \x99");
  char32_t bad = 0;
  EXPECT_EQ(Utf8ToCp1252("snow \u2603", &bad), std::nullopt);
  EXPECT_EQ(bad, U'\u2603');
  EXPECT_EQ(Utf8ToCp1252Lossy("a\u2603b"), "a?b");
  for (int b = 0; b < 256; ++b) {
    const std::string one(1, static_cast<char>(b));
    EXPECT_EQ(Utf8ToCp1252(Cp1252ToUtf8(one)), one) << b;
  }
}

struct MatchRow {
  const char* name;
  const char* pattern;
  bool fits;
};

const MatchRow kMatches[] = {
    {"IMG_0001.JPG", "*.jpg", true},  // a camera's upper case
    {"house.sif", "*.SIF", true},    {"house.sif.bak", "*.sif", false},
    {"house.sifx", "*.sif", false},  {"README", "*.*", true},  // "*.*" is every file, dot or none
    {"README", "*.sif", false},      {"a1.sif", "a?.sif", true},
    {"aXbXbc", "a*b*c", true},  // the first "b" is not the one that fits
    {"aXbXbd", "a*b*c", false},      {"README", "READ*.*", true},
    {"x.gif", "*.jpg;*.gif", true},  {"\xc3\x84pfel.JPG", "*.jpg", true},  // bytes beyond ASCII pass through
};

TEST(FileListingTest, PatternsMatchAsTheOldDirectorySearchDid) {
  for (const MatchRow& r : kMatches)
    EXPECT_EQ(MatchesPattern(r.name, r.pattern), r.fits) << r.name << " ~ " << r.pattern;
}

// Rows from the root down to the folder are open, one level each; its own
// folders follow one level deeper.
TEST(FileListingTest, DirectoryListOpensTheWayDownAndListsTheFoldersBelow) {
  const auto rows = [](const std::string& path, const Names& folders) {
    std::vector<std::string> out;
    for (const DirListEntry& e : DirListEntries(path, folders))
      out.push_back(e.name + " " + e.path + " " + std::to_string(e.depth) + (e.open ? " open" : ""));
    return out;
  };
  EXPECT_THAT(rows("/", {"home", "usr"}), ElementsAre("/ / 0 open", "home /home 1", "usr /usr 1"));
  EXPECT_THAT(rows("/home/u", {"Zeta"}),
              ElementsAre("/ / 0 open", "home /home 1 open", "u /home/u 2 open", "Zeta /home/u/Zeta 3"));
  EXPECT_THAT(rows("/home", {}), ElementsAre("/ / 0 open", "home /home 1 open"));
}

TEST(FileListingTest, DirectoriesAreCleanedAgainstTheBase) {
  const struct {
    const char *path, *base, *clean;
  } rows[] = {
      {"/app/Files/", "/x", "/app/Files"},
      {"/a/./b/../c", "/x", "/a/c"},
      {"Files", "/app", "/app/Files"},
      {"", "/app", "/app"},
      {"/..", "/x", "/"},
      {"//a//b/", "/", "/a/b"},
      {"/", "/x", "/"},
  };
  for (const auto& r : rows) EXPECT_EQ(CleanDirectory(r.path, r.base), r.clean) << r.path;
}

TEST(FaceMetrics, WidthsComeFromTheAdvanceTableByCharacter) {
  const NamedFace* verdana = FindNamedFace("Verdana");
  ASSERT_NE(verdana, nullptr);
  const std::pair<const char*, double> rows[] = {  // text, width in ems
      {"", 0},
      {" ~", 0.351 + 0.818},  // both ends of the table
      {"Slide: F1", 0.683 + 0.274 * 2 + 0.623 + 0.595 + 0.454 + 0.351 + 0.574 + 0.635},
      {"caf\xC3\xA9", 0.520 + 0.600 + 0.351 + 0.635},  // one character beyond the table, two bytes
      {"\t", 0.635},
  };
  for (const auto& [text, ems] : rows) EXPECT_NEAR(WidthInEms(*verdana, text), ems, 1e-9) << text;
  EXPECT_EQ(StandIns(*verdana).front(), "DejaVu Sans");
  EXPECT_EQ(FindNamedFace("Tahoma"), nullptr);
}

}  // namespace
}  // namespace cb
