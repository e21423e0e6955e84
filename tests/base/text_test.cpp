// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "base/Cp1252.h"
#include "base/Status.h"
#include "base/Text.h"

namespace cb {
namespace {

using namespace std::string_literals;

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
  const Status s(RtError::PathNotFound, "DataAccess");
  EXPECT_FALSE(s.ok());
  EXPECT_FALSE(Report(s, errors));
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

}  // namespace
}  // namespace cb
