// SPDX-License-Identifier: GPL-3.0-or-later
#include "gallery/frmModifySlide.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <type_traits>

#include "dialogs/DialogButtons.h"
#include "dialogs/HelpRoutine.h"
#include "dialogs/frmDirectory.h"
#include "dialogs/frmLoading.h"
#include "qt/FixedDialog.h"
#include "qt/MsgBox.h"
#include "qt/Twips.h"
#include "state/MDIMainRules.h"
#include "state/modGlobal.h"
#include "storage/HistorySteps.h"

namespace cb {
namespace {

constexpr char kCaption[] = "Modify Slide Collection";
constexpr char kCouldNotAdd[] = "Couldn't add record.";
constexpr char kCouldNotDelete[] = "Couldn't delete record.";
constexpr char kApplyingText[] = "Updating the slide collection...";

struct Control {
  const char* name;
  const char* caption;  // also the accessible name
  ElementRect place;    // twips
};
// In tab order: the two lists, the transfers between them, the check box, the buttons.
constexpr Control kControls[] = {
    {"Label1", "Available", {120, 120, 2775, 255}},
    {"lstAvailable", "Available", {120, 390, 2775, 3015}},
    {"cmdAddOne", ">", {3075, 840, 735, 375}},
    {"cmdAddAll", ">>", {3075, 1320, 735, 375}},
    {"cmdRemoveOne", "<", {3075, 2040, 735, 375}},
    {"cmdRemoveAll", "<<", {3075, 2520, 735, 375}},
    {"Label2", "Selected", {3990, 120, 2775, 255}},
    {"lstSelected", "Selected", {3990, 390, 2775, 3015}},
    {"chkExclude", "Exclude selected files.", {120, 3555, 3600, 300}},
    {"cmdOK", "OK", {2370, 4035, 1335, 375}},
    {"cmdCancel", "Cancel", {3900, 4035, 1335, 375}},
    {"cmdHelp", "Help", {5430, 4035, 1335, 375}},
};
constexpr double kClientWidth = 6885, kClientHeight = 4560;

NameList Names(const QListWidget& list) {
  NameList names;
  for (int i = 0; i < list.count(); ++i) names.push_back(PathFromQ(list.item(i)->text()));
  return names;
}

void Show(QListWidget& list, const NameList& names) {
  list.clear();
  for (const std::string& name : names) list.addItem(PathToQ(name));
}

}  // namespace

frmModifySlide::frmModifySlide() {
  setObjectName("frmModifySlide");
  setWindowTitle(kCaption);
  setWindowFlags(kFixedDialog);
  Label1 = new QLabel(this);
  lstAvailable = new QListWidget(this);
  cmdAddOne = new QPushButton(this);
  cmdAddAll = new QPushButton(this);
  cmdRemoveOne = new QPushButton(this);
  cmdRemoveAll = new QPushButton(this);
  Label2 = new QLabel(this);
  lstSelected = new QListWidget(this);
  chkExclude = new QCheckBox(this);
  const DialogButtons buttons = MakeDialogButtons(this);
  cmdOK = buttons.ok;
  cmdCancel = buttons.cancel;
  cmdHelp = buttons.help;
  PlaceControls();
  for (QListWidget* list : {lstAvailable, lstSelected}) list->setSelectionMode(QAbstractItemView::ExtendedSelection);
  chkExclude->setChecked(true);

  connect(cmdAddOne, &QPushButton::clicked, this, &frmModifySlide::cmdAddOne_Click);
  connect(cmdAddAll, &QPushButton::clicked, this, &frmModifySlide::cmdAddAll_Click);
  connect(cmdRemoveOne, &QPushButton::clicked, this, &frmModifySlide::cmdRemoveOne_Click);
  connect(cmdRemoveAll, &QPushButton::clicked, this, &frmModifySlide::cmdRemoveAll_Click);
  connect(chkExclude, &QCheckBox::clicked, this, &frmModifySlide::chkExclude_Click);
  connect(cmdOK, &QPushButton::clicked, this, &frmModifySlide::cmdOK_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &frmModifySlide::reject);
  connect(cmdHelp, &QPushButton::clicked, this, &frmModifySlide::cmdHelp_Click);
  InstallF1(*this);
}

void frmModifySlide::PlaceControls() {
  QWidget* controls[] = {Label1, lstAvailable, cmdAddOne,  cmdAddAll, cmdRemoveOne, cmdRemoveAll,
                         Label2, lstSelected,  chkExclude, cmdOK,     cmdCancel,    cmdHelp};
  static_assert(std::extent_v<decltype(controls)> == std::size(kControls));
  for (std::size_t i = 0; i < std::size(kControls); ++i) {
    const Control& c = kControls[i];
    QWidget* w = controls[i];
    w->setObjectName(c.name);
    w->setAccessibleName(c.caption);
    w->setGeometry(TwipsRect(c.place));
    if (auto* label = qobject_cast<QLabel*>(w)) label->setText(c.caption);
    if (auto* button = qobject_cast<QAbstractButton*>(w)) button->setText(c.caption);
    if (i > 0) setTabOrder(controls[i - 1], w);
  }
  Label1->setBuddy(lstAvailable);
  Label2->setBuddy(lstSelected);
  setFixedSize(TwipsToPixelsX(kClientWidth), TwipsToPixelsY(kClientHeight));
}

int frmModifySlide::exec() {
  if (!Form_Load()) return Rejected;
  return QDialog::exec();
}

bool frmModifySlide::Form_Load() {
  CentreOnScreen(*this);
  frmDirectory& chooser = TheDirectory();
  chooser.exec();
  if (chooser.SelectedPath.isEmpty()) return false;
  SourceDirectory = chooser.SelectedPath;
  controller_.LoadDirectory(PathFromQ(SourceDirectory) + "/", DirectoryFiles, false);
  NameList available(DirectoryFiles.begin() + 1, DirectoryFiles.end());
  NameList selected;
  const SlideArray& slides = Globals().Slides;
  for (std::size_t i = 1; i < slides.size(); ++i)
    selected.push_back(PathFromQ(ToQ(Trim(slides[i].Get(Field::PictureFile)))));
  UIModifySlideController::ExcludeDuplicates(true, available, selected, DirectoryFiles);
  Show(*lstAvailable, available);
  Show(*lstSelected, selected);
  return true;
}

void frmModifySlide::Transfer(QListWidget* from, QListWidget* to, bool all) {
  NameList source = Names(*from), target = Names(*to);
  if (all) {
    controller_.MoveAll(source, target);
  } else {
    std::vector<std::int16_t> picked;
    for (int i = 0; i < from->count(); ++i)
      if (from->item(i)->isSelected()) picked.push_back(static_cast<std::int16_t>(i));
    if (picked.empty()) return;
    controller_.MoveSelected(source, target, picked);
  }
  Show(*from, source);
  Show(*to, target);
}

void frmModifySlide::cmdAddOne_Click() { Transfer(lstAvailable, lstSelected, false); }
void frmModifySlide::cmdAddAll_Click() { Transfer(lstAvailable, lstSelected, true); }
void frmModifySlide::cmdRemoveOne_Click() { Transfer(lstSelected, lstAvailable, false); }
void frmModifySlide::cmdRemoveAll_Click() { Transfer(lstSelected, lstAvailable, true); }

void frmModifySlide::chkExclude_Click() {
  NameList available = Names(*lstAvailable);
  UIModifySlideController::ExcludeDuplicates(chkExclude->isChecked(), available, Names(*lstSelected), DirectoryFiles);
  Show(*lstAvailable, available);
}

void frmModifySlide::cmdOK_Click() {
  const auto rows = static_cast<int>(controller_.GetChanges().size());
  if (applying_ || rows == 0) return;
  ModGlobal& g = Globals();
  UIMainController& mc = *g.MainController;
  // Copying a camera's folder takes a while: the editor waits, greyed, while progress shows and events run.
  applying_ = true;
  setEnabled(false);
  frmLoading& loading = TheLoading();
  loading.lblText->setText(kApplyingText);
  loading.SetPBMin(0);
  loading.SetPBMax(rows);
  loading.ProgressBar1->setValue(0);
  loading.show();
  controller_.ApplyChanges(PathFromQ(SourceDirectory), Names(*lstSelected), mc, g.Slides, [&](const AppliedRow& row) {
    if (!row.done) MsgBox(row.added ? kCouldNotAdd : kCouldNotDelete, vbCritical, kErrorTitle);
    TheLoading().ProgressBar1->setValue(row.row);
    QCoreApplication::processEvents();
  });
  UnloadLoading();
  setEnabled(true);
  applying_ = false;
  // A failed save ends here, silently, with the collection changed in memory.
  if (!Report(mc.SaveSettings(steps::kModifyCollection), errors_)) return;
  emit CollectionChanged();
}

void frmModifySlide::cmdHelp_Click() { CloseWithHelp(*this); }

void frmModifySlide::reject() {
  if (!applying_) QDialog::reject();
}

}  // namespace cb
