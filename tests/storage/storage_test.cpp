// SPDX-License-Identifier: GPL-3.0-or-later
// The slide information file: what a save writes byte for byte, what a
// load makes of whole, cut, damaged and unreadable files, how its fields are
// scrambled, and how the files in a folder are listed. Saves replace their
// file in one step, so a failed step leaves the old file byte for byte; and
// the small files: password, history and report pages.
#include <gmock/gmock.h>

#include <sys/stat.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <random>

#include "base/Bytes16.h"
#include "storage/DataAccess.h"
#include "storage/DiskEnv.h"
#include "storage/Listing.h"
#include "storage/RandomFile.h"
#include "storage/Scramble.h"
#include "storage/SmallFiles.h"
#include "support/SifFixture.h"

namespace cb {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using testing::Numbered;
using testing::ReadFile;
using testing::ReadHex;
using testing::Slide;
using testing::TempDir;
using testing::WriteFile;

const std::string kThreeHex = FIXTURES "/three_slides.hex";

// A temporary installation, with its own folder for the password.
class SifFileTest : public testing::SifFixture {
 protected:
  SifFileTest() { setenv("XDG_CONFIG_HOME", config.str().c_str(), 1); }
  UIMainController& Open(const std::string& name) {
    UIMainController& mc = Start();
    mc.SetRegistryKeys(FilesPath(name));
    return mc;
  }
  std::string PasswordFile() const { return config / "Chattelbook/dprpz.dat"; }
  TempDir config;
  ErrorArray errors;
};

// A slide as a load gives it back: every field padded with blanks.
SlideRecord Loaded(const std::vector<std::string>& fields = {}) {
  SlideRecord r;
  r.bytes().fill(' ');
  for (std::size_t i = 0; i < fields.size(); ++i) r.Set(static_cast<Field>(i + 1), fields[i]);
  return r;
}

SlideArray ThreeSlides() {
  return {SlideRecord(),
          Loaded({"tv.jpg", "Lounge television", "Electrical", "Lounge", "Sony", "KD-55X80", "SN 4471", "1499.95"}),
          Loaded({"ring.jpg", "Gold ring, 18ct", "Jewellery", "Bedroom", "", "", "", "2,300"}),
          Loaded({"bike.jpg", "Road bike \xE9t\xE9", "Sport", "Garage", "Trek", "Domane", "WTU123", "850"})};
}

// A header record whose count and template fields hold the given plain text.
std::string Header(const std::string& count, const std::string& tmpl) {
  SlideRecord h;
  h.Set(Field::Serial, ScrambleField(count));
  h.Set(Field::Spare, ScrambleField(tmpl));
  return std::string(h.bytes().data(), kRecordLength);
}

TEST_F(SifFileTest, SavesByteForByteAndLoadsBack) {
  UIMainController& mc = Open("three.sif");
  mc.SlideTemplate(2);
  mc.BackgroundImage("oak.jpg");
  mc.Wallpaper("dusk.jpg");
  mc.ReportFont("DejaVu Sans");
  g.Slides = ThreeSlides();
  g.SlidesChanged = true;
  ASSERT_TRUE(Report(mc.SaveSettings(), errors));
  const std::string golden = ReadHex(kThreeHex);
  EXPECT_EQ(ReadFile(FilesPath("three.sif")), golden);
  EXPECT_FALSE(g.SlidesChanged);

  UIMainController& loaded = Open("three.sif");
  g.Slides.clear();
  g.SlidesChanged = true;
  ASSERT_TRUE(Report(loaded.LoadSettings(), errors));
  EXPECT_EQ(loaded.NumberOfRecords(), 3);
  EXPECT_EQ(loaded.SlideTemplate(), 2);
  EXPECT_EQ(loaded.BackgroundImage(), "oak.jpg");
  EXPECT_EQ(loaded.Wallpaper(), "dusk.jpg");
  EXPECT_EQ(loaded.ReportFont(), "DejaVu Sans");
  EXPECT_FALSE(g.SlidesChanged);
  // The header stays as read, still scrambled.
  SlideArray expected = ThreeSlides();
  std::copy_n(golden.begin(), kRecordLength, expected[0].bytes().begin());
  EXPECT_EQ(g.Slides, expected);
}

TEST_F(SifFileTest, NeverAssignedFieldsAreSavedAsBlanks) {
  UIMainController& mc = Open("chair.sif");
  mc.SlideTemplate(1);
  g.Slides.push_back(Slide({{Field::PictureFile, "a.jpg"}, {Field::SlideText, "Chair"}}));
  ASSERT_TRUE(Report(mc.SaveSettings(), errors));
  EXPECT_EQ(ReadFile(FilesPath("chair.sif")), ReadHex(FIXTURES "/unassigned_fields.hex"));
  ASSERT_TRUE(Report(mc.LoadSettings(), errors));
  EXPECT_EQ(g.Slides[1].Get(Field::Make), std::string(26, ' '));
}

TEST_F(SifFileTest, FieldComesBackAsStored) {
  const struct {
    Field field;
    std::string saved, loaded;  // loaded: trimmed
  } rows[] = {
      {Field::Make, " abc", " ab"},        // leading blank costs the last character
      {Field::Value, "  12.50", "12.50"},  // the value alone is trimmed first
      {Field::PictureFile, std::string(30, 'p'), std::string(26, 'p')},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.saved);
    UIMainController& mc = Open("one.sif");
    g.Slides = {SlideRecord(), Slide({{row.field, row.saved}})};
    ASSERT_TRUE(Report(mc.SaveSettings(), errors));
    ASSERT_TRUE(Report(mc.LoadSettings(), errors));
    EXPECT_EQ(RTrim(g.Slides[1].Get(row.field)), row.loaded);
  }
}

// A cut file reads as far as it goes, from the disk and from memory alike.
TEST_F(SifFileTest, CutFileReadsAsFarAsItGoes) {
  // Slide 3 ends four bytes into its picture name.
  const std::string cut = ReadHex(kThreeHex).substr(0, 3 * kRecordLength + 15);
  WriteFile(FilesPath("cut.sif"), cut);
  UIMainController& mc = Open("cut.sif");
  ASSERT_TRUE(Report(mc.LoadSettings(), errors));
  ASSERT_EQ(g.Slides.size(), 4u);
  EXPECT_EQ(RTrim(g.Slides[3].Get(Field::PictureFile)), "bike");
  EXPECT_EQ(RTrim(g.Slides[3].Get(Field::SlideText)), "");
  MemoryEnv memory;
  memory.Files()["/a.sif"] = cut;
  SifSettings held;
  SlideArray heldSlides;
  ASSERT_TRUE(DataAccess(memory).LoadSettings({"/a.sif", "a.sif", "/a.sif"}, held, heldSlides).ok());
  EXPECT_EQ(heldSlides, g.Slides);
  EXPECT_EQ(held.NumberOfRecords, mc.NumberOfRecords());
}

TEST_F(SifFileTest, FileIsReadFromTheFilesDirectoryUnderItsExactName) {
  WriteFile(app / "elsewhere/three.sif", "not read");
  WriteFile(FilesPath("three.sif"), ReadHex(kThreeHex));
  UIMainController& mc = Open("x");
  mc.SetRegistryKeys(app / "elsewhere/three.sif");
  ASSERT_TRUE(Report(mc.LoadSettings(), errors));
  EXPECT_EQ(mc.NumberOfRecords(), 3);
  EXPECT_EQ(mc.SlideInformationFilePath(), app / "elsewhere/three.sif");

  // Without a twin there, an empty one is made.
  WriteFile(app / "elsewhere/lone.sif", ReadHex(kThreeHex));
  mc.SetRegistryKeys(app / "elsewhere/lone.sif");
  ASSERT_TRUE(Report(mc.LoadSettings(), errors));
  EXPECT_EQ(mc.NumberOfRecords(), 0);
  EXPECT_TRUE(std::filesystem::exists(FilesPath("lone.sif")));
  EXPECT_EQ(ReadFile(FilesPath("lone.sif")), "");

  // A name differing in case is not found, and nothing changes.
  WriteFile(FilesPath("Other.sif"), ReadHex(kThreeHex));
  mc.SetRegistryKeys(FilesPath("other.sif"));
  errors = {"kept0", "kept1", ""};
  g.Slides = ThreeSlides();
  EXPECT_FALSE(Report(mc.LoadSettings(), errors));
  EXPECT_EQ(errors, (ErrorArray{"kept0", "kept1", "Cannot find Slide Information File."}));
  EXPECT_EQ(g.Slides.size(), 4u);
}

TEST_F(SifFileTest, SaveFailsIntoAMissingDirectoryOrBeyondWhatALoadCounts) {
  UIMainController& mc = Open("x");
  mc.SetRegistryKeys(app / "no/such/dir/a.sif");
  EXPECT_FALSE(Report(mc.SaveSettings(), errors));
  EXPECT_EQ(errors[0], "76");
  EXPECT_EQ(errors[2], "Path not found");
  mc.SetRegistryKeys(app / "big.sif");
  g.Slides.resize(kMaxRecords + 2);
  EXPECT_FALSE(Report(mc.SaveSettings(), errors));
  EXPECT_EQ(errors[0], "6");
}

TEST_F(SifFileTest, BadOrEmptyHeaderTakesTheLoadsResultOrFailurePath) {
  const struct {
    const char* name;
    std::string bytes;
    bool loads;
    std::string error;           // errors[0] on failure
    std::int32_t records;        // NumberOfRecords afterwards
    std::int32_t slideTemplate;  // SlideTemplate afterwards (it was 3)
  } rows[] = {
      // The count is stored before the loop refuses it.
      {"count 40000", Header("40000", "1"), false, "6", 40000, 1},
      {"count beyond long", Header("99999999999", "1"), false, "6", 7, 3},
      {"count non-digits", Header("abc", "2"), true, "", 0, 2},
      {"count leading digits", Header("2x", "2"), true, "", 2, 2},
      {"template non-numeric", Header("0", "x"), true, "", 0, 3},
      {"template rounds half even", Header("0", "2.5"), true, "", 0, 2},
      {"template beyond long", Header("0", "99999999999"), false, "6", 0, 3},
      {"empty file", "", true, "", 0, 3},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    WriteFile(FilesPath("bad.sif"), row.bytes);
    UIMainController& mc = Open("bad.sif");
    mc.SlideTemplate(3);
    mc.NumberOfRecords(7);
    g.Slides.resize(8);
    errors = {};
    EXPECT_EQ(Report(mc.LoadSettings(), errors), row.loads);
    EXPECT_EQ(errors[0], row.error);
    if (!row.loads) {
      EXPECT_EQ(errors[1], "DataAccess");
      EXPECT_EQ(errors[2], "Overflow");
      EXPECT_EQ(g.Slides.size(), 8u);  // unchanged
    } else {                           // every slide counted lies past the header, the file's end
      EXPECT_EQ(g.Slides.size(), static_cast<std::size_t>(row.records) + 1);
      for (std::size_t i = 1; i < g.Slides.size(); ++i) EXPECT_EQ(g.Slides[i], Loaded()) << i;
    }
    EXPECT_EQ(mc.NumberOfRecords(), row.records);
    EXPECT_EQ(mc.SlideTemplate(), row.slideTemplate);
  }
}

// A reading open tells a missing folder from a missing file, and writes nothing.
TEST(RandomFile, AReadingOpenTellsTheMissingFolderAndNeverWrites) {
  testing::TempDir dir;
  RandomFile f;
  EXPECT_EQ(f.OpenRead(dir / "absent.sif", kRecordLength), RtError::FileNotFound);
  EXPECT_EQ(f.OpenRead(dir / "no/absent.sif", kRecordLength), RtError::PathNotFound);
  WriteFile(dir / "a.sif", "abc");
  ASSERT_EQ(f.OpenRead(dir / "a.sif", kRecordLength), RtError::None);
  EXPECT_NE(f.Put(1, std::string(kRecordLength, 'x')), RtError::None);
}

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

// Padding blanks vanish wherever they stand, and so do NULs.
TEST(Scramble, UnscrambleSkipsPaddingAndNul) {
  const std::pair<std::string, std::string> rows[] = {
      {"\xBF   ", "A"}, {"\x9F\xE0\x9E", "a b"}, {"\x9F \x9E", "ab"}, {"\0\0\xBF"s, "A"}, {"", ""}};
  for (const auto& [stored, plain] : rows) {
    SCOPED_TRACE(stored);
    EXPECT_EQ(UnscrambleField(stored), plain);
    const std::string field = stored + std::string(8, ' ');
    std::string out(field.size(), '?');
    EXPECT_EQ(UnscrambleTo(field.data(), field.size(), out.data()), plain.size());
    std::string expected = plain;
    expected.resize(field.size(), ' ');
    EXPECT_EQ(out, expected);
  }
}

// StoredField, sixteen bytes at a time, against the byte loop: text of every
// length then padding, with a blank, a NUL or text at every place, in a field
// of the width given, followed by text or by padding.
template <std::size_t Width>
void AgreesWithTheByteLoop() {
  std::vector<std::string> fields;
  for (std::size_t length = 0; length <= Width; ++length)
    for (std::size_t at = 0; at <= Width; ++at)
      for (char odd : {' ', '\0', '\xBF'}) {
        std::string f(length, '\x9F');
        f.resize(Width, length % 3 ? ' ' : '\0');
        if (length > 0) f[0] = '\xE0';  // a blank of the text
        if (at < Width) f[at] = odd;
        fields.push_back(f);
      }
  for (const std::string& field : fields)
    for (char after : {'\x9F', ' '}) {
      SCOPED_TRACE(::testing::PrintToString(field) + " then " + after);
      std::string stored = field + std::string(kUnscrambleSpill, after);
      std::string fast(Width + kUnscrambleSpill, '?'), slow(Width, '?');
      EXPECT_EQ(StoredField<Width>(stored.data()).WriteTo(fast.data()),
                UnscrambleTo(stored.data(), Width, slow.data()));
      EXPECT_EQ(fast.substr(0, Width), slow);
    }
}

TEST(StoredField, AgreesWithTheByteLoopInEachWidth) {
  AgreesWithTheByteLoop<11>();
  AgreesWithTheByteLoop<26>();
  AgreesWithTheByteLoop<100>();
}

// The vector form of sixteen bytes gives what the plain form gives, which
// machines without SSE2 (arm64 among them) use for the same scans.
TEST(Bytes16, TheVectorFormIsThePlainForm) {
  namespace v = bytes16;
  namespace p = bytes16::plain;
  const auto same = [](v::Lanes a, p::Lanes b) {
    char x[v::kSize], y[v::kSize];
    v::Store(x, a);
    p::Store(y, b);
    return std::memcmp(x, y, v::kSize) == 0 && v::Bits(a) == p::Bits(b);
  };
  std::mt19937 random(16);
  for (int round = 0; round < 2000; ++round) {
    char in[v::kSize], other[v::kSize];
    for (char& c : in) c = static_cast<char>(random());
    for (char& c : other) c = static_cast<char>(random());
    const char c = random() % 2 ? in[random() % v::kSize] : static_cast<char>(random());
    const std::size_t n = random() % (v::kSize + 1);
    const v::Lanes a = v::Load(in), a2 = v::Load(other);
    const p::Lanes b = p::Load(in), b2 = p::Load(other);
    SCOPED_TRACE(round);
    EXPECT_TRUE(same(a, b));
    EXPECT_TRUE(same(v::Splat(c), p::Splat(c)));
    EXPECT_TRUE(same(v::Equal(a, c), p::Equal(b, c)));
    EXPECT_TRUE(same(v::SignedBelow(a, c), p::SignedBelow(b, c)));
    EXPECT_TRUE(same(v::Or(a, a2), p::Or(b, b2)));
    EXPECT_TRUE(same(v::And(a, c), p::And(b, c)));
    EXPECT_TRUE(same(v::Negate(a), p::Negate(b)));
    EXPECT_TRUE(same(v::FirstFrom(n, a, a2), p::FirstFrom(n, b, b2)));
  }
}

// One tree on the disk and in memory: the memory's folders come from the paths it holds.
TEST(Listing, FilesFitThePatternInCaseInsensitiveOrder) {
  testing::TempDir disk;
  MemoryEnv memory;
  for (const char* f : {"b.sif", "A.SIF", "a.sif", "c.Sif", "d.txt", "README", ".hidden.sif", "Zeta/inner.sif",
                        "alpha.sif/x", ".cache/x"}) {
    testing::WriteFile(disk / f, "x");
    memory.Files()["/m/" + std::string(f)] = "x";
  }
  const struct {
    const char* pattern;
    std::vector<std::string> files;
  } rows[] = {
      {"*.sif", {"A.SIF", "a.sif", "b.sif", "c.Sif"}},  // not the folder alpha.sif, nor the hidden file
      {"*.*", {"A.SIF", "a.sif", "b.sif", "c.Sif", "d.txt", "README"}},
      {"*.jpg", {}},
  };
  const std::pair<Env&, std::string> places[] = {{Env::Default(), disk.str()}, {memory, "/m"}};
  for (const auto& [env, dir] : places) {
    for (const auto& r : rows) EXPECT_THAT(ListFiles(env, dir, r.pattern), ElementsAreArray(r.files)) << r.pattern;
    EXPECT_THAT(ListFiles(env, dir + "/missing", "*.*"), ElementsAre());
    EXPECT_THAT(ListDirectories(env, dir), ElementsAre("alpha.sif", "Zeta")) << dir;
    EXPECT_THAT(ListDirectories(env, dir + "/missing"), ElementsAre());
  }
}

// The disk or memory with one step refused: "mkdir", "open", "read",
// "half write" (as a full disk), "sync", "rename" or "read-only folder" (a
// new file beside a writable one, as for a user in a folder of mode 0555);
// "" refuses nothing.
template <class Base>
class Refusing : public Base {
 public:
  explicit Refusing(std::string step = "") : refused(std::move(step)) {}
  std::string refused;

  RtError MakeDirectory(const std::string& dir, unsigned mode) override {
    return refused == "mkdir" ? RtError::PathFileAccess : Base::MakeDirectory(dir, mode);
  }
  RtError OpenRecords(const std::string& path, std::size_t length, OpenMode mode,
                      std::unique_ptr<RecordFile>& file) override {
    return refused == "open" ? RtError::PathFileAccess : Base::OpenRecords(path, length, mode, file);
  }
  RtError ReadWhole(const std::string& path, std::string& bytes) override {
    return refused == "read" ? RtError::PathFileAccess : Base::ReadWhole(path, bytes);
  }
  RtError Rename(const std::string& from, const std::string& to) override {
    return refused == "rename" ? RtError::PathFileAccess : Base::Rename(from, to);
  }
  RtError NewFileBeside(const std::string& target, unsigned mode, std::string& name,
                        std::unique_ptr<WritableFile>& file) override {
    if (refused == "read-only folder") return RtError::PathFileAccess;
    const RtError e = Base::NewFileBeside(target, mode, name, file);
    if (e == RtError::None) file = std::make_unique<File>(std::move(file), refused);
    return e;
  }
  bool FolderRefusesSave(const std::string& path) override {
    return refused == "read-only folder" || Base::FolderRefusesSave(path);
  }

 private:
  class File : public WritableFile {
   public:
    File(std::unique_ptr<WritableFile> real, const std::string& refused) : real_(std::move(real)), refused_(refused) {}
    RtError Append(std::string_view bytes) override {
      if (refused_ != "half write") return real_->Append(bytes);
      real_->Append(bytes.substr(0, bytes.size() / 2));
      return RtError::DiskFull;
    }
    RtError Sync() override { return refused_ == "sync" ? RtError::DeviceIO : real_->Sync(); }
    RtError Close() override { return real_->Close(); }

   private:
    std::unique_ptr<WritableFile> real_;
    std::string refused_;
  };
};

const SifSettings kSettings{0, "frame.jpg", "wall.jpg", 2, "Arial"};

// The slide file keeps the failure's own number; the small files tell a full
// disk as a device error. A read-only folder is told as such.
TEST(AtomicSave, AFailedStepLeavesTheOldFilesAndNothingBeside) {
  const std::tuple<const char*, const char*, const char*> steps[] = {
      {"half write", "61", "57"}, {"sync", "57", "57"}, {"rename", "75", "75"}, {"read-only folder", "75", "75"}};
  for (const auto& [step, number, smallNumber] : steps) {
    SCOPED_TRACE(step);
    TempDir dir;
    const std::string path = dir / "a.sif", page = dir / "Reports/Report1.htm";
    ASSERT_TRUE(DataAccess().SaveSettings(path, kSettings, Numbered(3, "old")).ok());
    const std::string before = ReadFile(path);
    WriteFile(page, "old page");
    WriteFile(dir / "fhistlst.dat", "old list");
    Refusing<DiskEnv> disk(step);
    DataAccess data(disk);
    ErrorArray errors;
    EXPECT_FALSE(Report(data.SaveSettings(path, kSettings, Numbered(50, "new")), errors));
    EXPECT_EQ(errors[0], number);
    EXPECT_EQ(errors[1], "DataAccess");
    if (step == std::string("read-only folder")) {
      EXPECT_EQ(errors[2], "cannot save beside " + path + ": the folder is read-only");
    }
    EXPECT_FALSE(Report(data.SaveReport(dir / "Reports/", page, "<html></html>"), errors));
    EXPECT_EQ(errors[0], smallNumber);
    EXPECT_FALSE(Report(data.PutFileHistoryList(dir.str(), {"", "a.sif", "", "", ""}), errors));
    EXPECT_EQ(errors[0], smallNumber);
    EXPECT_EQ(ReadFile(path), before);
    EXPECT_EQ(ReadFile(page), "old page");
    EXPECT_EQ(ReadFile(dir / "fhistlst.dat"), "old list");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.str()), {}), 3);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir / "Reports"), {}), 1);
  }
}

TEST(AtomicSave, EqualsTheInPlaceWriteKeepsLinkAndModeAndClearsKilledSaves) {
  TempDir dir;
  const std::string real = dir / "real.sif", link = dir / "link.sif";
  const std::string tail(6 * kRecordLength, 'z');  // a longer old file keeps what lies past the new end
  WriteFile(real, tail);
  ::chmod(real.c_str(), 0640);
  std::filesystem::create_symlink("real.sif", link);
  // What a killed save of the file left goes; another file's, or a save's under way, stays.
  using std::chrono::hours;
  const std::tuple<std::string, hours, bool> left[] = {{dir / ".real.sif.save-k1LLed", hours(-1), false},
                                                       {dir / ".real.sif.backup", hours(-1), true},
                                                       {dir / ".other.sif.save-k1LLed", hours(-1), true},
                                                       {dir / ".real.sif.save-n0wNew", hours(1), true}};
  for (const auto& [name, age, kept] : left) {
    WriteFile(name, "left");
    std::filesystem::last_write_time(name, std::filesystem::file_time_type::clock::now() + age);
  }

  const SlideArray slides = Numbered(2, "s");
  MemoryEnv memory;
  memory.Files()["/m.sif"] = tail;
  ASSERT_TRUE(DataAccess(memory).SaveSettings("/m.sif", kSettings, slides).ok());
  ASSERT_TRUE(DataAccess().SaveSettings(link, kSettings, slides).ok());

  EXPECT_TRUE(std::filesystem::is_symlink(link));
  for (const auto& [name, age, kept] : left) EXPECT_EQ(std::filesystem::exists(name), kept) << name;
  EXPECT_EQ(ReadFile(real), memory.Files()["/m.sif"]);
  EXPECT_EQ(ReadFile(real).substr(3 * kRecordLength), tail.substr(3 * kRecordLength));
  struct stat st {};
  ASSERT_EQ(::stat(real.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 07777, 0640u);
}

TEST_F(SifFileTest, PasswordIsOneScrambledRecordOfEightBytesOrRefused) {
  UIMainController& mc = Start();
  std::string back = "x";
  ASSERT_TRUE(mc.GetPassword(back).ok());  // the first read makes an empty private file
  EXPECT_EQ(back, "");
  struct stat st {};
  ASSERT_EQ(::stat(PasswordFile().c_str(), &st), 0);
  EXPECT_EQ(st.st_size, 0);
  EXPECT_EQ(st.st_mode & 0777, 0600u);

  const struct {
    std::string typed, stored, readBack;  // stored: the 8 bytes of the file
  } rows[] = {
      {"abcdefgh", "\x9F\x9E\x9D\x9C\x9B\x9A\x99\x98", "abcdefgh"},
      {"abcdefghi", "\x9F\x9E\x9D\x9C\x9B\x9A\x99\x98", "abcdefgh"},  // cut at eight
      {"", "        ", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.typed);
    ASSERT_TRUE(mc.PutPassword(row.typed).ok());
    EXPECT_EQ(ReadFile(PasswordFile()), row.stored);
    back = "unchanged";
    ASSERT_TRUE(mc.GetPassword(back).ok());
    EXPECT_EQ(back, row.readBack);
  }
  std::filesystem::remove(PasswordFile());
  std::filesystem::create_directories(PasswordFile() + "/a directory in the way");
  EXPECT_EQ(mc.PutPassword("secret").error(), RtError::PathFileAccess);
}

// The history is one line of four quoted names; a report page, replaced
// by a shorter one, ends in a line end.
TEST_F(SifFileTest, HistoryAndReportPagesAreWrittenAsLines) {
  UIMainController& mc = Start();
  FileHistory h;
  EXPECT_FALSE(Report(mc.GetFileHistoryList(h), errors));
  EXPECT_EQ(errors[0], "53");
  ASSERT_TRUE(Report(mc.PutFileHistoryList({"", "MyFiles.sif", "CarYard.sif", "", ""}), errors));
  EXPECT_EQ(ReadFile(app / "fhistlst.dat"), "\"MyFiles.sif\",\"CarYard.sif\",\"\",\"\"\r\n");
  ASSERT_TRUE(Report(mc.GetFileHistoryList(h), errors));
  EXPECT_EQ(h, (FileHistory{"", "MyFiles.sif", "CarYard.sif", "", ""}));
  // A short list fails, keeping what was read.
  WriteFile(app / "fhistlst.dat", "\"a.sif\",\"b.sif\"\r\n");
  h = {};
  EXPECT_FALSE(Report(mc.GetFileHistoryList(h), errors));
  EXPECT_EQ(errors[0], "62");
  EXPECT_EQ(h, (FileHistory{"", "a.sif", "b.sif", "", ""}));

  DataAccess data;
  const std::string page = app / "Reports/Report1.htm";
  ASSERT_TRUE(Report(data.SaveReport(app / "Reports/", page, "<html>long old page</html>"), errors));
  ASSERT_TRUE(Report(data.SaveReport(app / "Reports/", page, "<html></html>"), errors));
  EXPECT_EQ(ReadFile(page), "<html></html>\r\n");
}

TEST(ReadFields, ReadsQuotedAndBareFields) {
  const std::pair<std::string, std::vector<std::string>> rows[] = {
      {"\"a\",\"b\",\"\",\"\"\r\n", {"a", "b", "", ""}},
      {"\"a, b\",\"c\"\r\n", {"a, b", "c"}},  // commas inside quotes belong to the name
      {"  bare , \"q\" ,x\r\n\"y\"", {"bare", "q", "x", "y"}},
      {"\"open", {"open"}},
      {"", {}},
  };
  for (const auto& [text, fields] : rows) EXPECT_EQ(ReadFields(text, 4), fields) << text;
}

// The number follows the failure: a directory missing on the way is 76, a
// refusal 75, whether it comes from making the folder or writing the file.
TEST_F(SifFileTest, WriteFailureNumberFollowsTheFailure) {
  const struct {
    const char* name;
    const char* appPath;   // empty: the temporary installation
    const char* inTheWay;  // made as a directory below it first
    const char* refused;   // "mkdir": as in a folder of another owner
    const char* page;      // SaveReport of this page in Reports/; "": PutFileHistoryList
    const char* number;
  } rows[] = {
      {"history in a missing directory", "/nonexistent/app", "", "", "", "76"},
      {"history file is a directory", "", "fhistlst.dat", "", "", "75"},
      {"reports folder cannot be made", "", "", "mkdir", "Report1.htm", "75"},
      {"reports folder in a missing directory", "/nonexistent/app", "", "", "Report1.htm", "76"},
      {"old page cannot be replaced", "", "Reports/Report1.htm", "", "Report1.htm", "75"},
      {"page in a missing folder", "", "", "", "no/dir.htm", "76"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string root = *row.appPath ? std::string(row.appPath) : app.str();
    if (*row.inTheWay) std::filesystem::create_directories(root + "/" + row.inTheWay + "/inside");
    Refusing<DiskEnv> disk(row.refused);
    DataAccess data(disk);
    if (*row.page)
      EXPECT_FALSE(Report(data.SaveReport(root + "/Reports/", root + "/Reports/" + row.page, "x"), errors));
    else
      EXPECT_FALSE(Report(data.PutFileHistoryList(root, {"", "a.sif", "", "", ""}), errors));
    EXPECT_EQ(errors[0], row.number);
  }
}

// "old" and "old.sif" are stored first; then, with one step refused, "new"
// and "new.sif" are put and both files read back.
TEST_F(SifFileTest, ARefusedStepKeepsTheOldFilesAndTellsTheStep) {
  const struct {
    const char* refused;
    RtError putPassword, putHistory, getPassword, getHistory;
    const char *password, *history;  // as read back
  } rows[] = {
      {"", RtError::None, RtError::None, RtError::None, RtError::None, "new", "new.sif"},
      {"open", RtError::PathFileAccess, RtError::None, RtError::PathFileAccess, RtError::None, "", "new.sif"},
      // An unreadable history is told as a missing one.
      {"read", RtError::PathFileAccess, RtError::None, RtError::None, RtError::FileNotFound, "old", ""},
      {"rename", RtError::PathFileAccess, RtError::PathFileAccess, RtError::None, RtError::None, "old", "old.sif"},
  };
  setenv("XDG_CONFIG_HOME", "/config", 1);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.refused);
    Refusing<MemoryEnv> memory;
    DataAccess data(memory);
    ASSERT_TRUE(data.PutPassword("old").ok());
    ASSERT_TRUE(data.PutFileHistoryList("/app", {"", "old.sif", "", "", ""}).ok());
    EXPECT_EQ(memory.Files().at("/config/Chattelbook/dprpz.dat"), "\x91\x94\x9C     ");
    memory.refused = row.refused;
    EXPECT_EQ(data.PutPassword("new").error(), row.putPassword);
    EXPECT_EQ(data.PutFileHistoryList("/app", {"", "new.sif", "", "", ""}).error(), row.putHistory);
    std::string password;
    FileHistory history;
    EXPECT_EQ(data.GetPassword(password).error(), row.getPassword);
    EXPECT_EQ(data.GetFileHistoryList("/app", history).error(), row.getHistory);
    EXPECT_EQ(password, row.password);
    EXPECT_EQ(history[1], row.history);
    EXPECT_EQ(memory.Files().size(), 2u);  // nothing left beside them
  }
}

}  // namespace
}  // namespace cb
