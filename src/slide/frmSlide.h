// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One slide's picture as large as the main window's client area, zoomed
// about the clicked point by a fixed step.

#include <QWidget>

#include "dialogs/SlideRequest.h"
#include "model/Geometry.h"
#include "slide/UISlideController.h"

namespace cb {

class StretchImage;
class frmEditSlide;

class frmSlide : public QWidget {
  Q_OBJECT
 public:
  frmSlide();

  StretchImage* Image1;
  bool SkipClick = false;
  float ClickX = 0, ClickY = 0;
  bool ZoomingIn = true;

  // Shows the gallery's request; `opened` for a window just made, which
  // takes the picture even when it is missing.
  void Take(const SlideRequest& request, bool opened);
  // Opens the editor of the template on the current slide.
  void ShowEditSlide(std::int32_t slideTemplate);
  // The popup's Reset: the picture fills the window from its corner.
  void Reset();
  // One zoom step about the last press, in or out.
  void Zoom(bool in);
  // The picture's place in twips.
  ElementRect ImageRect() const { return image_; }
  // The caption from the current slide.
  void SetCaption();
  void Form_Activate();
  // Cascading keeps the window's design size.
  QSize sizeHint() const override;

 signals:
  // Each activation: the frame sets its toolbar for a slide.
  void Activated();
  // A click that zooms: the frame decides the sense from its Zoom buttons and calls Zoom.
  void Clicked();
  // The right button: the gallery offers its slide popup.
  void PopupWanted();
  // A new editor, for the frame to hear its OK; it may outlive this window.
  void EditorOpened(cb::frmEditSlide* editor);

 protected:
  void resizeEvent(QResizeEvent* e) override;

 private:
  void Image1_MouseUp(Qt::MouseButton button, QPointF pos);
  void Image1_Click();
  void Place(const ElementRect& r);
  double ScaleWidth() const;
  double ScaleHeight() const;

  ElementRect image_;
  UISlideController SlideController;
};

}  // namespace cb
