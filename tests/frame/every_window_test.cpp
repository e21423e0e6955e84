// SPDX-License-Identifier: GPL-3.0-or-later
// Every window of the program, opened offscreen at the program's fonts: no
// caption is cut off by its control, and every control has a name a screen
// reader can announce. A new window joins by adding one row to kWindows.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>
#include <QTextEdit>
#include <QToolBar>
#include <functional>
#include <memory>

#include "dialogs/HelpRoutine.h"
#include "dialogs/frmCommonDialog.h"
#include "frame/frmAbout.h"
#include "frame/frmLogin.h"
#include "gallery/frmBackground.h"
#include "gallery/frmModifySlide.h"
#include "gallery/frmRemovedSlides.h"
#include "help/frmHelp.h"
#include "pack/frmClaimPack.h"
#include "pack/frmJobProgress.h"
#include "qt/OpenForms.h"
#include "reports/frmReport.h"
#include "reports/frmSelectReport.h"
#include "slide/frmEditSlide.h"
#include "slide/frmSetSlideTemplate.h"
#include "slide/frmSlide.h"
#include "support/GalleryFixture.h"
#include "support/RowName.h"

namespace cb {
namespace {

// A window as a row opens it: `owned` when the test must delete it, else a
// default instance the fixture unloads.
struct Opened {
  QWidget* window = nullptr;
  std::unique_ptr<QWidget> owned;
};

Opened Own(QWidget* w) { return {w, std::unique_ptr<QWidget>(w)}; }

struct WindowRow {
  const char* name;
  // Opens the window on a running program with a gallery of 20 slides.
  std::function<Opened()> open;
};

Opened SifDialog() {
  auto* d = new frmCommonDialog;
  d->cboFileType->addItems({"Slide Info Files (*.sif)", "All Files (*.*)"});
  d->cboFileType->setCurrentIndex(0);
  return Own(d);
}

Opened SlideWindow() {
  QTest::mouseClick(TheMDIMain().fGallery()->Image1(3), Qt::LeftButton);
  return {FindOpenForm("frmSlide"), nullptr};
}

// The editor of `code` on the slide in the third cell.
Opened SlideEditor(std::int32_t code) {
  QTest::mouseClick(TheMDIMain().fGallery()->Image1(3), Qt::LeftButton);
  return Own(new frmEditSlide(code));
}

Opened WallpaperNote() {
  TheMDIMain().Item(MenuId::Popup2What)->trigger();
  return {FindOpenForm("dlgWhat"), nullptr};
}

const WindowRow kWindows[] = {
    {"MDIMain",
     [] {
       return Opened{&TheMDIMain(), nullptr};
     }},
    {"frmGallery",
     [] {
       return Opened{TheMDIMain().fGallery(), nullptr};
     }},
    {"frmSlide", SlideWindow},
    {"frmAbout", [] { return Own(new frmAbout); }},
    {"frmLogin_Login", [] { return Own(new frmLogin(frmLogin::kLogin)); }},
    {"frmCommonDialog_Sif", SifDialog},
    {"frmModifySlide", [] { return Own(new frmModifySlide); }},
    {"frmRemovedSlides", [] { return Own(new frmRemovedSlides); }},
    {"frmBackground", [] { return Own(new frmBackground); }},
    {"dlgWhat", WallpaperNote},
    {"frmEditSlide", [] { return SlideEditor(1); }},
    {"frmEditSlideVEH", [] { return SlideEditor(3); }},
    {"frmSetSlideTemplate", [] { return Own(new frmSetSlideTemplate); }},
    {"frmSelectReport", [] { return Own(new frmSelectReport); }},
    {"frmClaimPack", [] { return Own(new frmClaimPack); }},
    {"frmJobProgress", [] { return Own(new frmJobProgress("Claim Pack")); }},
    {"frmReport",
     [] {
       TheMDIMain().OpenReport(ReportKind::ByLocation, "Arial Narrow");
       return Opened{FindOpenForm("frmReport"), nullptr};
     }},
    {"frmHelp",
     [] {
       OpenHelp("help001.htm");
       return Opened{HelpViewer(), nullptr};
     }},
};

// The text a caption shows: "&&" is a literal "&", a single "&" marks the access key.
QString Shown(QString caption) { return caption.replace(QRegularExpression("&(.)"), "\\1"); }

// The toolkit's own parts (a list's scroll bars, the toolbar's extension
// button) carry object names starting "qt_"; they are not the program's controls.
bool ToolkitPart(const QWidget* w) {
  for (; w; w = w->parentWidget())
    if (w->objectName().startsWith("qt_")) return true;
  return false;
}

QString Describe(const QWidget* w) {
  return QString("%1 %2").arg(w->metaObject()->className(), w->objectName());
}

// The width a button's style leaves for its caption.
int ButtonTextRoom(const QAbstractButton& b) {
  QStyleOptionButton opt;
  opt.initFrom(&b);
  opt.text = b.text();
  opt.icon = b.icon();
  opt.iconSize = b.iconSize();
  QStyle::SubElement room = QStyle::SE_PushButtonContents;
  if (qobject_cast<const QCheckBox*>(&b)) room = QStyle::SE_CheckBoxContents;
  if (qobject_cast<const QRadioButton*>(&b)) room = QStyle::SE_RadioButtonContents;
  int width = b.style()->subElementRect(room, &opt, &b).width();
  if (!b.icon().isNull()) width -= b.iconSize().width() + 4;
  return width;
}

// The captions wider (or, wrapped, taller) than their controls, one line each.
QStringList CutCaptions(QWidget& window) {
  QStringList cut;
  const auto check = [&](const QWidget* w, const QString& text, int room) {
    const int needed = w->fontMetrics().horizontalAdvance(Shown(text));
    if (!text.isEmpty() && needed > room)
      cut << QString("%1 \"%2\": %3 px in %4").arg(Describe(w), text).arg(needed).arg(room);
  };
  for (QWidget* w : window.findChildren<QWidget*>()) {
    if (ToolkitPart(w) || !w->isVisibleTo(&window)) continue;
    if (auto* label = qobject_cast<QLabel*>(w); label && label->pixmap().isNull()) {
      const QRect room = label->contentsRect().adjusted(label->margin(), label->margin(), -label->margin(),
                                                          -label->margin());
      if (label->wordWrap()) {
        if (label->heightForWidth(label->width()) > label->height())
          cut << QString("%1 \"%2\": wrapped text taller than %3 px").arg(Describe(w), label->text()).arg(label->height());
      } else {
        for (const QString& line : label->text().split('\n')) check(w, line, room.width() - label->indent());
      }
    } else if (auto* button = qobject_cast<QAbstractButton*>(w); button && !qobject_cast<QToolBar*>(w->parentWidget())) {
      // A toolbar's buttons take the size of their captions.
      check(w, button->text(), ButtonTextRoom(*button));
    } else if (auto* combo = qobject_cast<QComboBox*>(w); combo && !qobject_cast<DriveListBox*>(w)) {
      // (A drive list shows the machine's mount points, not the program's texts.)
      QStyleOptionComboBox opt;
      opt.initFrom(combo);
      opt.editable = combo->isEditable();
      opt.frame = combo->hasFrame();
      const int room = combo->style()->subControlRect(QStyle::CC_ComboBox, &opt, QStyle::SC_ComboBoxEditField, combo).width();
      for (int i = 0; i < combo->count(); ++i) check(w, combo->itemText(i), room);
    }
  }
  return cut;
}

// A label with neither text nor picture is decoration (a note's shadow); the
// header of a list belongs to the list.
bool IsControl(const QWidget* w) {
  if (auto* label = qobject_cast<const QLabel*>(w); label && label->text().isEmpty() && label->pixmap().isNull())
    return false;
  if (qobject_cast<const QAbstractItemView*>(w->parentWidget())) return false;
  return qobject_cast<const QAbstractButton*>(w) || qobject_cast<const QLineEdit*>(w) ||
         qobject_cast<const QComboBox*>(w) || qobject_cast<const QAbstractItemView*>(w) ||
         qobject_cast<const QAbstractSlider*>(w) || qobject_cast<const QProgressBar*>(w) ||
         qobject_cast<const QTextEdit*>(w) || qobject_cast<const QLabel*>(w) || qobject_cast<const StretchImage*>(w);
}

// The controls, shown or hidden, whose accessible name is empty.
QStringList Unnamed(QWidget& window) {
  QStringList unnamed;
  QList<QWidget*> all = window.findChildren<QWidget*>();
  all.prepend(&window);
  for (QWidget* w : all) {
    if (ToolkitPart(w) || !IsControl(w)) continue;
    const QAccessibleInterface* a = QAccessible::queryAccessibleInterface(w);
    if (!a || a->text(QAccessible::Name).trimmed().isEmpty()) unnamed << Describe(w);
  }
  return unnamed;
}

class EveryWindowTest : public testing::GalleryFixture, public ::testing::WithParamInterface<WindowRow> {};

TEST_P(EveryWindowTest, CaptionsFitAndControlsAreNamed) {
  Start(20);
  Opened opened = GetParam().open();
  ASSERT_NE(opened.window, nullptr);
  opened.window->show();
  QApplication::processEvents();
  EXPECT_EQ(CutCaptions(*opened.window).join('\n').toStdString(), "");
  EXPECT_EQ(Unnamed(*opened.window).join('\n').toStdString(), "");
}

INSTANTIATE_TEST_SUITE_P(Windows, EveryWindowTest, ::testing::ValuesIn(kWindows), cb::testing::RowName());

}  // namespace
}  // namespace cb
