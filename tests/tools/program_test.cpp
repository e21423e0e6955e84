// SPDX-License-Identifier: GPL-3.0-or-later
// The companion against the program's own code: reading a file gives what
// the program's load gives, check names each fault that load would meet,
// report hands back the page the program's report generator writes, and the
// claim pack's figures are those reports', its PDF carrying every slide as
// text and one picture for each picture found. A backup restored gives back
// every file byte for byte, the file's undo history among them, and an
// archive that is damaged, does not match its manifest or names a place
// outside the application directory is refused before anything is written.

#include <gmock/gmock.h>

#include <archive.h>
#include <archive_entry.h>
#include <sys/stat.h>

#include <QImage>

#include <regex>

#include "Report.h"
#include "SifTools.h"
#include "pack/Backup.h"
#include "pack/ClaimContent.h"
#include "pack/Manifest.h"
#include "pack/SifFile.h"
#include "qt/SystemLocale.h"
#include "reports/UIReportController.h"
#include "storage/SlideHistory.h"

namespace cb::sif::testing {
namespace {

using namespace cb::pack;
using ::testing::HasSubstr;
using ::testing::StartsWith;

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

// A claim with --where totals and lists the slides found alone, under their numbers.
TEST(Claim, WhereKeepsToTheSlidesFound) {
  Fixture f({1});
  const ClaimContent claim =
      MakeClaimContent(f.Read(), f.path, f.app / "Gallery", ReportKind::ByCategory, FixedLocale("."), "location:study");
  EXPECT_EQ(claim.grandTotal, "1.100");  // the lamp, the unnamed and the desk
  const Outcome r = RunProcess({"claim", f.path, "--where", "location:study", "-o", f.app / "study.pdf"});
  EXPECT_EQ(r.err,
            "slide 4: picture \"lamp.jpg\" is missing, marked in the claim\n"
            "slide 5: no picture named, marked in the claim\n"
            "slide 7: picture \"desk.jpg\" is missing, marked in the claim\n");
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

// Every regular file under `root`, relative name to bytes.
std::map<std::string, std::string> Tree(const fs::path& root) {
  std::map<std::string, std::string> files;
  for (const auto& e : fs::recursive_directory_iterator(root))
    if (e.is_regular_file()) files[fs::relative(e.path(), root).string()] = ReadFile(e.path().string());
  return files;
}

// `sif` rewritten as `after` with a step of its history, as the program saves.
void SaveStep(const std::string& sif, const std::string& after) {
  SlideHistory history(Env::Default(), sif);
  ASSERT_EQ(history.Open(), SlideHistory::Fit::Fits);
  ASSERT_TRUE(history.Record("Edit Slide", ReadFile(sif), after).ok());
  WriteFile(sif, after);
  history.Written();
}

// One backup of an application directory whose slides name pictures that
// are there, one twice, and some that cannot be read, and whose file has an
// undo history: restored elsewhere, over the files it came from, and damaged.
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
  const std::string history = root + "/Files/.Home.sif.history", first = ReadFile(sif);
  SaveStep(sif, WithHeader(first, "9", "2"));
  SaveStep(sif, WithHeader(first, "9", "3"));
  WriteFile(history + ".set-aside/cursor", "a history set aside");
  const Outcome b = RunProcess({"backup", sif, "-o", archive});
  ASSERT_EQ(b.status, 0) << b.err;
  EXPECT_EQ(b.out, "10 files backed up into " + archive + ", 4 missing\n");
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
  for (const char* left :
       {"Gallery/unnamed.jpg", "Files/.Home.sif.history/stamp", "Files/.Home.sif.history.set-aside/cursor"})
    EXPECT_EQ(expected.erase(left), 1u) << left;
  EXPECT_EQ(Tree(to), expected);
  SlideHistory restored(Env::Default(), to + "/Files/Home.sif");
  EXPECT_EQ(restored.Open(), SlideHistory::Fit::Fits);  // by hash: no stamp came along
  std::string undone;
  EXPECT_TRUE(restored.Undo(ReadFile(to + "/Files/Home.sif"), undone).ok() && undone == WithHeader(first, "9", "2"));

  // Existing files are replaced only with --force; a history, whole.
  std::map<std::string, std::string> before = Tree(root);
  before.erase("Files/.Home.sif.history/stamp");
  SaveStep(sif, first);
  WriteFile(root + "/Gallery/tv.jpg", "edited since");
  const Outcome refused = RunProcess({"restore", archive, "--to", root});
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.err, HasSubstr("replace them\n  Files/Home.sif\n  Files/.Home.sif.history/00000001.step\n"));
  EXPECT_EQ(ReadFile(root + "/Gallery/tv.jpg"), "edited since");
  const Outcome forced = RunProcess({"restore", archive, "--to", root, "--force"});
  EXPECT_EQ(forced.status, 0) << forced.err;
  EXPECT_EQ(Tree(root), before);

  // A backup with no history: the restore is the last step of the file's own, and can be undone.
  fs::copy_file(sif, dir / "Home.sif");
  ASSERT_EQ(RunProcess({"backup", dir / "Home.sif", "-o", dir / "alone.tar.gz"}).status, 0);
  const std::string edited = WithHeader(first, "9", "4");
  SaveStep(sif, edited);
  EXPECT_EQ(RunProcess({"restore", dir / "alone.tar.gz", "--to", root, "--force"}).status, 0);
  EXPECT_EQ(ReadFile(sif), ReadFile(dir / "Home.sif"));
  EXPECT_EQ(RunProcess({"undo", sif}).out, "Undone: Restore\n");
  EXPECT_EQ(ReadFile(sif), edited);
  // With the file gone meanwhile, whatever history it had is set aside.
  fs::remove(sif);
  EXPECT_EQ(RunProcess({"restore", dir / "alone.tar.gz", "--to", root}).status, 0);
  EXPECT_TRUE(fs::exists(history + ".set-aside.2/cursor") && !fs::exists(history));

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
  const TarEntry history{"Files/.Other.sif.history/cursor", "cursor"};
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
      {"a history without its file", {sif, history, ManifestOf({sif, history})}, "cursor\" is no part of a backup"},
      {"a history set aside", {sif, {"Files/.Home.sif.history.set-aside/c", "x"}, ManifestOf({sif})}, "no part of a"},
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
