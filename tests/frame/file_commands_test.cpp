#include <QCoreApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "base/Cp1252.h"
#include "dialogs/frmCommonDialog.h"
#include "frame/Main.h"
#include "storage/DataAccess.h"
#include "support/GalleryFixture.h"
#include "support/RowName.h"

namespace cb {
namespace {

using testing::ReadFile;

// Answers the file dialog once it is up: types `typed`, selects `selected`, presses OK.
void AnswerDialog(QString typed, QString selected) {
  testing::WhenModal<frmCommonDialog>([typed, selected](frmCommonDialog* d) {
    if (selected.isEmpty()) {
      d->FileListBox1->setCurrentRow(-1);
      d->FileListBox1->clearSelection();
    } else if (const auto found = d->FileListBox1->findItems(selected, Qt::MatchExactly); !found.isEmpty()) {
      d->FileListBox1->setCurrentItem(found[0]);
    }
    d->txtFilename->setText(typed);
    d->cmdOK->click();
  });
}

class FileCommandsTest : public testing::GalleryFixture {
 protected:
  std::string Files(const std::string& name) const { return app / ("Files/" + name); }
  std::int32_t CountIn(const std::string& path) {
    ModGlobal other;
    MemorySettings s;
    UIMainController mc(app.str(), s, other);
    mc.SetRegistryKeys(path);
    ErrorArray errors;
    return Report(mc.LoadSettings(), errors) ? mc.NumberOfRecords() : -1;
  }
};

TEST_F(FileCommandsTest, NewWithATypedNameOverwritesRecordByRecordWithoutAsking) {
  Start(3);
  const std::string before = ReadFile(Files("t.sif"));
  AnswerDialog("t.sif", "");
  TheMDIMain().mnuFileNew_Click();
  EXPECT_TRUE(messages.isEmpty());
  const std::string after = ReadFile(Files("t.sif"));
  EXPECT_EQ(after.size(), before.size());  // the old tail stays
  EXPECT_EQ(after.substr(278), before.substr(278));
  EXPECT_EQ(Mc().NumberOfRecords(), 0);
  EXPECT_EQ(CountIn(Files("t.sif")), 0);
  EXPECT_EQ(TheMDIMain().StatusText(), "Slides: 0 to 0 of 0");
}

TEST_F(FileCommandsTest, NewAsksBeforeOverwritingTheSelectedFile) {
  Start(3);
  answer = vbNo;
  AnswerDialog("other", "t.sif");
  TheMDIMain().mnuFileNew_Click();
  EXPECT_EQ(messages, QStringList({"New File: The file 't.sif' already exists.\n"
                                   "Are you sure you want to overwrite this file?"}));
  EXPECT_EQ(styles, QList<int>({vbYesNo}));  // no icon: the question has no style that gives one
  EXPECT_EQ(Mc().NumberOfRecords(), 3);      // No leaves everything as it was
}

struct NameRow {
  const char* typed;
  const char* stored;
};

const NameRow kNewNames[] = {{"a", "a.sif"}, {"a.b", "a.b"}, {"Cars.SIF", "Cars.SIF"}};

class NewNameTest : public FileCommandsTest, public ::testing::WithParamInterface<NameRow> {};

TEST_P(NewNameTest, ExtensionIsAddedOnlyWithoutADot) {
  Start(2);
  AnswerDialog(GetParam().typed, "");
  TheMDIMain().mnuFileNew_Click();
  EXPECT_TRUE(std::filesystem::exists(Files(GetParam().stored)));
  EXPECT_EQ(settings.Get("Startup", "DefDir", ""), Files(GetParam().stored));
}

INSTANTIATE_TEST_SUITE_P(Rows, NewNameTest, ::testing::ValuesIn(kNewNames));

TEST_F(FileCommandsTest, OpenOfABadFileTellsAndRebuildsFromWhatIsHeld) {
  Start(3);
  SlideRecord header;
  header.Set(Field::Serial, "\xCC\xD0\xD0\xD0\xD0");  // "40000", scrambled
  testing::WriteFile(Files("bad.sif"), std::string(header.bytes().data(), kRecordLength));
  AnswerDialog("", "bad.sif");
  TheMDIMain().mnuFileOpen_Click();
  EXPECT_EQ(messages, QStringList({"Load Error: Invalid Slide Information File"}));
  EXPECT_EQ(Globals().Slides.size(), 4u);
  EXPECT_EQ(settings.Get("Startup", "DefDir", ""), Files("bad.sif"));  // the settings point at it all the same
  ASSERT_NE(TheMDIMain().fGallery(), nullptr);
}

// A real message box takes the focus from the main window while its own loop
// runs, and the main window gets it back once the command has rebuilt the
// gallery. The gallery's activation, and the fourth entry's rule with it,
// must still run once.
TEST_F(FileCommandsTest, MissingFourthHistoryEntryMovesTheListOnce) {
  Start(3);
  QApplication::setActiveWindow(&TheMDIMain());
  QApplication::processEvents();
  Globals().History = {"", "t.sif", "b.sif", "c.sif", "gone.sif"};
  QWidget box;
  SetMsgBoxHook([&](const QString& text, int style, const QString& title) {
    messages.push_back(title + ": " + text);
    styles.push_back(style);
    box.show();
    QApplication::setActiveWindow(&box);
    QApplication::processEvents();  // what the box's own loop delivers
    box.hide();
    return vbOK;
  });
  TheMDIMain().mnuFileHist_Click(4);
  QApplication::setActiveWindow(&TheMDIMain());
  QApplication::processEvents();
  EXPECT_EQ(messages, QStringList({"Load Error: Invalid Slide Information File"}));
  EXPECT_EQ(styles, QList<int>({vbOKOnly}));  // no icon
  EXPECT_EQ(Globals().History, (std::array<std::string, 5>{"", "c.sif", "t.sif", "b.sif", "c.sif"}));
  EXPECT_EQ(Mc().NumberOfRecords(), 3);  // the slides still held
}

struct AddRow {
  const char* name;
  std::string source;  // relative to the application directory
  std::string stored;  // PictureFile, trimmed
  bool copied;
};

const AddRow kAdds[] = {
    {"from_the_gallery_itself", "Gallery/p1.png", "p1.png", false},
    {"from_elsewhere", "Pictures/chair.jpg", "chair.jpg", true},
    {"long_name_cut", "Pictures/abcdefghijklmnopqrstuvwxyz1234.jpg", "abcdefghijklmnopqrstuvwxyz", true},
    // The record holds the name in Windows-1252, the disk in UTF-8.
    {"accented_name", "Pictures/caf\u00e9.jpg", "caf\xE9.jpg", true},
};

class AddSlideTest : public FileCommandsTest, public ::testing::WithParamInterface<AddRow> {};

TEST_P(AddSlideTest, AppendsTheRecordAndCopiesUnlessInPlace) {
  Start(2);
  const auto& row = GetParam();
  const std::filesystem::path source = app / row.source;
  if (!std::filesystem::exists(source)) {
    std::filesystem::create_directories(source.parent_path());
    QImage picture(5, 5, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(QString::fromStdString(source.string()), "JPG"));
  }
  const auto stamp = std::filesystem::last_write_time(app / "Gallery/p1.png");
  testing::WhenModal<frmCommonDialog>([source](frmCommonDialog* d) {
    d->Dir1->Path(QString::fromStdString(source.parent_path().string()));
    d->FileListBox1->Pattern("*.*");
    const auto found = d->FileListBox1->findItems(QString::fromStdString(source.filename().string()), Qt::MatchExactly);
    if (!found.isEmpty()) d->FileListBox1->setCurrentItem(found[0]);
    d->cmdOK->click();
  });
  Gallery().mnuSlidesAdd_Click();
  ASSERT_EQ(Mc().NumberOfRecords(), 3);
  EXPECT_EQ(Trim(Globals().Slides[3].Get(Field::PictureFile)), row.stored);
  EXPECT_TRUE(std::filesystem::exists(app / ("Gallery/" + Cp1252ToUtf8(row.stored))));
  if (!row.copied) {
    EXPECT_EQ(std::filesystem::last_write_time(app / "Gallery/p1.png"), stamp);
  }
  EXPECT_EQ(CountIn(Files("t.sif")), 3);
}

INSTANTIATE_TEST_SUITE_P(Rows, AddSlideTest, ::testing::ValuesIn(kAdds), cb::testing::RowName());

}  // namespace
}  // namespace cb
