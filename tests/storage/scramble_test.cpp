#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "storage/Scramble.h"

#include "base/Text.h"

namespace cb {
namespace {

using namespace std::string_literals;

struct ScrambleRow {
  std::string plain;
  std::string stored;
};

// Each character becomes 256 - c over the trimmed length of the untrimmed text.
const ScrambleRow kScrambleRows[] = {
    {"", ""},
    {"A", "\xBF"},
    {"a b", "\x9F\xE0\x9E"},
    {"abc   ", "\x9F\x9E\x9D"},
    {" abc", "\xE0\x9F\x9E"},         // a leading blank costs the last character
    {"  ab", "\xE0\xE0"},
    {"\xE0", " "},                    // code 224 is stored as a blank
    {"\x01\xFF", "\xFF\x01"},
    {std::string(26, '\0'), ""},      // a never-assigned field
    {"a\0b"s, "\x9F\x9E"},            // NUL has no stored form
};

class ScrambleTest : public ::testing::TestWithParam<ScrambleRow> {};

TEST_P(ScrambleTest, StoresEachCharacterAsItsComplement) {
  EXPECT_EQ(ScrambleField(GetParam().plain), GetParam().stored);
}

// A record's field is scrambled where it stands and ends padded with blanks,
// as the text form assigned to the field would be.
TEST_P(ScrambleTest, InPlaceMatchesTheTextForm) {
  for (bool trimFirst : {false, true}) {
    std::string field = GetParam().plain + std::string(32 - GetParam().plain.size(), ' ');
    ScrambleInPlace(field, trimFirst);
    std::string expected = ScrambleField(trimFirst ? Trim(GetParam().plain) : GetParam().plain);
    expected.resize(32, ' ');
    EXPECT_EQ(field, expected) << trimFirst;
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, ScrambleTest, ::testing::ValuesIn(kScrambleRows));

struct UnscrambleRow {
  std::string stored;
  std::string plain;
};

const UnscrambleRow kUnscrambleRows[] = {
    {"\xBF   ", "A"},
    {"\x9F\xE0\x9E", "a b"},
    {"\x9F \x9E", "ab"},               // padding blanks vanish wherever they stand
    {"\0\0\xBF"s, "A"},                // so do NULs
    {"", ""},
};

class UnscrambleTest : public ::testing::TestWithParam<UnscrambleRow> {};

TEST_P(UnscrambleTest, SkipsPaddingAndNul) { EXPECT_EQ(UnscrambleField(GetParam().stored), GetParam().plain); }

TEST_P(UnscrambleTest, InPlaceMatchesTheTextForm) {
  std::string field = GetParam().stored + std::string(8, ' ');
  UnscrambleInPlace(field);
  std::string expected = GetParam().plain;
  expected.resize(field.size(), ' ');
  EXPECT_EQ(field, expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, UnscrambleTest, ::testing::ValuesIn(kUnscrambleRows));

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

TEST(ScrambleTest, EveryCodeButNulAndBlankRoundTrips) {
  for (int c = 1; c < 256; ++c) {
    if (c == 32 || c == 224) continue;
    const std::string one(1, static_cast<char>(c));
    EXPECT_EQ(UnscrambleField(ScrambleField(one)), one) << c;
  }
}

}  // namespace
}  // namespace cb
