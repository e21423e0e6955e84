// The two interchange formats: what is written must read back unchanged,
// and malformed input must be refused with a message that finds the spot.

#include <gmock/gmock.h>

#include "Csv.h"
#include "Formats.h"
#include "SifTools.h"

namespace cb::sif::testing {
namespace {

using ::testing::HasSubstr;

struct CsvCase {
  const char* name;
  std::vector<CsvRow> rows;  // in Windows-1252
  std::string text;          // in UTF-8
};

const CsvCase kCsvCases[] = {
    {"plain", {{"a", "b"}, {"", "c"}}, "a,b\r\n,c\r\n"},
    {"comma", {{"1,500", "x"}}, "\"1,500\",x\r\n"},
    {"quotes doubled", {{"Ring \"gold\""}}, "\"Ring \"\"gold\"\"\"\r\n"},
    {"line breaks kept as written", {{"two\r\nlines", "lf\nonly"}}, "\"two\r\nlines\",\"lf\nonly\"\r\n"},
    {"blanks at either end", {{" lead", "trail "}}, "\" lead\",\"trail \"\r\n"},
    {"specials among the first eight bytes", {{"5\" screen wide", "1,500 dollars", "lf\nonly, more"}},
     "\"5\"\" screen wide\",\"1,500 dollars\",\"lf\nonly, more\"\r\n"},
    {"beyond ASCII", {{"Caf\xE9 \x80" "5", "\x99\"\x80\""}}, "Café €5,\"™\"\"€\"\"\"\r\n"},
};

std::string Written(const std::vector<CsvRow>& rows) {
  std::string out;
  for (const auto& row : rows) AppendCsvRecord(out, std::vector<std::string_view>(row.begin(), row.end()));
  return out;
}

TEST(Csv, WritesAndReadsBack) {
  for (const auto& c : kCsvCases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Written(c.rows), c.text);
    std::vector<CsvRow> back;
    std::string message;
    ASSERT_TRUE(ParseCsv(c.text, back, message)) << message;
    std::vector<CsvRow> expected = c.rows;
    for (auto& row : expected)
      for (auto& field : row) field = Cp1252ToUtf8(field);
    EXPECT_EQ(back, expected);
  }
}

TEST(Csv, ReadsWhatSpreadsheetsWriteAndNamesTheLineOfBadQuoting) {
  const struct {
    std::string text;
    std::vector<CsvRow> rows;  // expected when `message` is empty
    std::string message;
  } cases[] = {
      {"a,b\nc,\"d\"", {{"a", "b"}, {"c", "d"}}, ""},  // LF line ends, none at the end
      {"\xEF\xBB\xBF" "a,\r\n\r\n\nb\r\n", {{"a", ""}, {"b"}}, ""},  // byte-order mark, empty lines
      {"5\" screen,x", {{"5\" screen", "x"}}, ""},
      {"a\r\nb,\"open\r\nstill open", {}, "line 2: a quoted field is not closed"},
      {"\"multi\nline\",ok\n\"bad\"x", {}, "line 3: text after the closing quote of a field"},
  };
  for (const auto& c : cases) {
    std::vector<CsvRow> rows;
    std::string message;
    EXPECT_EQ(ParseCsv(c.text, rows, message), c.message.empty()) << c.text;
    EXPECT_EQ(message, c.message);
    if (c.message.empty()) {
      EXPECT_EQ(rows, c.rows);
    }
  }
}

TEST(Csv, MapsColumnsByName) {
  Inventory inv;
  std::string message;
  ASSERT_TRUE(ImportCsv("value,PictureFile\r\n150,a.jpg\r\n", inv, message)) << message;
  ASSERT_EQ(inv.Slides.size(), 1u);
  EXPECT_EQ(inv.Slides[0][1], "a.jpg");
  EXPECT_EQ(inv.Slides[0][8], "150");
  EXPECT_EQ(inv.Slides[0][2], "");
  EXPECT_FALSE(inv.SlideTemplate);
}

TEST(Json, RefusesWhatItCannotRead) {
  const struct {
    std::string text;
    const char* message;
  } cases[] = {
      {"{\"slides\": [", "not JSON: "},
      {"{\"font\": \"Arial\"}", "unknown key \"font\""},
      {"{\"template\": 1.5}", "template: not a whole number"},
      {"{\"slides\": [{}, 7]}", "row 2: not an object"},
      {"{\"slides\": [{\"PictureFile\": \"a\"}]}", "row 1: unknown key \"PictureFile\""},
      {"{\"slides\": [{}, {\"value\": 150}]}", "row 2, Value: not a text"},
  };
  for (const auto& c : cases) {
    Inventory inv;
    std::string message;
    EXPECT_FALSE(ImportJson(c.text, inv, message)) << c.text;
    EXPECT_THAT(message, HasSubstr(c.message)) << c.text;
  }
}

}  // namespace
}  // namespace cb::sif::testing
