// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "storage/Scramble.h"

#include "base/Text.h"

namespace cb {
namespace {

using namespace std::string_literals;

// Each character becomes 256 - c over the trimmed length of the untrimmed text.
TEST(Scramble, StoresEachCharacterAsItsComplement) {
  const std::pair<std::string, std::string> rows[] = {
      {"", ""},
      {"A", "\xBF"},
      {"a b", "\x9F\xE0\x9E"},
      {"abc   ", "\x9F\x9E\x9D"},
      {" abc", "\xE0\x9F\x9E"},  // a leading blank costs the last character
      {"  ab", "\xE0\xE0"},
      {"\xE0", " "},  // code 224 is stored as a blank
      {"\x01\xFF", "\xFF\x01"},
      {std::string(26, '\0'), ""},  // a never-assigned field
      {"a\0b"s, "\x9F\x9E"},        // NUL has no stored form
  };
  for (const auto& [plain, stored] : rows) {
    SCOPED_TRACE(plain);
    EXPECT_EQ(ScrambleField(plain), stored);
    // A record's field is scrambled where it stands and ends padded with
    // blanks, as the text form assigned to the field would be.
    for (bool trimFirst : {false, true}) {
      std::string field = plain + std::string(32 - plain.size(), ' ');
      ScrambleInPlace(field, trimFirst);
      std::string expected = ScrambleField(trimFirst ? Trim(plain) : plain);
      expected.resize(32, ' ');
      EXPECT_EQ(field, expected) << trimFirst;
    }
  }
}

TEST(Scramble, UnscrambleSkipsPaddingAndNul) {
  const std::pair<std::string, std::string> rows[] = {
      {"\xBF   ", "A"},   {"\x9F\xE0\x9E", "a b"}, {"\x9F \x9E", "ab"},  // padding blanks vanish wherever they stand
      {"\0\0\xBF"s, "A"},                                                // so do NULs
      {"", ""},
  };
  for (const auto& [stored, plain] : rows) {
    SCOPED_TRACE(stored);
    EXPECT_EQ(UnscrambleField(stored), plain);
    std::string field = stored + std::string(8, ' ');
    UnscrambleInPlace(field);
    std::string expected = plain;
    expected.resize(field.size(), ' ');
    EXPECT_EQ(field, expected);
  }
}


// The in-place form takes eight bytes at a time where it can: every code, a
// blank or NUL at every place in a run of text, and text at every place in a
// run of padding come out as the text form gives them.
TEST(UnscrambleInPlace, AgreesWithTheTextFormAtEveryPlace) {
  std::string everyCode;
  for (int c = 1; c < 256; ++c) everyCode += static_cast<char>(c);
  std::vector<std::string> fields{everyCode};
  for (std::size_t at = 0; at < 24; ++at)
    for (char gap : {' ', '\0'}) {
      std::string text = "ABCDEFGHIJKLMNOPQRSTUVWX", padding(24, gap);
      text[at] = gap;
      padding[at] = 'Q';
      fields.insert(fields.end(), {text, padding});
    }
  for (const std::string& stored : fields) {
    std::string field = stored;
    UnscrambleInPlace(field);
    std::string expected = UnscrambleField(stored);
    expected.resize(stored.size(), ' ');
    EXPECT_EQ(field, expected) << ::testing::PrintToString(stored);
  }
}

}  // namespace
}  // namespace cb
