// SPDX-License-Identifier: GPL-3.0-or-later
#include "gallery/frmBackground.h"

#include <QEvent>

#include "dialogs/HelpRoutine.h"
#include "gallery/GalleryLayout.h"
#include "qt/FixedDialog.h"
#include "qt/LoadPicture.h"
#include "qt/StretchImage.h"
#include "qt/Twips.h"
#include "state/modGlobal.h"
#include "storage/Listing.h"

namespace cb {
namespace {

constexpr char kCaption[] = "Background Images";
// The samples fill the design area of the gallery's grid; the frame adds the rest of 6720 x 5085.
constexpr double kClientWidth = 6615, kClientHeight = 4695;

}  // namespace

frmBackground::frmBackground() {
  setObjectName("frmBackground");
  setWindowTitle(kCaption);
  setWindowFlags(kFixedDialog);
  Picture1 = new QWidget(this);
  Picture1->setObjectName("Picture1");
  Picture1->setAccessibleName(kCaption);
  Picture1->setGeometry(TwipsRect(0, 0, kClientWidth, kClientHeight));
  // The samples stand where the gallery's frames stand at its design size.
  const GalleryLayout design = DesignLayout();
  for (int i = 1; i <= kGalleryCells; ++i) {
    auto* image = new StretchImage(Picture1);
    image->setObjectName(QString("Image1(%1)").arg(i));
    image->setAccessibleName(QString("Sample %1").arg(i));  // a loaded sample is named by its file
    const ElementRect& r = design.Image1(FrameOf(i));
    image->setGeometry(TwipsRect(r.Left, r.Top, r.Width, r.Height));
    image->setCursor(Qt::PointingHandCursor);
    connect(image, &StretchImage::Click, this, [this, i] { Image1_Click(i); });
    images_[static_cast<std::size_t>(i - 1)] = image;
  }
  setFixedSize(TwipsToPixelsX(kClientWidth), TwipsToPixelsY(kClientHeight));
  // No sample takes the keyboard: the window has it from the start, and with it F1.
  setFocusPolicy(Qt::StrongFocus);
  setFocus();
  InstallF1(*this);
}

int frmBackground::exec() {
  Form_Load();
  return QDialog::exec();
}

void frmBackground::Form_Load() {
  CentreOnScreen(*this);
  ModGlobal& g = Globals();
  const UIMainController& mc = *g.MainController;
  const std::string dir = mc.AppPath() + mc.GetGraphicsDirectory();
  const std::vector<std::string> found = ListFiles(Env::Default(), dir, "*.jpg");
  g.BackgroundNames.fill(std::string());
  for (int i = 1; i <= kGalleryCells; ++i) {
    // The search ends the loop once it runs dry, and so does a sample that will not load.
    if (static_cast<std::size_t>(i) > found.size()) return;
    const std::string& name = found[static_cast<std::size_t>(i - 1)];
    g.BackgroundNames[static_cast<std::size_t>(i)] = name;
    QImage picture;
    if (LoadPicture(PathToQ(dir + name), picture, Image1(i)->size()) != RtError::None) return;
    Image1(i)->SetPicture(std::move(picture));
    Image1(i)->setAccessibleName(PathToQ(name));
  }
  emit SamplesLoaded();
}

void frmBackground::Image1_Click(int index) {
  ModGlobal& g = Globals();
  UIMainController& mc = *g.MainController;
  // The file system's name, kept in the header in the files' code page.
  const std::string picked = FromQ(PathToQ(g.BackgroundNames[static_cast<std::size_t>(index)]));
  if (picked == mc.BackgroundImage()) {
    reject();
    return;
  }
  mc.BackgroundImage(picked);
  g.SlidesChanged = true;
  accept();
  emit BackgroundChanged();
}

void frmBackground::changeEvent(QEvent* e) {
  QDialog::changeEvent(e);
  if (e->type() != QEvent::ActivationChange || !isVisible()) return;
  // Only a chooser that has had the activation can lose it.
  if (isActiveWindow())
    wasActive_ = true;
  else if (wasActive_)
    reject();
}

}  // namespace cb
