// SPDX-License-Identifier: GPL-3.0-or-later
#include "gallery/frmRemovedSlides.h"

#include <QDateTime>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "base/Text.h"
#include "dialogs/HelpRoutine.h"
#include "qt/GalleryPictures.h"
#include "qt/MsgBox.h"
#include "qt/SystemLocale.h"
#include "qt/Twips.h"
#include "state/modGlobal.h"

namespace cb {
namespace {

constexpr char kCaption[] = "Removed Slides";
constexpr char kForgetQuestion[] = "Forget the selected slides? They cannot be restored afterwards.";
const QSize kThumbnail(64, 48);

struct Button {
  QPushButton* frmRemovedSlides::*member;
  const char* name;
  const char* caption;  // also the accessible name
  const char* whatsThis;
};
constexpr Button kButtons[] = {
    {&frmRemovedSlides::cmdRestore, "cmdRestore", "Restore",
     "Puts the selected slides back where they stood in the collection, as one step that Undo takes back."},
    {&frmRemovedSlides::cmdForget, "cmdForget", "Forget",
     "Drops the selected slides from this list for good; the collection does not change."},
    {&frmRemovedSlides::cmdClose, "cmdClose", "Close", "Closes this window."},
    {&frmRemovedSlides::cmdHelp, "cmdHelp", "Help", "Closes this window and opens its help page."},
};
const QStringList kColumns{"Slide", "Value", "When", "Why"};

}  // namespace

frmRemovedSlides::frmRemovedSlides() {
  setObjectName("frmRemovedSlides");
  setWindowTitle(kCaption);
  lstRemoved = new QTreeWidget(this);
  lstRemoved->setObjectName("lstRemoved");
  lstRemoved->setAccessibleName(kCaption);
  lstRemoved->setWhatsThis(
      "The slides taken out of this file, newest first: each with its picture, its text, its value, when it "
      "was removed and why.  Select one or more to restore or forget.");
  lstRemoved->setRootIsDecorated(false);
  lstRemoved->setSelectionMode(QAbstractItemView::ExtendedSelection);
  lstRemoved->setIconSize(kThumbnail);
  lstRemoved->setHeaderLabels(kColumns);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (const Button& b : kButtons) {
    auto* button = new QPushButton(b.caption, this);
    button->setObjectName(b.name);
    button->setAccessibleName(b.caption);
    button->setWhatsThis(b.whatsThis);
    buttons->addWidget(button);
    this->*b.member = button;
  }
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(lstRemoved);
  layout->addLayout(buttons);
  resize(TwipsToPixelsX(9000), TwipsToPixelsY(6000));

  connect(cmdRestore, &QPushButton::clicked, this, &frmRemovedSlides::cmdRestore_Click);
  connect(cmdForget, &QPushButton::clicked, this, &frmRemovedSlides::cmdForget_Click);
  connect(cmdClose, &QPushButton::clicked, this, &frmRemovedSlides::reject);
  connect(cmdHelp, &QPushButton::clicked, this, [this] { CloseWithHelp(*this); });
  connect(lstRemoved, &QTreeWidget::itemSelectionChanged, this, [this] {
    for (QPushButton* b : {cmdRestore, cmdForget}) b->setEnabled(!lstRemoved->selectedItems().isEmpty());
  });
  InstallF1(*this);
  Fill();
}

void frmRemovedSlides::Fill() {
  lstRemoved->clear();
  const UIMainController& mc = *Globals().MainController;
  const std::string gallery = mc.AppPath() + mc.GetGalleryDirectory();
  for (const RemovedSlide& r : mc.RemovedSlides()) {
    const QDateTime when = QDateTime::fromSecsSinceEpoch(r.time).toLocalTime();
    auto* row = new QTreeWidgetItem(lstRemoved,
                                    {ToQ(Trim(r.record.Get(Field::SlideText))), ToQ(Trim(r.record.Get(Field::Value))),
                                     GeneralDateText(QLocale::system(), when), Utf8ToQ(r.reason)});
    QImage picture;
    if (GalleryPictures::Instance().Get(FilePath(gallery, Trim(r.record.Get(Field::PictureFile))), picture, kThumbnail,
                                        kThumbnail) == RtError::None)
      row->setIcon(0, QIcon(QPixmap::fromImage(picture.scaled(kThumbnail, Qt::KeepAspectRatio))));
  }
  lstRemoved->header()->resizeSections(QHeaderView::ResizeToContents);
  for (QPushButton* b : {cmdRestore, cmdForget}) b->setEnabled(false);
}

std::vector<std::size_t> frmRemovedSlides::Chosen() const {
  std::vector<std::size_t> chosen;
  for (int i = 0; i < lstRemoved->topLevelItemCount(); ++i)
    if (lstRemoved->topLevelItem(i)->isSelected()) chosen.push_back(static_cast<std::size_t>(i));
  return chosen;
}

void frmRemovedSlides::cmdRestore_Click() {
  const std::vector<std::size_t> chosen = Chosen();
  if (chosen.empty()) return;
  const Status done = Globals().MainController->RestoreRemoved(chosen);
  if (Report(done, errors_))
    Restored = true;
  else
    MsgBox(Utf8ToQ(std::string(done.description())), vbOKOnly | vbExclamation, kCaption);
  Fill();
}

void frmRemovedSlides::cmdForget_Click() {
  const std::vector<std::size_t> chosen = Chosen();
  if (chosen.empty() || MsgBox(kForgetQuestion, vbYesNo | vbQuestion, kCaption) != vbYes) return;
  Report(Globals().MainController->ForgetRemoved(chosen), errors_);
  Fill();
}

}  // namespace cb
