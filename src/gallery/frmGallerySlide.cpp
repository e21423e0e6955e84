// SPDX-License-Identifier: GPL-3.0-or-later
// Opening slides from the gallery: a click on a cell, or a report's link.
#include <QCursor>
#include <QMenu>

#include "gallery/frmGallery.h"
#include "model/SlideNames.h"
#include "qt/PictureSource.h"
#include "qt/StretchImage.h"
#include "qt/Twips.h"
#include "state/modGlobal.h"

namespace cb {
namespace {

// The picture file of record `record` by the slide window's file-name rule;
// a name without a "." or a file no decoder reads gives no picture, silently.
std::shared_ptr<const PictureSource> SlidePicture(std::int32_t record) {
  const UIMainController& mc = *Globals().MainController;
  const auto name = SlidePictureName(Trim(Globals().Slides[static_cast<std::size_t>(record)].Get(Field::PictureFile)));
  std::shared_ptr<const PictureSource> picture;
  if (name) PictureSource::Open(FilePath(mc.AppPath() + mc.GetGalleryDirectory(), *name), picture);
  return picture;
}

}  // namespace

bool frmGallery::ShowSlide(std::int16_t index) {
  if (index < 1 || index > kGalleryCells || !Image1(index)->HasPicture()) return false;
  UIMainController& mc = *Globals().MainController;
  mc.CurrentImageNumber(RecordAt(RecordInCell(mc.CurrentlyActiveBase(), index)));
  const std::int32_t record = mc.CurrentImageNumber();
  if (record < 0 || record >= static_cast<std::int32_t>(Globals().Slides.size())) return true;
  emit SlideWanted({SlidePicture(record), Image1(index)->toolTip().trimmed(), {}, false});
  return true;
}

bool frmGallery::ShowReportSlide(std::int32_t record) {
  if (record < 0 || record >= static_cast<std::int32_t>(Globals().Slides.size())) return false;
  const std::string& text = Globals().Slides[static_cast<std::size_t>(record)].Get(Field::SlideText);
  emit SlideWanted({SlidePicture(record), ToQ(Trim(text)), ToQ(SlideAccessibleName(record, text)), true});
  return false;
}

void frmGallery::ShowSlidePopup() { Menu(MenuId::Popup3)->popup(QCursor::pos()); }

void frmGallery::ShowEditSlide(std::int32_t slideTemplate) { emit EditSlideWanted(slideTemplate); }

void frmGallery::mnuPopupReset_Click() { emit SlideResetWanted(); }

}  // namespace cb
