// SPDX-License-Identifier: GPL-3.0-or-later
#include "pack/frmClaimPack.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

#include "dialogs/DialogButtons.h"
#include "dialogs/HelpRoutine.h"
#include "pack/ClaimPack.h"
#include "qt/Twips.h"
#include "reports/ReportMaker.h"
#include "state/modGlobal.h"

namespace cb {
namespace {

// Design places in twips; the options within their frames.
constexpr ElementRect kGroupFrame{120, 60, 2010, 1215};
constexpr ElementRect kPageFrame{2205, 60, 2010, 1215};
constexpr ElementRect kFirstOption{180, 330, 1740, 300};
constexpr ElementRect kSecondOption{180, 720, 1740, 300};
constexpr double kButtonsTop = 1440;
constexpr double kClientWidth = 4335, kClientHeight = 1995;
// The found slides' box, when there is one, pushes the buttons down by its row.
constexpr ElementRect kFoundBox{180, 1380, 4035, 300};
constexpr double kFoundRow = 390;

QRadioButton* Option(QGroupBox* frame, const char* name, const QString& caption, const ElementRect& place) {
  auto* option = new QRadioButton(caption, frame);
  option->setObjectName(name);
  option->setGeometry(TwipsRect(place));
  return option;
}

QGroupBox* Frame(QWidget* dialog, const char* name, const char* caption, const ElementRect& place) {
  auto* frame = new QGroupBox(caption, dialog);
  frame->setObjectName(name);
  frame->setGeometry(TwipsRect(place));
  return frame;
}

}  // namespace

frmClaimPack::frmClaimPack(QWidget* parent, std::optional<std::int32_t> found) : QDialog(parent) {
  setObjectName("frmClaimPack");
  setWindowTitle(kClaimPackTitle);
  // The location option carries the template's own word for it.
  const auto word = GroupLabel(Globals().MainController->SlideTemplate());
  fraGroup = Frame(this, "fraGroup", "Totals", kGroupFrame);
  optCategory = Option(fraGroup, "optCategory", "By &Category", kFirstOption);
  optLocation = Option(fraGroup, "optLocation", "By &" + QString::fromLatin1(word.value_or("Location")), kSecondOption);
  fraPage = Frame(this, "fraPage", "Page", kPageFrame);
  optA4 = Option(fraPage, "optA4", "&A4", kFirstOption);
  optLetter = Option(fraPage, "optLetter", "L&etter", kSecondOption);
  const double below = found ? kFoundRow : 0;
  if (found) {
    chkFound = new QCheckBox(QString("&Only the slides found (%1)").arg(*found), this);
    chkFound->setObjectName("chkFound");
    chkFound->setGeometry(TwipsRect(kFoundBox));
    chkFound->setChecked(true);
  }
  const DialogButtons buttons = MakeDialogButtons(this, kButtonsTop + below);
  cmdOK = buttons.ok;
  cmdCancel = buttons.cancel;
  cmdHelp = buttons.help;
  setFixedSize(TwipsToPixelsX(kClientWidth), TwipsToPixelsY(kClientHeight + below));
  // What chattelbook-sif claim takes when it is not told.
  optCategory->setChecked(true);
  (pack::LocalePageSize() == QPageSize::Letter ? optLetter : optA4)->setChecked(true);
  connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(cmdHelp, &QPushButton::clicked, this, [this] { CloseWithHelp(*this); });
  InstallF1(*this);
  CentreOnScreen(*this);
  optCategory->setFocus();
}

ReportKind frmClaimPack::ChosenKind() const {
  return optLocation->isChecked() ? ReportKind::ByLocation : ReportKind::ByCategory;
}

bool frmClaimPack::OnlyFound() const { return chkFound && chkFound->isChecked(); }

QPageSize::PageSizeId frmClaimPack::ChosenPage() const {
  return optLetter->isChecked() ? QPageSize::Letter : QPageSize::A4;
}

}  // namespace cb
