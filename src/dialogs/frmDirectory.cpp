// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/frmDirectory.h"

#include <QPointer>
#include <QPushButton>
#include <type_traits>

#include "model/Geometry.h"
#include "qt/Twips.h"
#include "state/modGlobal.h"

namespace cb {
namespace {

constexpr char kCaption[] = "Select Slide Directory";

// In tab order: cmdOK, cmdCancel, cmdHelp, Dir1, Drive1; twips.
constexpr ElementRect kPlaces[] = {
    {120, 2400, 1095, 375}, {1440, 2400, 1095, 375}, {2760, 2400, 1095, 375},
    {120, 120, 3735, 1665}, {120, 1920, 3735, 315},
};
constexpr double kClientWidth = 3990, kClientHeight = 2955;

QPointer<frmDirectory>& Slot() {
  static QPointer<frmDirectory> form;
  return form;
}

}  // namespace

frmDirectory::frmDirectory() {
  setObjectName("frmDirectory");
  setWindowTitle(kCaption);
  QWidget* controls[] = {cmdOK, cmdCancel, cmdHelp, Dir1, Drive1};
  static_assert(std::extent_v<decltype(controls)> == std::size(kPlaces));
  for (std::size_t i = 0; i < std::size(kPlaces); ++i) {
    controls[i]->setGeometry(TwipsRect(kPlaces[i]));
    if (i > 0) setTabOrder(controls[i - 1], controls[i]);
  }
  setFixedSize(TwipsToPixelsX(kClientWidth), TwipsToPixelsY(kClientHeight));
}

void frmDirectory::showEvent(QShowEvent* e) {
  if (!loaded_) Form_Load();
  QDialog::showEvent(e);
}

void frmDirectory::Form_Load() {
  loaded_ = true;
  CentreOnScreen(*this);
  const UIMainController& mc = *Globals().MainController;
  Dir1->Path(PathToQ(mc.AppPath() + mc.GetGalleryDirectory()));
  Drive1->Drive(Dir1->Path());
}

void frmDirectory::cmdOK_Click() {
  SelectedPath = Dir1->Path();
  done(Accepted);
}

void frmDirectory::cmdCancel_Click() { reject(); }

void frmDirectory::reject() {
  SelectedPath.clear();
  loaded_ = false;
  QDialog::reject();
}

frmDirectory& TheDirectory() {
  auto& slot = Slot();
  if (!slot) slot = new frmDirectory();
  return *slot;
}

void UnloadDirectory() { delete Slot().data(); }

}  // namespace cb
