// SPDX-License-Identifier: GPL-3.0-or-later
// The gallery's load: frames first, then up to fifteen slides with the
// missing-file protocol, tool tips, empty cells, the bar and the status text.
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QScrollBar>
#include <algorithm>

#include "dialogs/frmLoading.h"
#include "gallery/GalleryLayout.h"
#include "gallery/ScrollRules.h"
#include "gallery/frmGallery.h"
#include "model/SlideNames.h"
#include "qt/DrawingLock.h"
#include "qt/GalleryPictures.h"
#include "qt/LoadPicture.h"
#include "qt/MsgBox.h"
#include "qt/StretchImage.h"
#include "qt/Twips.h"
#include "state/modGlobal.h"
#include "storage/HistorySteps.h"

namespace cb {
namespace {

constexpr char kLoadingText[] = "Loading slides...";
constexpr char kNotFoundTitle[] = "Slide Not Found";

QString NotFoundText(const std::string& pictureFile) {
  return "The file '" + ToQ(Trim(pictureFile)) +
         "' referenced in the gallery could not be found on your hard drive.\n"
         "The slide will be removed from the gallery.\n\n"
         "Click 'Yes' to receive further warnings, otherwise click 'No'";
}

std::int32_t UpperBound() { return static_cast<std::int32_t>(Globals().Slides.size()) - 1; }

}  // namespace

void frmGallery::Create() {
  const DrawingLock lock(this);
  Item(MenuId::FileGallery)->setEnabled(false);
  setWindowTitle("Gallery <" + PathToQ(Globals().MainController->SlideInformationFilePath()) + ">");
  Load();
}

QString GalleryPicturePath(std::int32_t record) {
  const UIMainController& mc = *Globals().MainController;
  return FilePath(mc.AppPath() + mc.GetGalleryDirectory(),
                  Trim(Globals().Slides[static_cast<std::size_t>(record)].Get(Field::PictureFile)));
}

RtError frmGallery::Picture(int cell, const QString& path, QImage& out) {
  const RtError e = GalleryPictures::Instance().Get(path, out, GalleryCellBound(), CellPixels());
  if (e == RtError::None) cellPaths_[std::size_t(cell - 1)] = path;
  return e;
}

QSize frmGallery::CellPixels() const {
  const StretchImage* cell = Image1(1);
  return cell->size() * cell->devicePixelRatio();
}

void frmGallery::SharpenCells() {
  const QSize size = CellPixels();
  QStringList paths;
  for (int i = 1; i <= kGalleryCells; ++i)
    if (Image1(i)->HasPicture() && !Covers(Image1(i)->Picture().size(), size)) paths << cellPaths_[std::size_t(i - 1)];
  if (paths.isEmpty()) return;
  GalleryPictures::Instance().Fill(paths, GalleryCellBound(), size);
  for (int i = 1; i <= kGalleryCells; ++i) {
    QImage sharper;
    if (Image1(i)->HasPicture() && !Covers(Image1(i)->Picture().size(), size) &&
        Picture(i, cellPaths_[std::size_t(i - 1)], sharper) == RtError::None)
      Image1(i)->SetPicture(std::move(sharper));
  }
}

void frmGallery::LookAround() {
  const UIMainController& mc = *Globals().MainController;
  QStringList paths;
  for (std::int32_t p = mc.CurrentlyActiveRoof() + 1; p <= mc.CurrentlyActiveRoof() + 3 && p <= Shown(); ++p)
    paths << GalleryPicturePath(RecordAt(p));
  for (std::int32_t p = std::max(1, mc.CurrentlyActiveBase() - 3); p < mc.CurrentlyActiveBase(); ++p)
    paths << GalleryPicturePath(RecordAt(p));
  GalleryPictures::Instance().LookAhead(paths, GalleryCellBound(), CellPixels());
}

std::int32_t frmGallery::Shown() const { return shown_.Count(UpperBound()); }

std::int32_t frmGallery::RecordAt(std::int32_t position) const { return shown_.Record(position, UpperBound()); }

bool frmGallery::RemoveSlide(std::int32_t index) {
  index_.reset();
  const bool removed = GalleryController.DeleteSlide(index, shown_, *Globals().MainController, Globals().Slides);
  ShowFoundCount();
  return removed;
}

void frmGallery::ShowFoundCount() {
  const QString text = Utf8ToQ(FoundText(std::size_t(Shown()), std::size_t(UpperBound()), query_));
  lblFound->setText(text);
  lblFound->setToolTip(text);
}

void frmGallery::SetOpeningWindow() {
  UIMainController& mc = *Globals().MainController;
  const RecordWindow opening = OpeningWindow(Shown());
  mc.CurrentlyActiveBase(opening.Base);
  mc.CurrentlyActiveRoof(opening.Roof);
  mc.CurrentImageNumber(RecordAt(opening.CurrentImageNumber));
}

void frmGallery::Load() {
  ModGlobal& g = Globals();
  UIMainController& mc = *g.MainController;
  frmLoading& loading = TheLoading();
  loading.show();
  loading.lblText->setText(kLoadingText);
  loading.repaint();
  WarnMissingSlides = true;
  missingRemoved_ = false;
  GalleryController = UIGalleryController();
  if (QWidget* frame = parentWidget())
    frame->resize(TwipsToPixelsX(mc.FormWidth()), TwipsToPixelsY(mc.FormHeight()));
  // A query kept from the gallery this one replaces applies again.
  if (!g.FindQuery.empty()) {
    const std::string query = g.FindQuery;
    mnuEditFind_Click();
    const QSignalBlocker quiet(txtFind);
    txtFind->setText(Utf8ToQ(query));
    ApplyFind(query);
  }
  SetOpeningWindow();
  loading.repaint();

  QImage frame;
  LoadPicture(FilePath(mc.AppPath() + mc.GetGraphicsDirectory(), mc.BackgroundImage()), frame, GalleryCellBound());
  for (int i = 1; i <= kGalleryCells; ++i) Image1(FrameOf(i))->SetPicture(frame);
  if (!FillFirstPage(&loading)) {
    UnloadLoading();
    return;
  }
  for (std::int32_t i = Shown() + 1; i <= kGalleryCells; ++i) Image1(FrameOf(i))->SetPicture(frame);
  emit PageLoaded();
  SetStatusText();
  UnloadLoading();
  PopupSlideIndex = -1;
  LookAround();
}

bool frmGallery::FillFirstPage(frmLoading* loading) {
  const UIMainController& mc = *Globals().MainController;
  const std::int32_t n = Shown();
  // The page's pictures decode together ahead of the loop, which keeps its order.
  QStringList paths;
  for (std::int32_t i = 1; i <= n && i <= kGalleryCells; ++i) paths << GalleryPicturePath(RecordAt(i));
  GalleryPictures::Instance().Fill(paths, GalleryCellBound(), CellPixels());

  for (std::int32_t i = 1; i <= n && i <= kGalleryCells; ++i) {
    // Any other failure ends the load here, leaving the rest as it stands.
    if (!LoadCell(i, i) || RecordInCell(mc.CurrentlyActiveBase(), i) > Shown()) return false;
    NameCell(i, RecordAt(RecordInCell(mc.CurrentlyActiveBase(), i)));
    if (loading) {
      loading->ProgressBar1->setValue(i);
      loading->repaint();
    }
  }

  const std::int32_t now = Shown();
  if (now - 1 < kGalleryCells) {
    FlatScrollBar1->setEnabled(false);
    for (std::int32_t i = now + 1; i <= kGalleryCells; ++i) NameCell(i, 0);
  }
  if (FlatScrollBar1->isEnabled()) {
    const ToolkitBarRange range = MapToToolkitBar(GalleryScrollRange(now));
    const QSignalBlocker setUp(FlatScrollBar1);
    FlatScrollBar1->setRange(range.minimum, range.maximum);
    FlatScrollBar1->setSingleStep(range.singleStep);
    FlatScrollBar1->setPageStep(range.pageStep);
    FlatScrollBar1->setValue(range.minimum);
    Globals().GalleryScrollValue = LoadScrollValue(range);
  }
  return true;
}

void frmGallery::FindTextChanged(const QString& text) {
  ApplyFind(text.toStdString());
  ShowMatches();
}

void frmGallery::ApplyFind(const std::string& text) {
  Globals().FindQuery = text;
  query_ = ParseQuery(text);
  if (query_.Empty()) {
    shown_.ShowAll();
    return ShowFoundCount();
  }
  shown_.ShowOnly(Index().Find(query_));
  ShowFoundCount();
}

void frmGallery::ShowMatches() {
  const DrawingLock lock(this);
  missingRemoved_ = false;
  ClearSlideImages();
  FlatScrollBar1->setEnabled(true);
  SetOpeningWindow();
  if (!FillFirstPage(nullptr)) return;
  SetStatusText();
  PopupSlideIndex = -1;
  LookAround();
}

bool frmGallery::LoadCell(int cell, std::int32_t position) {
  for (;;) {
    if (position > Shown()) return false;  // the collection shrank under the loop
    QImage picture;
    const RtError e = Picture(cell, GalleryPicturePath(RecordAt(position)), picture);
    if (e == RtError::None) {
      Image1(cell)->SetPicture(std::move(picture));
      return true;
    }
    // A record that cannot be removed would be retried for ever.
    if (e == RtError::FileNotFound) {
      if (!MissingSlide(position)) return false;
    } else if (e == RtError::InvalidPicture) {
      if (!RemoveSlide(position)) return false;
    } else {
      return false;
    }
  }
}

bool frmGallery::MissingSlide(std::int32_t position) {
  ModGlobal& g = Globals();
  UIMainController& mc = *g.MainController;
  if (WarnMissingSlides) {
    WarnAnswer = MsgBox(NotFoundText(g.Slides[static_cast<std::size_t>(RecordAt(position))].Get(Field::PictureFile)),
                        vbYesNo, kNotFoundTitle);
    if (WarnAnswer == vbNo) WarnMissingSlides = false;
  }
  // A position stands where a cell index is expected: with Base above 1
  // the slide removed is not always the one whose file is missing.
  if (!RemoveSlide(position)) return false;
  mc.CurrentlyActiveRoof(std::min(Shown(), std::int32_t{kGalleryCells}));
  // The removals of one load or one step of the bar are one step to undo.
  Report(mc.SaveSettings(steps::kRemoveMissing, missingRemoved_), errors_);
  missingRemoved_ = true;
  return true;
}

void frmGallery::ClearSlideImages() {
  for (int i = 1; i <= kGalleryCells; ++i) {
    Image1(i)->ClearPicture();
    NameCell(i, 0);
  }
}

void frmGallery::NameCell(int cell, std::int32_t record) {
  if (record < 1 || record > UpperBound()) {
    Image1(cell)->setToolTip(kEmptyCellToolTip.data());
    Image1(cell)->setAccessibleName(kEmptyCellToolTip.data());
    return;
  }
  const std::string& text = Globals().Slides[static_cast<std::size_t>(record)].Get(Field::SlideText);
  Image1(cell)->setToolTip(ToQ(SlideToolTip(text)));
  Image1(cell)->setAccessibleName(ToQ(SlideAccessibleName(record, text)));
}

void frmGallery::SetStatusText() {
  const UIMainController& mc = *Globals().MainController;
  emit StatusTextChanged(ToQ(GalleryStatusText(mc.CurrentlyActiveBase(), mc.CurrentlyActiveRoof(), Shown())));
}

}  // namespace cb
