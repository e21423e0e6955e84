// The claim pack: its figures agree with the program's own reports, and the
// PDF carries every slide as text and one picture for each picture found.

#include <gmock/gmock.h>

#include <QImage>

#include <regex>

#include "ClaimContent.h"
#include "Report.h"
#include "qt/SystemLocale.h"
#include "SifTools.h"

namespace cb::sif::testing {
namespace {

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
  Fixture(std::int32_t slideTemplate, const std::vector<SlideText>& slides = kSlides) {
    fs::create_directories(app / "Files");
    fs::create_directories(app / "Gallery");
    WriteAsProgram(path, {slideTemplate}, slides);
  }
  SifDocument Read() const {
    SifDocument doc;
    std::string message;
    EXPECT_TRUE(ReadSif(path, doc, message)) << message;
    return doc;
  }
};

TEST(Claim, TotalsAreTheSummaryReports) {
  struct Case {
    std::int32_t slideTemplate;
    ReportKind kind;
    const char* word;
    std::vector<std::string> groups;  // key, count, total
  };
  const Case cases[] = {
      {1, ReportKind::ByCategory, "Category", {"Electronics 2 101", "Furniture 3 3.301", "Jewellery 0 0", "Art 1 10", "Music 1 12.345.678"}},
      {1, ReportKind::ByLocation, "Location", {"Lounge 3 12.347.980", "Study 3 1.100", "Hall 1 10"}},
      {2, ReportKind::ByLocation, "Suburb", {"Lounge 3 12.347.980", "Study 3 1.100", "Hall 1 10"}},
      {3, ReportKind::ByCategory, "Category", {"Electronics 2 101", "Furniture 3 3.301", "Jewellery 0 0", "Art 1 10", "Music 1 12.345.678"}},
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

TEST(Claim, NothingToTotalShowsZero) {
  Fixture f(1, {{"a.jpg", "Chair", "", "", "", "", "", "100"}});
  const ClaimContent claim = MakeClaimContent(f.Read(), f.path, f.app / "Gallery", ReportKind::ByCategory, DotLocale());
  EXPECT_EQ(claim.grandTotal, "0");
  EXPECT_TRUE(claim.groups.empty());
  EXPECT_EQ(claim.ungrouped, 1);
}

TEST(Claim, FieldsUnderTheTemplatesLabelsAndValuesAsTheSubReport) {
  struct Case {
    std::int32_t slideTemplate;
    std::vector<std::string> fields;  // label=value of the first slide
  };
  const Case cases[] = {
      {1, {"Category=Electronics", "Location=Lounge", "Serial #=4711", "Make=Sony", "Model=KD55", "Total Value=1"}},
      {2, {"Category=Electronics", "Suburb=Lounge", "Street=4711", "Bedrooms=Sony", "Extras=KD55", "Ask Price=1"}},
      {3, {"Category=Electronics", "Year=Lounge", "Regn #=4711", "Colour=Sony", "Extras=KD55", "Price=1"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.slideTemplate);
    Fixture f(c.slideTemplate);
    const ClaimContent claim =
        MakeClaimContent(f.Read(), f.path, f.app / "Gallery", ReportKind::ByCategory, DotLocale());
    std::vector<std::string> fields;
    for (const auto& x : claim.slides[0].fields) fields.push_back(x.label + "=" + x.value);
    EXPECT_EQ(fields, c.fields);
    std::vector<std::string> values;
    for (const auto& s : claim.slides) values.push_back(s.fields.back().value);
    EXPECT_EQ(values, (std::vector<std::string>{"1", "2300.5", "5000", "0", "99.6", "10", "1000", "12345678"}));
  }
}

TEST(Claim, PicturesAreLookedUpInTheGalleryOnly) {
  Fixture f(1);
  WriteFile(f.app / "Gallery/tv.jpg", "x");
  WriteFile(f.app / "secret.jpg", "x");  // where "../secret.jpg" would lead
  const ClaimContent claim = MakeClaimContent(f.Read(), f.path, f.app / "Gallery", ReportKind::ByCategory, DotLocale());
  EXPECT_TRUE(claim.slides[0].pictureFound);
  EXPECT_EQ(claim.slides[0].picturePath, f.app / "Gallery/tv.jpg");
  EXPECT_FALSE(claim.slides[1].pictureFound);
  EXPECT_EQ(claim.slides[4].picture, "");
  EXPECT_FALSE(claim.slides[4].pictureFound);
  EXPECT_EQ(claim.slides[5].picturePath, "");
  EXPECT_FALSE(claim.slides[5].pictureFound);
  EXPECT_EQ(DefaultGalleryDir(f.path), f.app / "Gallery");
}

// What a poppler tool prints for `pdf`.
std::string Poppler(const std::string& tool, const std::string& pdf, const std::string& after = "") {
  std::string out;
  FILE* p = ::popen((tool + " " + ShellQuote(pdf) + after + " 2>/dev/null").c_str(), "r");
  if (!p) return out;
  char buf[4096];
  for (std::size_t n; (n = std::fread(buf, 1, sizeof buf, p)) > 0;) out.append(buf, n);
  ::pclose(p);
  return out;
}

std::string Squeezed(const std::string& text) {
  return std::regex_replace(text, std::regex("\\s+"), " ");
}

TEST(Claim, PdfHoldsEverySlideAsTextAndEachFoundPicture) {
  if (std::system("command -v pdftotext >/dev/null && command -v pdfimages >/dev/null") != 0)
    GTEST_SKIP() << "poppler-utils is not installed";
  Fixture f(1);
  int pictures = 0;
  for (const char* name : {"tv.jpg", "sofa.jpg", "lamp.jpg", "piano.jpg"}) {
    QImage image(640 + 80 * pictures, 480, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(pictures * 70, 200, 200));
    ASSERT_TRUE(image.save(QString::fromStdString(f.app / ("Gallery/" + std::string(name))), "JPEG"));
    ++pictures;
  }
  const std::string pdf = f.app / "claim.pdf";
  const Outcome r = RunProcess({"claim", f.path, "-o", pdf}, f.app);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_THAT(r.err, HasSubstr("slide 3: picture \"ring.jpg\" is missing"));
  EXPECT_THAT(r.err, HasSubstr("slide 5: no picture named"));

  const std::string text = Squeezed(Poppler("pdftotext -layout", pdf, " -"));
  const ClaimContent claim =
      MakeClaimContent(f.Read(), f.path, f.app / "Gallery", ReportKind::ByCategory, SystemReportLocale());
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
  const std::string images = Squeezed(Poppler("pdfimages -list", pdf));
  const auto count = [&images](const std::regex& re) {
    return std::distance(std::sregex_iterator(images.begin(), images.end(), re), std::sregex_iterator());
  };
  EXPECT_EQ(count(std::regex(" image \\d+ \\d+ rgb 3 8 jpeg ")), pictures) << images;
  EXPECT_EQ(count(std::regex(" image ")), pictures) << images;
}

struct Box {
  double x0, y0, x1, y1;
  std::string word;
};

// Each page of `pdf` as its words' boxes, in points, with the page's size.
std::vector<std::pair<Box, std::vector<Box>>> WordBoxes(const std::string& pdf) {
  const std::string html = Poppler("pdftotext -bbox", pdf, " -");
  static const std::regex page("<page width=\"([\\d.]+)\" height=\"([\\d.]+)\">");
  static const std::regex word(
      "<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\" yMax=\"([\\d.]+)\">([^<]*)</word>");
  std::vector<std::pair<Box, std::vector<Box>>> pages;
  static const std::regex either("<page [^>]*>|<word [^>]*>[^<]*</word>");
  for (auto it = std::sregex_iterator(html.begin(), html.end(), either); it != std::sregex_iterator(); ++it) {
    const std::string tag = it->str();
    std::smatch m;
    if (std::regex_match(tag, m, page)) {
      pages.push_back({{0, 0, std::stod(m[1]), std::stod(m[2]), ""}, {}});
    } else if (std::regex_match(tag, m, word) && !pages.empty()) {
      pages.back().second.push_back({std::stod(m[1]), std::stod(m[2]), std::stod(m[3]), std::stod(m[4]), m[5]});
    }
  }
  return pages;
}

// Text at the limits of every field: no word may run off the page's margins
// or over another, whatever the page size.
TEST(Claim, LongestTextsStayInsideTheMarginsAndApart) {
  if (std::system("command -v pdftotext >/dev/null") != 0) GTEST_SKIP() << "poppler-utils is not installed";
  const std::string w26(26, 'W');
  std::string phrase;  // wraps onto several lines at word breaks
  while (phrase.size() < 100) phrase += phrase.empty() ? "MMMM" : " MMMM";
  std::vector<SlideText> slides = {
      {"tv.jpg", std::string(100, 'W'), w26, w26, w26, w26, w26, "99999999999"},
      {"sofa.jpg", phrase.substr(0, 100), w26, "Lounge", "", "", w26, "1"},
  };
  for (int i = 0; i < 10; ++i) slides.push_back({"lamp.jpg", "Lamp " + std::to_string(i), "Furniture", "Study"});
  Fixture f(1, slides);
  const double margin = 16 / 25.4 * 72;
  for (const char* page : {"a4", "letter"}) {
    SCOPED_TRACE(page);
    const std::string pdf = f.app / (std::string(page) + ".pdf");
    ASSERT_EQ(RunProcess({"claim", f.path, "--page", page, "-o", pdf}, f.app).status, 0);
    const auto pages = WordBoxes(pdf);
    ASSERT_GE(pages.size(), 4u);
    for (std::size_t n = 0; n < pages.size(); ++n) {
      const auto& [size, words] = pages[n];
      SCOPED_TRACE("page " + std::to_string(n + 1));
      EXPECT_FALSE(words.empty());
      for (const auto& b : words) {
        EXPECT_GE(b.x0, margin - 1) << b.word;
        EXPECT_LE(b.x1, size.x1 - margin + 1) << b.word;
        EXPECT_LE(b.y1, size.y1 - margin + 1) << b.word;
      }
      for (std::size_t i = 0; i < words.size(); ++i)
        for (std::size_t j = i + 1; j < words.size(); ++j) {
          const Box &a = words[i], &b = words[j];
          const bool overlap = std::min(a.x1, b.x1) - std::max(a.x0, b.x0) > 0.5 &&
                               std::min(a.y1, b.y1) - std::max(a.y0, b.y0) > 0.5;
          EXPECT_FALSE(overlap) << "\"" << a.word << "\" over \"" << b.word << "\"";
        }
    }
  }
}

}  // namespace
}  // namespace cb::sif::testing
