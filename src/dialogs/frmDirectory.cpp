#include "dialogs/frmDirectory.h"

#include <QPointer>
#include <QPushButton>
#include <type_traits>

#include "dialogs/HelpRoutine.h"
#include "dialogs/frmCommonDialog.h"
#include "qt/FixedDialog.h"
#include "qt/Twips.h"
#include "state/modGlobal.h"

namespace cb {
namespace {

constexpr char kCaption[] = "Select Slide Directory";

struct Control {
  const char* name;
  const char* accessible;
  double left, top, width, height;  // twips
};
// In tab order.
constexpr Control kControls[] = {
    {"cmdOK", "OK", 120, 2400, 1095, 375},
    {"cmdCancel", "Cancel", 1440, 2400, 1095, 375},
    {"cmdHelp", "Help", 2760, 2400, 1095, 375},
    {"Dir1", "Folders", 120, 120, 3735, 1665},
    {"Drive1", "Drives", 120, 1920, 3735, 315},
};
constexpr double kClientWidth = 3990, kClientHeight = 2955;

QPointer<frmDirectory>& Slot() {
  static QPointer<frmDirectory> form;
  return form;
}

}  // namespace

frmDirectory::frmDirectory() {
  setObjectName("frmDirectory");
  setWindowFlags(kFixedDialog);
  setWindowTitle(kCaption);
  cmdOK = new QPushButton("OK", this);
  cmdOK->setDefault(true);
  cmdCancel = new QPushButton("Cancel", this);
  cmdHelp = new QPushButton("Help", this);
  Dir1 = new DirListBox(this);
  Drive1 = new DriveListBox(this);
  QWidget* controls[] = {cmdOK, cmdCancel, cmdHelp, Dir1, Drive1};
  static_assert(std::extent_v<decltype(controls)> == std::size(kControls));
  for (std::size_t i = 0; i < std::size(kControls); ++i) {
    const Control& c = kControls[i];
    controls[i]->setObjectName(c.name);
    controls[i]->setAccessibleName(c.accessible);
    controls[i]->setGeometry(TwipsRect(c.left, c.top, c.width, c.height));
    if (i > 0) setTabOrder(controls[i - 1], controls[i]);
  }
  setFixedSize(TwipsToPixelsX(kClientWidth), TwipsToPixelsY(kClientHeight));
  connect(Dir1, &DirListBox::Change, this, &frmDirectory::Dir1_Change);
  connect(Drive1, &DriveListBox::Change, this, &frmDirectory::Drive1_Change);
  connect(cmdOK, &QPushButton::clicked, this, &frmDirectory::cmdOK_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &frmDirectory::cmdCancel_Click);
  connect(cmdHelp, &QPushButton::clicked, this, &frmDirectory::cmdHelp_Click);
  InstallF1(*this);
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

void frmDirectory::Dir1_Change() { Drive1->Drive(Dir1->Path()); }

void frmDirectory::Drive1_Change() { Dir1->Path(Drive1->Drive()); }

void frmDirectory::cmdOK_Click() {
  SelectedPath = Dir1->Path();
  done(Accepted);
}

void frmDirectory::cmdCancel_Click() { reject(); }

void frmDirectory::cmdHelp_Click() { CloseWithHelp(*this); }

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
