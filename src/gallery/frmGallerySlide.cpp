// Opening slides from the gallery: a click on a cell, or a report's link.
#include <QCursor>
#include <QMenu>

#include "app/Forms.h"
#include "app/modGlobal.h"
#include "qt/LoadPicture.h"
#include "qt/DrawingLock.h"
#include "qt/StretchImage.h"
#include "qt/Twips.h"
#include "gallery/frmGallery.h"
#include "slide/SlideNames.h"
#include "slide/frmSlide.h"

namespace cb {
namespace {

// The picture of record `record` by the slide window's file-name rule; a name
// without a "." gives no picture.
QImage SlidePicture(std::int32_t record) {
  const UIMainController& mc = *Globals().MainController;
  const auto name = SlidePictureName(Trim(Globals().Slides[static_cast<std::size_t>(record)].Get(Field::PictureFile)));
  QImage picture;
  if (name) LoadPicture(FilePath(mc.AppPath() + mc.GetGalleryDirectory(), *name), picture);
  return picture;
}

}  // namespace

// A new slide window; the frame takes it into its client area.
frmSlide* frmGallery::NewSlideWindow(const QImage& picture, const QString& tip) {
  auto* slide = new frmSlide();
  slide->Image1->SetPicture(picture);
  slide->Image1->setToolTip(tip);
  connect(slide, &frmSlide::PopupWanted, this, [this] { Menu(MenuId::Popup3)->popup(QCursor::pos()); });
  emit SlideOpened(slide);
  return slide;
}

bool frmGallery::ShowSlide(std::int16_t index) {
  auto* open = qobject_cast<frmSlide*>(FindOpenForm("frmSlide"));
  if (index < 1 || index > kGalleryCells || !Image1(index)->HasPicture()) return false;
  UIMainController& mc = *Globals().MainController;
  mc.CurrentImageNumber(RecordInCell(mc.CurrentlyActiveBase(), index));
  const std::int32_t record = mc.CurrentImageNumber();
  if (record < 0 || record >= static_cast<std::int32_t>(Globals().Slides.size())) return true;
  const QImage picture = SlidePicture(record);
  if (!open) {
    fSlide = NewSlideWindow(picture, Image1(index)->toolTip().trimmed());
    return true;
  }
  {
    const DrawingLock lock(open);
    if (!picture.isNull()) open->Image1->SetPicture(picture);
    open->Image1->setToolTip(Image1(index)->toolTip().trimmed());
    open->SetCaption();
  }
  open->setFocus();
  fSlide = open;
  return true;
}

bool frmGallery::ShowReportSlide(std::int32_t record) {
  if (record < 0 || record >= static_cast<std::int32_t>(Globals().Slides.size())) return false;
  const QImage picture = SlidePicture(record);
  const std::string& text = Globals().Slides[static_cast<std::size_t>(record)].Get(Field::SlideText);
  const QString tip = ToQ(Trim(text));
  if (auto* open = qobject_cast<frmSlide*>(FindOpenForm("frmSlide"))) {
    if (!picture.isNull()) open->Image1->SetPicture(picture);
    open->Image1->setToolTip(tip);
    open->update();
    fSlide = open;
  } else {
    fSlide = NewSlideWindow(picture, tip);
  }
  fSlide->Image1->setAccessibleName(ToQ(SlideAccessibleName(record, text)));
  return false;
}

void frmGallery::ShowEditSlide(std::int32_t slideTemplate) {
  if (auto* open = qobject_cast<frmSlide*>(FindOpenForm("frmSlide"))) open->ShowEditSlide(slideTemplate);
}

void frmGallery::mnuPopupReset_Click() {
  if (auto* open = qobject_cast<frmSlide*>(FindOpenForm("frmSlide"))) open->Reset();
}

}  // namespace cb
