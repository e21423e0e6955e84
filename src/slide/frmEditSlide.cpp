// SPDX-License-Identifier: GPL-3.0-or-later
#include "slide/frmEditSlide.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

#include "base/Cp1252.h"
#include "base/Text.h"
#include "dialogs/DialogButtons.h"
#include "dialogs/HelpRoutine.h"
#include "qt/FixedDialog.h"
#include "qt/Twips.h"
#include "slide/SlideEdits.h"
#include "slide/UIEditSlideController.h"
#include "state/modGlobal.h"
#include "storage/HistorySteps.h"

namespace cb {
namespace {

constexpr char kCaption[] = "Edit Slide";
// The buttons stand at the right, under the boxes' right edge.
constexpr double kButtonWidth = 1140, kButtonsRight = 8535;
constexpr double kButtonsLeft = kButtonsRight - 3 * kButtonWidth - 2 * 75;

QLineEdit* ReadOnly(QLineEdit* box) {
  box->setReadOnly(true);
  box->setFocusPolicy(Qt::ClickFocus);  // out of the tab order, yet the path can be selected and copied
  QPalette p = box->palette();
  p.setColor(QPalette::Base, p.color(QPalette::Window));
  box->setPalette(p);
  return box;
}

QComboBox* TypedCombo(QWidget* parent) {
  auto* combo = new QComboBox(parent);
  combo->setEditable(true);
  combo->setInsertPolicy(QComboBox::NoInsert);
  combo->setCompleter(nullptr);  // what the user types stays as typed
  return combo;
}

}  // namespace

frmEditSlide::frmEditSlide(std::int32_t slideTemplate, QWidget* parent)
    : QDialog(parent, kFixedDialog), layout_(TemplateFor(slideTemplate)) {
  setObjectName(QString::fromUtf8(layout_.editorName.data(), int(layout_.editorName.size())));
  setWindowTitle(kCaption);
  setAttribute(Qt::WA_DeleteOnClose);
  setModal(false);
  CreateControls();
  LayOut();
  connect(cmdOK, &QPushButton::clicked, this, &frmEditSlide::cmdOK_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(cmdHelp, &QPushButton::clicked, this, [this] { CloseWithHelp(*this); });
  InstallF1(*this);  // the page and what each control's F1 does stand in the help table
  Form_Load();
}

frmEditSlide::~frmEditSlide() = default;

void frmEditSlide::CreateControls() {
  txtSlideNumber = ReadOnly(new QLineEdit(this));
  txtSlideNumber->setAlignment(Qt::AlignCenter);
  txtFilename = ReadOnly(new QLineEdit(this));
  txtEditText = new QLineEdit(this);
  cboCategory = TypedCombo(this);
  cboLocation = TypedCombo(this);
  txtSerial = new QLineEdit(this);
  txtMake = new QLineEdit(this);
  txtModel = new QLineEdit(this);
  txtValue = new QLineEdit(this);
  const DialogButtons buttons = MakeDialogButtons(this, layout_.buttonsTop, kButtonsLeft, kButtonWidth);
  cmdOK = buttons.ok;
  cmdCancel = buttons.cancel;
  cmdHelp = buttons.help;
  controls_ = {txtSlideNumber, txtFilename, txtEditText, cboCategory, cboLocation, txtSerial,
               txtMake,        txtModel,    txtValue,    cmdOK,       cmdCancel,   cmdHelp};
  for (std::size_t i = 0; i < kEditControls; ++i) {
    const std::string_view name = ControlName(static_cast<EditControl>(i));
    controls_[i]->setObjectName(QString::fromUtf8(name.data(), int(name.size())));
    controls_[i]->installEventFilter(this);
  }
  for (QComboBox* combo : {cboCategory, cboLocation}) combo->lineEdit()->installEventFilter(this);
  for (QPushButton* b : {cmdOK, cmdCancel, cmdHelp}) b->setAccessibleName(b->text());
}

void frmEditSlide::LayOut() {
  for (const EditorBox& box : layout_.boxes) {
    QWidget* control = Control(box.control);
    control->setGeometry(TwipsRect(box.left, box.top, box.width, kBoxHeight));
    const QString caption = QString::fromUtf8(box.caption.data(), int(box.caption.size()));
    const LabelPlace place = LabelFor(layout_, box);
    auto* label = new QLabel(caption, this);
    label->setObjectName("lbl" + control->objectName().mid(3));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setGeometry(TwipsRect(place.left, box.top, place.width, kBoxHeight));
    label->setBuddy(control);
    control->setAccessibleName(caption);
    if (auto* combo = qobject_cast<QComboBox*>(control)) {
      // A screen reader meets the combo's typing box and list, not the combo.
      combo->lineEdit()->setAccessibleName(caption);
      combo->view()->setAccessibleName(caption);
    }
  }
  for (std::size_t i = 1; i < layout_.tabOrder.size(); ++i)
    setTabOrder(Control(layout_.tabOrder[i - 1]), Control(layout_.tabOrder[i]));
  setFixedSize(TwipsToPixelsX(layout_.clientWidth), TwipsToPixelsY(layout_.clientHeight));
}

void frmEditSlide::Form_Load() {
  const ModGlobal& g = Globals();
  const UIMainController& mc = *g.MainController;
  controller_ = std::make_unique<UIEditSlideController>(g);
  LoadCategoryList();
  LoadLocationList();
  const std::int32_t n = mc.CurrentImageNumber();
  txtSlideNumber->setText(QString::number(n));
  if (n >= 0 && static_cast<std::size_t>(n) < g.Slides.size()) {
    const SlideRecord& slide = g.Slides[static_cast<std::size_t>(n)];
    // The application directory is the file system's bytes, the picture's name the file's code page.
    const std::string path =
        Utf8ToCp1252Lossy(mc.AppPath() + mc.GetGalleryDirectory()) + Trim(slide.Get(Field::PictureFile));
    txtFilename->setText(ToQ(controller_->GetFilenamePath(path)));
    const SlideEdits shown = EditsFromSlide(slide);
    txtEditText->setText(ToQ(shown.text));
    cboCategory->setEditText(ToQ(shown.category));
    cboLocation->setEditText(ToQ(shown.location));
    txtSerial->setText(ToQ(shown.serial));
    txtMake->setText(ToQ(shown.make));
    txtModel->setText(ToQ(shown.model));
    txtValue->setText(ToQ(shown.value));
  }
  txtEditText->setFocus();
  CentreOnScreen(*this);
}

// Showing a dialog selects the whole text of its focused box, which scrolls a
// long one to its end; every box, the combos' too, opens at its start instead.
void frmEditSlide::setVisible(bool visible) {
  QDialog::setVisible(visible);
  if (visible)
    for (QLineEdit* box : findChildren<QLineEdit*>()) box->setCursorPosition(0);
}

void frmEditSlide::LoadCategoryList() {
  KeyList list(1);
  Globals().MainController->GetCategories(list);
  for (std::size_t i = 1; i < list.size(); ++i)
    if (const std::string shown = StripAtNul(Trim(list[i])); !shown.empty()) cboCategory->addItem(ToQ(shown));
}

void frmEditSlide::LoadLocationList() {
  KeyList list(1);
  Globals().MainController->GetLocations(list);
  for (std::size_t i = 1; i < list.size(); ++i)
    if (const std::string shown = StripAtNul(Trim(list[i])); !shown.empty()) cboLocation->addItem(ToQ(shown));
}

void frmEditSlide::cmdOK_Click() {
  ModGlobal& g = Globals();
  const SlideEdits typed{FromQ(txtEditText->text()),
                         FromQ(cboCategory->currentText()),
                         FromQ(cboLocation->currentText()),
                         FromQ(txtSerial->text()),
                         FromQ(txtMake->text()),
                         FromQ(txtModel->text()),
                         FromQ(txtValue->text())};
  // The slide current now, which may not be the one the editor opened on.
  if (const auto status = StoreEdits(typed, g.MainController->CurrentImageNumber(), g.Slides))
    emit StatusTextChanged(ToQ(*status));
  g.SlidesChanged = true;
  accept();
  // Every OK rewrites the whole file; a failed save keeps the edit in memory, unannounced.
  Report(g.MainController->SaveSettings(steps::kEditSlide), g.ErrorInfo);
}

bool frmEditSlide::eventFilter(QObject* watched, QEvent* e) {
  if (e->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, e);
  const int key = static_cast<QKeyEvent*>(e)->key();
  // A combo's typing happens in its line edit; the rules are the combo's.
  QObject* control = watched;
  for (QComboBox* combo : {cboCategory, cboLocation})
    if (watched == combo->lineEdit()) control = combo;
  const auto at = std::find(controls_.begin(), controls_.end(), control);
  if (at == controls_.end()) return QDialog::eventFilter(watched, e);
  // Enter in a combo's box is OK, as in the other boxes (an open list takes Enter itself).
  auto* combo = qobject_cast<QComboBox*>(control);
  if (combo && watched != combo && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
    cmdOK->click();
    return true;
  }
  return QDialog::eventFilter(watched, e);
}

}  // namespace cb
