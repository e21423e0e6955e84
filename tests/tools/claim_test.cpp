// SPDX-License-Identifier: GPL-3.0-or-later
// The claim pack: its figures agree with the program's own reports, and the
// PDF carries every slide as text and one picture for each picture found.

#include <gmock/gmock.h>

#include <QImage>

#include <regex>

#include "Report.h"
#include "SifTools.h"
#include "pack/ClaimContent.h"
#include "qt/SystemLocale.h"

namespace cb::sif::testing {
namespace {

using namespace cb::pack;
using ::testing::HasSubstr;

const std::vector<SlideText> kSlides = {
    {"tv.jpg", "Television", "Electronics", "Lounge", "Sony", "KD55", "4711", "1,500"},
    {"sofa.jpg", "Sofa", "Furniture", "Lounge", "", "", "AB-12", "2300.5"},
    {"ring.jpg", "Ring", "Jewellery", "", "", "", "R9", "5000"},  // no location: in no total
    {"lamp.jpg", "Lamp", "Furniture", "Study", "", "", "", "$40"},
    {"", "Unnamed", "Electronics", "Study", "", "", "", "99.6"},
    {"../secret.jpg", "Escapee", "Art", "Hall", "", "", "", "10"},
    {"desk.jpg", "Desk", "Furniture", "Study", "", "", "", "1e3"},
    {"piano.jpg", "Piano", "Music", "Lounge", "", "", "", "12345678"},
};

ReportLocale DotLocale() {
  ReportLocale l;
  l.thousandsSeparator = ".";
  l.generalDate = [] { return std::string("1/02/2003 4:05:06 PM"); };
  return l;
}

// The grand total cell of a summary page.
std::string SummaryTotal(const std::string& page) {
  static const std::regex total(">([^<>]*)</b></td></tr></table>");
  std::smatch m;
  EXPECT_TRUE(std::regex_search(page, m, total));
  return m[1];
}

struct Fixture {
  Scratch app;
  std::string path = app / "Files/Home.sif";
  explicit Fixture(std::int32_t slideTemplate) {
    fs::create_directories(app / "Gallery");
    WriteAsProgram(path, {slideTemplate}, kSlides);
  }
  SifDocument Read() const {
    SifDocument doc;
    std::string message;
    EXPECT_TRUE(ReadSif(path, doc, message)) << message;
    return doc;
  }
};

TEST(Claim, TotalsAreTheSummaryReports) {
  const struct {
    std::int32_t slideTemplate;
    ReportKind kind;
    const char* word;
    std::vector<std::string> groups;  // key, count, total
  } cases[] = {
      {1,
       ReportKind::ByCategory,
       "Category",
       {"Electronics 2 101", "Furniture 3 3.301", "Jewellery 0 0", "Art 1 10", "Music 1 12.345.678"}},
      {1, ReportKind::ByLocation, "Location", {"Lounge 3 12.347.980", "Study 3 1.100", "Hall 1 10"}},
      {2, ReportKind::ByLocation, "Suburb", {"Lounge 3 12.347.980", "Study 3 1.100", "Hall 1 10"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.word) + " of template " + std::to_string(c.slideTemplate));
    Fixture f(c.slideTemplate);
    const SifDocument doc = f.Read();
    const ClaimContent claim = MakeClaimContent(doc, f.path, f.app / "Gallery", c.kind, DotLocale());
    std::string page, message;
    ASSERT_TRUE(MakeReport({c.kind, {}, {}, f.path}, doc, DotLocale(), page, message)) << message;
    EXPECT_EQ(claim.grandTotal, SummaryTotal(page));
    EXPECT_EQ(claim.grandTotal, "12.349.089");
    EXPECT_EQ(claim.groupWord, c.word);
    std::vector<std::string> groups;
    for (const auto& g : claim.groups) groups.push_back(g.key + " " + std::to_string(g.slides) + " " + g.total);
    EXPECT_EQ(groups, c.groups);
    EXPECT_EQ(claim.ungrouped, 1);  // the ring
    EXPECT_EQ(claim.slideCount, 8);
  }
}

std::string Squeezed(const std::string& text) { return std::regex_replace(text, std::regex("\\s+"), " "); }

// Pictures are looked up in the gallery only, never where a name climbs out of it.
TEST(Claim, PdfHoldsEverySlideAsTextAndEachFoundPicture) {
  Fixture f(1);
  int pictures = 0;
  for (const char* name : {"tv.jpg", "sofa.jpg", "lamp.jpg", "piano.jpg"}) {
    QImage image(640 + 80 * pictures, 480, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(pictures * 70, 200, 200));
    ASSERT_TRUE(image.save(QString::fromStdString(f.app / ("Gallery/" + std::string(name))), "JPEG"));
    ++pictures;
  }
  WriteFile(f.app / "secret.jpg", "x");  // where "../secret.jpg" would lead
  const ClaimContent claim =
      MakeClaimContent(f.Read(), f.path, f.app / "Gallery", ReportKind::ByCategory, SystemReportLocale());
  EXPECT_TRUE(claim.slides[0].pictureFound);
  EXPECT_EQ(claim.slides[0].picturePath, f.app / "Gallery/tv.jpg");
  EXPECT_EQ(claim.slides[4].picture, "");
  EXPECT_EQ(claim.slides[5].picturePath, "");
  for (std::size_t i : {2, 4, 5}) EXPECT_FALSE(claim.slides[i].pictureFound) << i;
  EXPECT_EQ(DefaultGalleryDir(f.path), f.app / "Gallery");
  if (std::system("command -v pdftotext >/dev/null && command -v pdfimages >/dev/null") != 0)
    GTEST_SKIP() << "poppler-utils is not installed";
  const std::string pdf = f.app / "claim.pdf";
  const Outcome r = RunProcess({"claim", f.path, "-o", pdf});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_THAT(r.err, HasSubstr("slide 3: picture \"ring.jpg\" is missing"));
  EXPECT_THAT(r.err, HasSubstr("slide 5: no picture named"));

  const std::string text = Squeezed(RunProcess({"-layout", pdf, "-"}, "", "pdftotext").out);
  std::string summary, message;
  ASSERT_TRUE(MakeReport({ReportKind::ByCategory, {}, {}, f.path}, f.Read(), SystemReportLocale(), summary, message))
      << message;
  EXPECT_THAT(text, HasSubstr("Grand total " + SummaryTotal(summary) + " "));
  EXPECT_THAT(text, HasSubstr("Total 7 " + SummaryTotal(summary) + " "));
  for (const auto& s : claim.slides) {
    SCOPED_TRACE(s.text);
    EXPECT_THAT(text, HasSubstr("Slide " + std::to_string(s.number) + " \u2013 " + s.text + " "));
    for (const auto& field : {s.fields[2], s.fields[5]})  // serial and value
      if (!field.value.empty()) {
        EXPECT_THAT(text, HasSubstr(field.label + " " + field.value + " "));
      }
  }
  EXPECT_THAT(text, HasSubstr("Picture ring.jpg (missing)"));
  EXPECT_THAT(text, HasSubstr("Picture none named"));
  EXPECT_THAT(text, HasSubstr("Picture missing"));  // in the picture's place

  // One JPEG per picture found, none for the four that are not.
  const std::string images = Squeezed(RunProcess({"-list", pdf}, "", "pdfimages").out);
  const auto count = [&images](const std::regex& re) {
    return std::distance(std::sregex_iterator(images.begin(), images.end(), re), std::sregex_iterator());
  };
  EXPECT_EQ(count(std::regex(" image \\d+ \\d+ rgb 3 8 jpeg ")), pictures) << images;
  EXPECT_EQ(count(std::regex(" image ")), pictures) << images;
}

}  // namespace
}  // namespace cb::sif::testing
