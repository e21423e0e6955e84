// SPDX-License-Identifier: GPL-3.0-or-later
#include "slide/frmSetSlideTemplate.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "artwork/TemplatePictures.h"
#include "dialogs/DialogButtons.h"
#include "dialogs/HelpRoutine.h"
#include "model/SlideTemplates.h"
#include "qt/FixedDialog.h"
#include "qt/Twips.h"
#include "slide/frmEditSlide.h"
#include "state/modGlobal.h"

namespace cb {
namespace {

constexpr char kCaption[] = "Set Slide Template";
constexpr char kFrameCaption[] = "Available Templates";
constexpr double kClientWidth = 3615, kClientHeight = 2670;
// Inside the frame: a row per template, its picture and then its option.
constexpr double kFrameLeft = 120, kFrameTop = 60, kFrameWidth = 3375, kFrameHeight = 2040;
constexpr double kFirstRow = 360, kRowStep = 540, kPicture = 480;
constexpr double kPictureLeft = 240, kOptionLeft = 900, kOptionWidth = 2340;
constexpr double kButtonsTop = 2190, kButtonsLeft = 180, kButtonWidth = 1035;

}  // namespace

frmSetSlideTemplate::frmSetSlideTemplate(QWidget* parent) : QDialog(parent, kFixedDialog) {
  setObjectName("frmSetSlideTemplate");
  setWindowTitle(kCaption);
  Frame1 = new QGroupBox(kFrameCaption, this);
  Frame1->setObjectName("Frame1");
  Frame1->setGeometry(TwipsRect(kFrameLeft, kFrameTop, kFrameWidth, kFrameHeight));
  for (std::size_t i = 0; i < kSlideTemplates.size(); ++i) {
    const SlideTemplateLayout& t = kSlideTemplates[i];
    const double top = kFirstRow + static_cast<double>(i) * kRowStep;
    auto* option = new QRadioButton(QString::fromUtf8(t.optionCaption.data(), int(t.optionCaption.size())), Frame1);
    option->setObjectName(QString::fromUtf8(t.optionName.data(), int(t.optionName.size())));
    option->setGeometry(TwipsRect(kOptionLeft, top, kOptionWidth, kPicture));
    auto* picture = new QLabel(Frame1);
    picture->setObjectName("img" + option->objectName().mid(3));
    picture->setPixmap(TemplatePicture(t.code, TwipsToPixelsX(kPicture)));
    picture->setGeometry(TwipsRect(kPictureLeft, top, kPicture, kPicture));
    picture->setAccessibleName(option->text());
    options_[i] = option;
  }
  optHome = options_[0];
  optRE = options_[1];
  optVEH = options_[2];
  optHome->setChecked(true);
  const DialogButtons buttons = MakeDialogButtons(this, kButtonsTop, kButtonsLeft, kButtonWidth);
  cmdOK = buttons.ok;
  cmdCancel = buttons.cancel;
  cmdHelp = buttons.help;
  setTabOrder(optHome, optRE);
  setTabOrder(optRE, optVEH);
  setTabOrder(optVEH, cmdOK);
  setTabOrder(cmdOK, cmdCancel);
  setTabOrder(cmdCancel, cmdHelp);
  setFixedSize(TwipsToPixelsX(kClientWidth), TwipsToPixelsY(kClientHeight));
  connect(cmdOK, &QPushButton::clicked, this, &frmSetSlideTemplate::cmdOK_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(cmdHelp, &QPushButton::clicked, this, [this] { CloseWithHelp(*this); });
  InstallF1(*this);
  Form_Load();
}

void frmSetSlideTemplate::Form_Load() {
  CentreOnScreen(*this);
  const std::int32_t code = Globals().MainController->SlideTemplate();
  // Any other code leaves Home chosen.
  for (std::size_t i = 0; i < kSlideTemplates.size(); ++i)
    if (kSlideTemplates[i].code == code) options_[i]->setChecked(true);
}

void frmSetSlideTemplate::cmdOK_Click() {
  UIMainController& mc = *Globals().MainController;
  for (std::size_t i = 0; i < kSlideTemplates.size(); ++i) {
    if (!options_[i]->isChecked()) continue;
    if (mc.SlideTemplate() != kSlideTemplates[i].code) mc.SlideTemplate(kSlideTemplates[i].code);
    break;
  }
  // Also when nothing changed: a template only ever applies to a new gallery. The new code is
  // not put back when the user cancels New.
  emit NewFileWanted();
  accept();
}

}  // namespace cb
