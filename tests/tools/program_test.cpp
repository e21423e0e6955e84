// SPDX-License-Identifier: GPL-3.0-or-later
// The companion against the program's own code: reading a file gives what
// the program's load gives, check names each fault that load would meet,
// report hands back the page the program's report generator writes, and the
// claim pack's figures are those reports', its PDF carrying every slide as
// text and one picture for each picture found.

#include <gmock/gmock.h>

#include <QImage>

#include <regex>

#include "Report.h"
#include "SifTools.h"
#include "pack/ClaimContent.h"
#include "pack/SifFile.h"
#include "qt/SystemLocale.h"
#include "reports/UIReportController.h"

namespace cb::sif::testing {
namespace {

using namespace cb::pack;
using ::testing::HasSubstr;

TEST(SifFile, ReadAndCheckAgreeWithTheProgramsLoad) {
  Scratch app;
  const std::string f =
      WriteAsProgram(app / "made.sif", {2, "Frame3.jpg", "Clouds.jpg", "Times New Roman"},
                     {{"chair.jpg", "Oak chair", "Furniture", "Lounge", "Ikea", "Poäng", "1234", "150"},
                      {"tv.jpg", "Television", "Electrical", "Lounge", "", "", "", "1,500"},
                      {"ring.jpg", "Ring, \"gold\"", "Jewellery", "Bedroom", "", "", "AB 12", "€900"}});
  const auto nul = [&f](std::size_t at) { return f.substr(0, at) + '\0' + f.substr(at + 1); };
  // The one finding check prints for each copy; those ending "a load fails" do not load.
  const std::tuple<const char*, std::string, std::string> cases[] = {
      {"as saved", f, ""},
      {"count beyond the records", f.substr(0, 3 * kRecordLength),
       "header: the slide count 3 is beyond the 2 slide records in the file; slides 3 to 3 load empty"},
      {"last record cut short", f.substr(0, 4 * kRecordLength - 8),
       "the file's 1104 bytes are no whole number of 278-byte records; the last record is cut short"},
      {"count no number", WithHeader(f, "three", "2"),
       "header: the slide count \"three\" is not a number; a load finds no slides"},
      {"count with text behind", WithHeader(f, "2abc", "2"), ""},
      {"template outside 1 to 3", WithHeader(f, "3", "7"), "header: the template 7 is outside 1 to 3"},
      {"template no number", WithHeader(f, "3", "Home"),
       "header: the template \"Home\" is not a number; a load keeps the template it had"},
      {"NUL in a slide's field", nul(2 * kRecordLength + 189 + 3), "slide 2, Make: NUL bytes, which a load drops"},
      {"NUL in a used header field", nul(189 + 25), "header, ReportFont: NUL bytes, which a load drops"},
      {"NUL in a header field the program leaves alone", nul(137), ""},
      {"NUL behind the counted slides", WithHeader(nul(3 * kRecordLength), "2", "2"), ""},
      {"empty file", "", "the file is empty; a load finds no slides and keeps the template it had"},
      {"count above 32767", WithHeader(f, "40000", "2"),
       "header: the slide count \"40000\" is above 32767; a load fails"},
      {"template beyond 32 bits", WithHeader(f, "3", "99999999999"),
       "header: the template \"99999999999\" is too large a number; a load fails"},
  };
  for (const auto& [name, bytes, finding] : cases) {
    SCOPED_TRACE(name);
    const std::string path = app / "Files/case.sif";
    WriteFile(path, bytes);
    const Outcome r = RunInProcess({"check", path});
    EXPECT_EQ(r.out, finding.empty() ? "" : finding + "\n");
    EXPECT_EQ(r.status, finding.empty() ? 0 : 1);
    EXPECT_EQ(r.err, "");

    ModGlobal g;
    MemorySettings settings;
    UIMainController mc(app.str(), settings, g);
    mc.SlideInformationFilePath(path);
    mc.SlideTemplate(-5);  // what a failed template read leaves
    ErrorArray errors;
    const bool loads = !finding.ends_with("a load fails");
    SifDocument doc;
    std::string message;
    ASSERT_EQ(Report(mc.LoadSettings(), errors), loads);
    ASSERT_EQ(ReadSif(path, doc, message), loads) << message;
    if (!loads) {
      EXPECT_FALSE(message.empty());
      continue;
    }
    EXPECT_EQ(doc.Slides, g.Slides);
    EXPECT_EQ(doc.Header.NumberOfRecords.value, mc.NumberOfRecords());
    EXPECT_EQ(doc.Header.BackgroundImage, mc.BackgroundImage());
    EXPECT_EQ(doc.Header.Wallpaper, mc.Wallpaper());
    EXPECT_EQ(doc.Header.ReportFont, mc.ReportFont());
    EXPECT_EQ(TemplateOf(doc).value_or(-5), mc.SlideTemplate());
  }
}

TEST(Check, ListsPicturesMissingFromTheGallery) {
  Scratch dir;
  const std::string gallery = dir / "Gallery";
  WriteFile(gallery + "/a.jpg", "x");
  WriteFile(gallery + "/B.JPG", "x");
  WriteAsProgram(dir / "g.sif", {}, {{"a.jpg", ""}, {"b.jpg", ""}, {"c.jpg", ""}, {"", "no picture"}});
  const Outcome r = RunInProcess({"check", dir / "g.sif", "--gallery", gallery});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "slide 2: picture \"b.jpg\" is missing from " + gallery + " (\"B.JPG\" differs in case)\n" +
                       "slide 3: picture \"c.jpg\" is missing from " + gallery + "\nslide 4: no picture file named\n");
}

ReportLocale FixedLocale(const char* decimalPoint = ",") {
  ReportLocale l;
  l.thousandsSeparator = ".";
  l.decimalPoint = decimalPoint;
  l.generalDate = [] { return std::string("1/02/2003 4:05:06 PM"); };
  return l;
}

const std::vector<SlideText> kSlides = {
    {"tv.jpg", "Télé", "Electronics", "Lounge", "Sony", "KD55", "4711", "1,500"},
    {"sofa.jpg", "Sofa", "Furniture", "Lounge", "", "", "AB-12", "2300.5"},
    {"ring.jpg", "Ring", "Jewellery", "", "", "", "R9", "5000"},  // no location: in no total
    {"lamp.jpg", "Lamp", "Furniture", "Study", "", "", "", "$40"},
    {"", "Unnamed", "Electronics", "Study", "", "", "", "99.6"},
    {"../secret.jpg", "Escapee", "Art", "Hall", "", "", "", "10"},
    {"desk.jpg", "Desk", "Furniture", "Study", "", "", "", "1e3"},
    {"piano.jpg", "Piano", "Music", "Lounge", "", "", "", "12345678"},
};

// kSlides as the program writes them, and as the companion reads them.
struct Fixture {
  Scratch app;
  std::string path = app / "Files/Home.sif";
  explicit Fixture(const Header& h) {
    fs::create_directories(app / "Gallery");
    WriteAsProgram(path, h, kSlides);
  }
  SifDocument Read() const {
    SifDocument doc;
    std::string message;
    EXPECT_TRUE(ReadSif(path, doc, message)) << message;
    return doc;
  }
};

struct ReportCase {
  const char* name;
  std::int32_t slideTemplate;  // written into the file's header
  ReportKind kind;
  std::optional<std::string> key;
  std::optional<std::string> font;
};

// The page the program writes: the file loaded as Open loads it, the report
// font taken from it, the report made by a fresh controller.
std::string ProgramPage(const Scratch& app, const std::string& path, const ReportCase& c) {
  ModGlobal g;
  MemorySettings settings;
  UIMainController mc(app.str(), settings, g);
  mc.SlideInformationFilePath(path);
  ErrorArray errors;
  EXPECT_TRUE(Report(mc.LoadSettings(), errors)) << errors[2];
  if (mc.SlideTemplate() < 1 || mc.SlideTemplate() > 3) mc.SlideTemplate(1);  // as the report chooser does
  UIReportController reports(mc, g.Slides, errors, FixedLocale());
  reports.ReportFont(c.font.value_or(mc.ReportFont()));
  const bool byCategory = c.kind == ReportKind::ByCategory;
  const bool ok = !c.key       ? (byCategory ? reports.CreateReportByCategory() : reports.CreateReportByLocation())
                  : byCategory ? reports.CreateSubReportByCategory(*c.key)
                               : reports.CreateSubReportByLocation(*c.key);
  EXPECT_TRUE(ok) << errors[2];
  return ReadFile(app / (c.key ? "Reports/Report 1.htm" : "Reports/Report1.htm"));
}

TEST(Report, IsThePageTheProgramWrites) {
  const ReportCase cases[] = {
      {"summary by category", 1, ReportKind::ByCategory, {}, {}},
      {"summary by location", 1, ReportKind::ByLocation, {}, {}},
      {"sub-report of a category", 1, ReportKind::ByCategory, "Furniture", {}},
      {"sub-report of a suburb", 2, ReportKind::ByLocation, "Lounge", {}},
      {"another font", 2, ReportKind::ByCategory, {}, "Courier New"},
      {"template 9 reports as 1", 9, ReportKind::ByLocation, {}, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Fixture f({1, "", "", "Tahoma"});
    WriteFile(f.path, WithHeader(ReadFile(f.path), "8", std::to_string(c.slideTemplate)));
    std::string message, page;
    ASSERT_TRUE(MakeReport({c.kind, c.key, c.font, f.path}, f.Read(), FixedLocale(), page, message)) << message;
    EXPECT_EQ(page, ProgramPage(f.app, f.path, c));
    EXPECT_THAT(page, HasSubstr("face='" + c.font.value_or("Tahoma") + "'"));
  }
}

// The grand total cell of a summary page.
std::string SummaryTotal(const std::string& page) {
  static const std::regex total(">([^<>]*)</b></td></tr></table>");
  std::smatch m;
  EXPECT_TRUE(std::regex_search(page, m, total));
  return m[1];
}

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
    Fixture f({c.slideTemplate});
    const SifDocument doc = f.Read();
    const ClaimContent claim = MakeClaimContent(doc, f.path, f.app / "Gallery", c.kind, FixedLocale("."));
    std::string page, message;
    ASSERT_TRUE(MakeReport({c.kind, {}, {}, f.path}, doc, FixedLocale("."), page, message)) << message;
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
  Fixture f({1});
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
