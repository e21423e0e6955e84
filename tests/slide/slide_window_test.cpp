// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QComboBox>
#include <QCoreApplication>
#include <QImageWriter>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <filesystem>
#include <optional>

#include "dialogs/HelpRoutine.h"
#include "dialogs/frmCommonDialog.h"
#include "qt/OpenForms.h"
#include "qt/PictureSource.h"
#include "qt/Twips.h"
#include "slide/frmEditSlide.h"
#include "slide/frmSetSlideTemplate.h"
#include "slide/frmSlide.h"
#include "support/GalleryFixture.h"
#include "support/LargeJpeg.h"
#include "support/RowName.h"

namespace cb {
namespace {

using testing::RowName;
using testing::WhenModal;

// A picture too large to decode whole opens at the scale the window needs, every pixel zoomed in.
constexpr int kBigW = 8000, kBigH = 6000;
constexpr std::array<unsigned char, 3> kRust{200, 60, 40};

// The 48-megapixel picture, written once for every test.
std::string BigJpeg() {
  static const testing::TempDir dir;
  static const std::string path = dir / "big.jpg";
  static const bool written = testing::WriteLargeJpeg(path, kBigW, kBigH, 90, testing::CheckerCorner(kBigW, 64, kRust));
  EXPECT_TRUE(written);
  return path;
}

// A point of the picture element, as fractions of its size, and its colour (none: the background).
struct Sample {
  double fx, fy;
  std::optional<QColor> colour;
};

// Within what JPEG's losses give; a grey blur of black and white is 128 off.
bool Near(const QColor& a, const QColor& b) {
  return std::abs(a.red() - b.red()) < 48 && std::abs(a.green() - b.green()) < 48 && std::abs(a.blue() - b.blue()) < 48;
}

// The main window on a small collection, the editor opened as a user does: thumbnail, then Edit.
class SlideWindowTest : public testing::GalleryFixture {
 protected:
  // Opens the slide in gallery cell `cell` and presses Edit; the editor that opened.
  frmEditSlide* OpenEditor(int cell) {
    Open("", cell);
    return PressEdit();
  }

  frmEditSlide* PressEdit() {
    const auto before = Editors();
    TheMDIMain().Button(ToolbarButton::Edit)->trigger();
    for (frmEditSlide* e : Editors())
      if (!before.contains(e)) return e;
    return nullptr;
  }

  static QList<frmEditSlide*> Editors() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QList<frmEditSlide*> open;
    for (QWidget* w : QApplication::topLevelWidgets())
      if (auto* e = qobject_cast<frmEditSlide*>(w); e && e->isVisible()) open.append(e);
    return open;
  }

  static bool Gone(const QPointer<frmEditSlide>& editor) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return editor.isNull();
  }

  // The open file as the disk holds it, read by a program of its own.
  struct Disk {
    SlideArray slides;
    std::int32_t slideTemplate = 0;
    std::string Get(int record, Field f) const { return Trim(slides.at(static_cast<std::size_t>(record)).Get(f)); }
  };
  Disk OnDisk() {
    ModGlobal other;
    MemorySettings s;
    other.MainController = std::make_unique<UIMainController>(app.str(), s, other);
    other.MainController->SetRegistryKeys(app / "Files/t.sif");
    ErrorArray errors;
    EXPECT_TRUE(Report(other.MainController->LoadSettings(), errors));
    return {other.Slides, other.MainController->SlideTemplate()};
  }

  // Opens the slide in `cell`, with `name` as its picture file unless empty.
  frmSlide* Open(const std::string& name, int cell = 1) {
    if (!name.empty()) Globals().Slides[cell].Set(Field::PictureFile, name);
    QTest::mouseClick(Gallery().Image1(cell), Qt::LeftButton);
    return qobject_cast<frmSlide*>(FindOpenForm("frmSlide"));
  }
  std::string GalleryFile(const std::string& name) { return app / ("Gallery/" + name); }

  void ExpectDrawn(frmSlide* slide, const std::vector<Sample>& samples) {
    const QImage shot = slide->grab().toImage();
    const QRect e = slide->Image1->geometry();
    for (const Sample& s : samples) {
      const QColor got = shot.pixelColor(e.x() + int(s.fx * e.width()), e.y() + int(s.fy * e.height()));
      const QColor want = s.colour.value_or(slide->palette().color(QPalette::Window));
      EXPECT_TRUE(Near(got, want)) << s.fx << "," << s.fy << " drawn " << got.name().toStdString() << " not "
                                   << want.name().toStdString();
    }
  }
};

// Help closes a second editor alone; with the slide window gone, OK writes to the slide current now.
TEST_F(SlideWindowTest, OkWritesToTheSlideCurrentAtOkNotAtOpening) {
  Start(4);
  QPointer<frmEditSlide> e = OpenEditor(2);
  ASSERT_TRUE(e);
  QTest::mouseClick(Gallery().Image1(3), Qt::LeftButton);  // the user opens another slide meanwhile
  QPointer<frmEditSlide> second = PressEdit();             // modeless: a second editor beside the first
  ASSERT_TRUE(second);
  OpenHelp("help001.htm");
  second->cmdHelp->click();  // closes on its page, the first editor stays
  EXPECT_TRUE(Gone(second));
  EXPECT_FALSE(Gone(e));
  EXPECT_EQ(HelpPage(), "help011.htm");
  QPointer<QWidget> slide = FindOpenForm("frmSlide");
  ASSERT_TRUE(slide);
  slide->parentWidget()->close();  // its sub-window
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ASSERT_FALSE(slide);
  ASSERT_FALSE(Gone(e));
  e->txtEditText->setText("Edited while slide 2 was open");
  e->cmdOK->click();
  const Disk disk = OnDisk();
  EXPECT_EQ(disk.Get(3, Field::SlideText), "Edited while slide 2 was open");
  EXPECT_EQ(disk.Get(2, Field::SlideText), "Slide 2");
  EXPECT_EQ(TheMDIMain().StatusText(), "Slide: 3 (Edited while slide 2 was open)");
}

// The combos list the values in first appearance; Enter in a box or a combo is OK.
TEST_F(SlideWindowTest, EditTypedAndEnterIsOnDiskAtOnce) {
  Start(5);
  const char* categories[] = {"Chairs", "", "Art", "Chairs", "Beds"};
  for (int i = 1; i <= 5; ++i) Globals().Slides[static_cast<std::size_t>(i)].Set(Field::Category, categories[i - 1]);
  QPointer<frmEditSlide> e = OpenEditor(3);
  ASSERT_TRUE(e);
  const auto listed = [&e] {
    QStringList items;
    for (int i = 0; i < e->cboCategory->count(); ++i) items << e->cboCategory->itemText(i);
    return items;
  };
  EXPECT_EQ(listed(), QStringList({"Chairs", "Art", "Beds"}));
  EXPECT_EQ(e->cboCategory->currentText(), "Art");
  // A temporary directory makes the path longer than 50: its first folder, then the picture.
  EXPECT_TRUE(e->txtFilename->text().endsWith("/.../P3.PNG")) << e->txtFilename->text().toStdString();
  e->txtEditText->selectAll();
  QTest::keyClicks(e->txtEditText, "Pearl necklace");
  QTest::keyClicks(e->cboLocation->lineEdit(), "Main bedroom");
  QTest::keyClicks(e->txtValue, "1,500");
  e->cboCategory->lineEdit()->selectAll();
  QTest::keyClicks(e->cboCategory->lineEdit(), "Sculpture");
  QTest::keyClick(e->cboCategory->lineEdit(), Qt::Key_Return);
  EXPECT_TRUE(Gone(e));
  const Disk disk = OnDisk();
  EXPECT_EQ(disk.Get(3, Field::SlideText), "Pearl necklace");
  EXPECT_EQ(disk.Get(3, Field::Location), "Main_bedroom");
  EXPECT_EQ(disk.Get(3, Field::Value), "1");
  EXPECT_EQ(disk.Get(3, Field::Category), "Sculpture");
  EXPECT_EQ(TheMDIMain().StatusText(), "Slide: 3 (Pearl necklace)");
  // A value typed on OK reaches the list at the next opening; one no slide holds has left it.
  Globals().Slides[5].Set(Field::Category, "Chairs");
  Globals().Slides[2].Set(Field::Category, " Hi Fi");  // in memory only, not yet on disk
  e = OpenEditor(2);
  ASSERT_TRUE(e);
  EXPECT_EQ(listed(), QStringList({"Chairs", "Hi Fi", "Sculpture"}));
  QTest::keyClick(e->txtValue, Qt::Key_Return);  // nothing typed: the file is rewritten all the same
  EXPECT_TRUE(Gone(e));
  EXPECT_EQ(OnDisk().Get(2, Field::Category), "Hi_Fi");
  EXPECT_EQ(OnDisk().Get(2, Field::SlideText), "Slide 2");
}

struct TemplateRow {
  const char* name;
  std::int32_t code;
  const char* editor;
  double clientHeight;                                      // twips; all are 8775 wide
  std::vector<std::pair<const char*, const char*>> labels;  // control, caption
  QStringList tabs;
};

const QStringList kHomeTabs{"txtEditText", "cboLocation", "cboCategory", "txtSerial", "txtMake",
                            "txtValue",    "txtModel",    "cmdOK",       "cmdCancel", "cmdHelp"};
const QStringList kOtherTabs{"txtEditText", "cboCategory", "txtSerial", "cboLocation", "txtMake",
                             "txtModel",    "txtValue",    "cmdOK",     "cmdCancel",   "cmdHelp"};

// clang-format off
const TemplateRow kTemplates[] = {
    {"home_security", 1, "frmEditSlide", 3270,
     {{"txtEditText", "Slide Text"}, {"cboCategory", "Category"}, {"cboLocation", "Location"},
      {"txtSerial", "Serial #"}, {"txtMake", "Make"}, {"txtModel", "Model"}, {"txtValue", "Total Value"}},
     kHomeTabs},
    {"real_estate", 2, "frmEditSlideRE", 3795,
     {{"txtEditText", "Slide Text"}, {"cboCategory", "Category"}, {"cboLocation", "Suburb"},
      {"txtSerial", "Street"}, {"txtMake", "Bedrooms"}, {"txtModel", "Extras"}, {"txtValue", "Ask Price"}},
     kOtherTabs},
    {"car_yard", 3, "frmEditSlideVEH", 3795,
     {{"txtEditText", "Slide Text"}, {"cboCategory", "Category"}, {"cboLocation", "Year"},
      {"txtSerial", "Regn #"}, {"txtMake", "Colour"}, {"txtModel", "Extras"}, {"txtValue", "Price"}},
     kOtherTabs},
    {"unknown_code_is_home_security", 7, "frmEditSlide", 3270,
     {{"cboLocation", "Location"}, {"txtValue", "Total Value"}}, kHomeTabs},
};
// clang-format on

class EditorTemplate : public SlideWindowTest, public ::testing::WithParamInterface<TemplateRow> {};

// The control that has the focus; a combo's typing box counts as the combo.
QString Focused() {
  QWidget* w = QApplication::focusWidget();
  if (w && qobject_cast<QComboBox*>(w->parentWidget())) w = w->parentWidget();
  return w ? w->objectName() : QString();
}

// Texts longer than their boxes open at their start, as a text box shows a text set into it.
TEST_P(EditorTemplate, LabelsSizeLongTextsAndTabOrder) {
  const TemplateRow& row = GetParam();
  Start(2);
  Mc().SlideTemplate(row.code);
  // As long as the field holds, in wide letters: the shortened path is wider than its box.
  const std::string picture = "wwwwwwwwwwwwwwwwwwwwww.png";
  ASSERT_TRUE(std::filesystem::copy_file(app / "Gallery/p1.png", app / ("Gallery/" + picture)));
  Globals().Slides[1].Set(Field::PictureFile, picture);
  Globals().Slides[1].Set(Field::SlideText,
                          "Walnut sideboard with two cabinets, bought in 2004 at the Wilson estate sale, "
                          "with its receipt and photos");
  QPointer<frmEditSlide> e = OpenEditor(1);
  ASSERT_TRUE(e);
  EXPECT_EQ(e->objectName(), row.editor);
  EXPECT_EQ(e->size(), QSize(TwipsToPixelsX(8775), TwipsToPixelsY(row.clientHeight)));
  for (const auto& [control, caption] : row.labels) {
    QWidget* box = e->findChild<QWidget*>(control);
    ASSERT_NE(box, nullptr) << control;
    QString label;
    for (QLabel* l : e->findChildren<QLabel*>())
      if (l->buddy() == box) label = l->text();
    EXPECT_EQ(label, caption) << control;
    EXPECT_EQ(box->accessibleName(), caption) << control;
  }
  QApplication::setActiveWindow(e);
  for (const QLineEdit* box : {e->txtEditText, e->txtFilename}) {
    ASSERT_GT(box->fontMetrics().horizontalAdvance(box->text()), box->width()) << box->objectName().toStdString();
    EXPECT_EQ(box->cursorPosition(), 0) << box->objectName().toStdString();
  }
  QStringList visited;
  for (qsizetype i = 0; i <= row.tabs.size(); ++i) {
    visited << Focused();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(visited, row.tabs + QStringList{row.tabs.front()});  // round again
}

INSTANTIATE_TEST_SUITE_P(Rows, EditorTemplate, ::testing::ValuesIn(kTemplates), RowName());

struct KeyRow {
  const char* name;
  std::int32_t code;
  const char* control;
  Qt::Key key;
  bool closes;
  bool opensHelp;
};

const KeyRow kKeyRows[] = {
    {"home_category_closes", 1, "cboCategory", Qt::Key_F1, true, true},
    {"car_yard_location_only_opens_help", 3, "cboLocation", Qt::Key_F1, false, true},
    {"car_yard_category_does_nothing", 3, "cboCategory", Qt::Key_F1, false, false},
    {"car_yard_make_closes", 3, "txtMake", Qt::Key_F1, true, true},
    {"read_only_path_ignores_it", 1, "txtFilename", Qt::Key_F1, false, false},
    {"escape_cancels", 1, "txtSerial", Qt::Key_Escape, true, false},
};

class EditorKeys : public SlideWindowTest, public ::testing::WithParamInterface<KeyRow> {};

// F1 and Escape never store what was typed, whether the editor closes or stays.
TEST_P(EditorKeys, ClosesOrStaysByTemplateAndDropsTheEdit) {
  const KeyRow& row = GetParam();
  Start(2);
  Mc().SlideTemplate(row.code);
  QPointer<frmEditSlide> e = OpenEditor(1);
  ASSERT_TRUE(e);
  const std::string before = testing::ReadFile(app / "Files/t.sif");
  e->txtEditText->setText("typed before the key");
  OpenHelp("help001.htm");
  QApplication::setActiveWindow(e);  // the key is the user's, in the editor on top
  QWidget* target = e->findChild<QWidget*>(row.control);
  if (auto* combo = qobject_cast<QComboBox*>(target)) target = combo->lineEdit();
  target->setFocus();
  QTest::keyClick(target, row.key);
  EXPECT_EQ(Gone(e), row.closes);
  EXPECT_EQ(HelpPage(), row.opensHelp ? "help011.htm" : "help001.htm");
  EXPECT_EQ(Trim(Globals().Slides[1].Get(Field::SlideText)), "Slide 1");
  EXPECT_EQ(testing::ReadFile(app / "Files/t.sif"), before);
  if (!row.closes) {
    EXPECT_EQ(e->txtEditText->text(), "typed before the key");
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, EditorKeys, ::testing::ValuesIn(kKeyRows), RowName());

TEST_F(SlideWindowTest, ChosenTemplateStaysInForceWhenNewIsCancelled) {
  Start(3);
  Globals().Slides[2].Set(Field::Serial, "ABC-123");
  Mc().SlideTemplate(1);
  const std::int32_t inFile = OnDisk().slideTemplate;
  QString asked;
  WhenModal<frmSetSlideTemplate>([&asked](frmSetSlideTemplate* d) {
    WhenModal<frmCommonDialog>([&asked](frmCommonDialog* f) {
      asked = f->DialogTitle;
      f->cmdCancel->click();
    });
    d->optVEH->click();
    d->cmdOK->click();
  });
  Gallery().Item(MenuId::SlidesTemplate)->trigger();
  QCoreApplication::processEvents();  // the command runs once the menu is done
  EXPECT_EQ(asked, "New");
  EXPECT_EQ(Mc().SlideTemplate(), 3);
  EXPECT_EQ(Mc().NumberOfRecords(), 3);  // the old gallery stays open
  // Its editor now shows the car yard's labels over the old values...
  QPointer<frmEditSlide> e = OpenEditor(2);
  ASSERT_TRUE(e);
  EXPECT_EQ(e->txtSerial->text(), "ABC-123");
  EXPECT_EQ(e->txtSerial->accessibleName(), "Regn #");
  EXPECT_EQ(OnDisk().slideTemplate, inFile);  // the choice itself rewrites nothing
  // ...and the next save writes the new code into the old file.
  e->cmdOK->click();
  EXPECT_EQ(OnDisk().slideTemplate, 3);
}

struct LoadRow {
  const char* name;
  std::int32_t code;
  const char* chosen;
  const char* end;  // the button or key that leaves the dialog
};

const LoadRow kLoadRows[] = {
    {"home", 1, "optHome", "cmdCancel"},
    {"real_estate_ok_unchanged_still_asks_for_a_new_file", 2, "optRE", "cmdOK"},
    {"car_yard_left_by_f1", 3, "optVEH", "F1"},
    {"unknown_code", 9, "optHome", "cmdCancel"},
};

class SetTemplateLoad : public SlideWindowTest, public ::testing::WithParamInterface<LoadRow> {};

// Cancel and F1 both leave the template alone and ask for no new file; OK always asks.
TEST_P(SetTemplateLoad, ShowsTheTemplateInForceAndLeavingChangesNothing) {
  const LoadRow& row = GetParam();
  Start(1);
  Mc().SlideTemplate(row.code);
  OpenHelp("help001.htm");
  QString asked;
  WhenModal<frmSetSlideTemplate>([&](frmSetSlideTemplate* d) {
    WhenModal<frmCommonDialog>([&asked](frmCommonDialog* f) {
      asked = f->DialogTitle;
      f->cmdCancel->click();
    });
    QStringList checked;
    for (QRadioButton* o : d->findChildren<QRadioButton*>())
      if (o->isChecked()) checked << o->objectName();
    EXPECT_EQ(checked, QStringList{row.chosen});
    if (std::string(row.end) == "cmdOK") return d->cmdOK->click();
    d->optVEH->setChecked(true);
    if (std::string(row.end) == "cmdCancel") return d->cmdCancel->click();
    EXPECT_TRUE(QTest::qWaitForWindowActive(d));  // F1 is the active window's
    QTest::keyClick(d->optVEH, Qt::Key_F1);
    if (d->isVisible()) d->cmdCancel->click();  // F1 went nowhere
  });
  Gallery().Item(MenuId::SlidesTemplate)->trigger();
  QCoreApplication::processEvents();
  EXPECT_EQ(asked, std::string(row.end) == "cmdOK" ? "New" : "");
  EXPECT_EQ(Mc().SlideTemplate(), row.code);
  EXPECT_EQ(HelpPage(), std::string(row.end) == "F1" ? "help015.htm" : "help001.htm");
}

INSTANTIATE_TEST_SUITE_P(Rows, SetTemplateLoad, ::testing::ValuesIn(kLoadRows), RowName());

TEST_F(SlideWindowTest, OpensEachKindOfPicture) {
  const QColor rust(kRust[0], kRust[1], kRust[2]);
  const struct {
    const char* name;
    std::string file;
    std::function<void(const std::string&)> write;
    std::vector<Sample> samples;
  } rows[] = {
      // clang-format off
      {"jpeg_of_48_megapixels", "big.jpg",
       [](const std::string& to) { std::filesystem::create_symlink(BigJpeg(), to); }, {{0.5, 0.5, rust}}},
      {"bmp", "flat.bmp",
       [](const std::string& to) {
         QImage i(300, 200, QImage::Format_RGB32);
         i.fill(Qt::darkGreen);
         i.save(QString::fromStdString(to), "BMP");
       },
       {{0.5, 0.5, QColor(Qt::darkGreen)}}},
      {"gif", "dot.gif",  // one red pixel
       [](const std::string& to) {
         testing::WriteFile(to, QByteArray::fromBase64("R0lGODlhAQABAIAAAP8AAAAAACwAAAAAAQABAAACAkQBADs=").toStdString());
       },
       {{0.5, 0.5, QColor(Qt::red)}}},
      {"jpeg_turned_by_exif", "turned.jpg",  // stored left half black: upright, the top half
       [](const std::string& to) {
         QImage i(64, 32, QImage::Format_RGB32);
         i.fill(Qt::white);
         for (int y = 0; y < 32; ++y)
           for (int x = 0; x < 32; ++x) i.setPixel(x, y, qRgb(0, 0, 0));
         QImageWriter w(QString::fromStdString(to), "jpeg");
         w.setTransformation(QImageIOHandler::TransformationRotate90);
         w.write(i);
       },
       {{0.5, 0.2, QColor(Qt::black)}, {0.5, 0.8, QColor(Qt::white)}}},
      {"not_a_picture", "junk.jpg", [](const std::string& to) { testing::WriteFile(to, "no picture here"); },
       {{0.5, 0.5, std::nullopt}}},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Start(1);
    row.write(GalleryFile(row.file));
    frmSlide* slide = Open(row.file);
    ASSERT_NE(slide, nullptr);
    EXPECT_EQ(slide->windowTitle(), "Slide 1 - Slide 1");
    ExpectDrawn(slide, row.samples);
    UnloadForms();
  }
}

// Clicks by the corner ((0, 0) counts as the centre) zoom in until a picture pixel spans six:
// the checkerboard is drawn pixel for pixel, not as a coarse decode's grey.
TEST_F(SlideWindowTest, ZoomedInShowsEveryPixelWithinTheBudget) {
  Start(1);
  std::filesystem::create_symlink(BigJpeg(), GalleryFile("big.jpg"));
  frmSlide* slide = Open("big.jpg");
  ASSERT_NE(slide, nullptr);
  slide->grab();
  EXPECT_LT(slide->Image1->Held().eighths, 8);
  EXPECT_LE(double(slide->Image1->Picture().sizeInBytes()), kDecodePixels * 4);
  while (slide->Image1->width() < 6 * kBigW) QTest::mouseClick(slide->Image1, Qt::LeftButton, {}, QPoint(1, 1));
  std::vector<Sample> samples;
  for (int y = 0; y < 6; ++y)
    for (int x = 0; x < 6; ++x)
      samples.push_back({(x + 0.5) / kBigW, (y + 0.5) / kBigH, QColor((x + y) % 2 ? Qt::black : Qt::white)});
  ExpectDrawn(slide, samples);
  EXPECT_EQ(slide->Image1->Held().eighths, 8);
  EXPECT_LE(double(slide->Image1->Picture().sizeInBytes()), kDecodePixels * 4);
}

// An open window shows the next slide's picture only when it decodes.
TEST_F(SlideWindowTest, ReusedWindowKeepsItsPictureWhenTheNextDoesNotDecode) {
  Start(2);
  testing::WriteFile(GalleryFile("p2.png"), "no picture here");
  Open("", 1);
  frmSlide* slide = Open("", 2);
  ASSERT_NE(slide, nullptr);
  EXPECT_EQ(slide->windowTitle(), "Slide 2 - Slide 2");
  ExpectDrawn(slide, {{0.5, 0.5, QColor(Qt::darkCyan)}});
}

}  // namespace
}  // namespace cb
