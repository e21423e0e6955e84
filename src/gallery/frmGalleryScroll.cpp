// SPDX-License-Identifier: GPL-3.0-or-later
// The gallery's scroll bar: each change re-decides the records on show and
// reloads the fifteen slide cells; frames are never touched.
#include <QLabel>
#include <QProgressBar>
#include <QScrollBar>

#include "dialogs/frmLoading.h"
#include "gallery/GalleryLayout.h"
#include "gallery/ScrollRules.h"
#include "gallery/frmGallery.h"
#include "qt/GalleryPictures.h"
#include "qt/StretchImage.h"
#include "qt/Twips.h"
#include "state/modGlobal.h"

namespace cb {
namespace {

constexpr char kRefreshingText[] = "Refreshing slides...";

RecordWindow Window(const UIMainController& mc) {
  return {mc.CurrentlyActiveBase(), mc.CurrentlyActiveRoof(), mc.CurrentImageNumber()};
}

void Store(UIMainController& mc, const RecordWindow& w) {
  mc.CurrentlyActiveBase(w.Base);
  mc.CurrentlyActiveRoof(w.Roof);
  mc.CurrentImageNumber(w.CurrentImageNumber);
}

}  // namespace

void frmGallery::FlatScrollBar1_Change(int value) {
  ModGlobal& g = Globals();
  UIMainController& mc = *g.MainController;
  frmLoading* loading = &TheLoading();
  loading->show();
  loading->lblText->setText(kRefreshingText);
  loading->repaint();
  missingRemoved_ = false;
  const ScrollStep step = BeginScroll(Window(mc), g.GalleryScrollValue, HandlerValue(value), Shown());
  if (step.refused) {
    if (step.pushBack) FlatScrollBar1->setValue(*step.pushBack);  // runs the handler again, with D = 0
    UnloadLoading();
    g.GalleryScrollValue = step.scrollValue;
    return;
  }
  Store(mc, step.window);
  RefillCells(step);
  const ScrollFinish finish = FinishScroll(step, Window(mc), Shown());
  Store(mc, finish.window);
  emit StatusTextChanged(ToQ(GalleryStatusText(finish.window.Base, finish.statusRoof, Shown())));
  UnloadLoading();
  g.GalleryScrollValue = step.scrollValue;
  LookAround();
}

void frmGallery::RefillCells(const ScrollStep& step) {
  if (step.refill.kind == RefillKind::None) return;
  ClearSlideImages();
  // What the page does not hold yet decodes on every core before the loop.
  QStringList paths;
  for (int c = 1; c <= step.refill.Cells() && c <= kGalleryCells; ++c) {
    const std::int32_t r = step.refill.RecordFor(c);
    if (FillFor(step.refill, r, Shown()) == CellFill::Load) paths << GalleryPicturePath(RecordAt(r));
  }
  GalleryPictures::Instance().Fill(paths, GalleryCellBound(), CellPixels());
  std::int32_t cell = 1;
  for (; cell <= step.refill.Cells() && cell <= kGalleryCells; ++cell) {
    const std::int32_t r = step.refill.RecordFor(cell);
    const CellFill fill = FillFor(step.refill, r, Shown());
    if (fill == CellFill::Load) {
      for (;;) {
        QImage picture;
        const RtError e = Picture(cell, GalleryPicturePath(RecordAt(r)), picture);
        if (e == RtError::FileNotFound && r <= Shown()) {
          if (!MissingSlide(r)) break;  // nothing was removed: the cell stays empty
          if (r > Shown()) break;
          continue;  // the same statement once more
        }
        if (e == RtError::None) Image1(cell)->SetPicture(std::move(picture));
        else UnloadLoading();  // an invalid picture leaves the cell empty
        break;
      }
      if (r <= Shown()) NameCell(cell, RecordAt(r));
    } else if (fill == CellFill::OutOfRange) {
      UnloadLoading();
    }
    TheLoading().ProgressBar1->setValue(cell);
    TheLoading().repaint();
  }
}

}  // namespace cb
