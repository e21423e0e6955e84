// SPDX-License-Identifier: GPL-3.0-or-later
#include "slide/frmSlide.h"

#include <cmath>

#include "dialogs/HelpRoutine.h"
#include "model/SlideNames.h"
#include "qt/DrawingLock.h"
#include "qt/StretchImage.h"
#include "qt/Twips.h"
#include "slide/Zoom.h"
#include "slide/frmEditSlide.h"
#include "state/modGlobal.h"

namespace cb {
namespace {
constexpr double kDesignWidth = 7725, kDesignHeight = 5355;
}  // namespace

frmSlide::frmSlide() {
  setObjectName("frmSlide");
  setWindowTitle("Slide");
  setAttribute(Qt::WA_DeleteOnClose);
  Image1 = new StretchImage(this);
  Image1->setObjectName("Image1");
  connect(Image1, &StretchImage::MouseDown, this, [this](Qt::MouseButton, QPointF p) {
    ClickX = static_cast<float>(PixelsToTwipsX(static_cast<int>(std::lround(p.x()))));
    ClickY = static_cast<float>(PixelsToTwipsY(static_cast<int>(std::lround(p.y()))));
  });
  connect(Image1, &StretchImage::MouseUp, this, &frmSlide::Image1_MouseUp);
  connect(Image1, &StretchImage::Click, this, &frmSlide::Image1_Click);
  setFocusPolicy(Qt::StrongFocus);  // so the window has the keyboard, and F1, when it is active
  InstallF1(*this);
  resize(sizeHint());
  Place({0, 0, 7095, 4575});
  SetCaption();
}

QSize frmSlide::sizeHint() const { return {TwipsToPixelsX(kDesignWidth), TwipsToPixelsY(kDesignHeight)}; }

double frmSlide::ScaleWidth() const { return PixelsToTwipsX(width()); }
double frmSlide::ScaleHeight() const { return PixelsToTwipsY(height()); }

void frmSlide::Place(const ElementRect& r) {
  image_ = r;
  Image1->setGeometry(TwipsRect(r));
}

void frmSlide::SetCaption() {
  const ModGlobal& g = Globals();
  const std::int32_t n = g.MainController->CurrentImageNumber();
  const std::string text = (n >= 0 && n < static_cast<std::int32_t>(g.Slides.size()))
                               ? g.Slides[static_cast<std::size_t>(n)].Get(Field::SlideText)
                               : std::string();
  setWindowTitle(ToQ(SlideCaption(text, n)));
  Image1->setAccessibleName(ToQ(SlideAccessibleName(n, text)));
}

void frmSlide::Take(const SlideRequest& r, bool opened) {
  if (opened) {
    // Decoded when first drawn, at the size the window then has.
    if (r.picture) Image1->SetSource(r.picture);
    Image1->setToolTip(r.toolTip);
    return;
  }
  if (r.fromReport) {
    if (r.picture) Image1->ReplaceSource(r.picture);
    Image1->setToolTip(r.toolTip);
    update();
    return;
  }
  {
    const DrawingLock lock(this);
    if (r.picture) Image1->ReplaceSource(r.picture);
    Image1->setToolTip(r.toolTip);
    SetCaption();
  }
  setFocus();
}

void frmSlide::resizeEvent(QResizeEvent*) { Place(FitImage(image_, ScaleWidth(), ScaleHeight())); }

void frmSlide::Image1_MouseUp(Qt::MouseButton button, QPointF pos) {
  ModGlobal& g = Globals();
  const auto x = SlideController.GetXCoord(ToLong(PixelsToTwipsX(static_cast<int>(std::lround(pos.x())))).value, 0);
  const auto y = SlideController.GetYCoord(ToLong(PixelsToTwipsY(static_cast<int>(std::lround(pos.y())))).value, 0);
  if (x.error == RtError::None) g.MouseX = x.value;
  if (y.error == RtError::None) g.MouseY = y.value;
  if (button != Qt::RightButton) return;
  emit PopupWanted();
  SkipClick = true;
}

void frmSlide::Image1_Click() {
  if (SkipClick) {
    SkipClick = false;
    return;
  }
  emit Clicked();
}

void frmSlide::Zoom(bool in) {
  ZoomingIn = in;
  Image1->hide();
  // An element is no larger than the toolkit takes; a larger write is refused.
  Place(ZoomStep(image_, ScaleWidth(), ScaleHeight(), ClickX, ClickY, ZoomingIn, PixelsToTwipsX(QWIDGETSIZE_MAX)));
  Image1->show();
}

void frmSlide::Reset() {
  const DrawingLock lock(this);
  Place(ResetImage(ScaleWidth(), ScaleHeight()));
}

void frmSlide::Form_Activate() {
  const ModGlobal& g = Globals();
  const std::int32_t n = g.MainController->CurrentImageNumber();
  if (n >= 0 && n < static_cast<std::int32_t>(g.Slides.size()))
    Image1->setToolTip(ToQ(Trim(g.Slides[static_cast<std::size_t>(n)].Get(Field::SlideText))));
  SkipClick = false;
  emit Activated();
}

void frmSlide::ShowEditSlide(std::int32_t slideTemplate) {
  // A top-level window over the main window, not one of its children; a new one at each call.
  auto* editor = new frmEditSlide(slideTemplate, window());
  emit EditorOpened(editor);
  editor->show();
}

}  // namespace cb
