#pragma once
// The frame window: a multiple-document parent whose children are the
// gallery, slide windows, reports and help. Its background is the wallpaper.

#include <QImage>
#include <QMainWindow>
#include <QMdiArea>

#include "app/RuntimeError.h"

namespace cb {

// The client area, painting the wallpaper centred on the background.
class WallpaperArea : public QMdiArea {
  Q_OBJECT
 public:
  using QMdiArea::QMdiArea;
  void SetPicture(QImage picture);
  const QImage& Picture() const { return picture_; }

 protected:
  void paintEvent(QPaintEvent* e) override;

 private:
  QImage picture_;
};

class MDIMain : public QMainWindow {
  Q_OBJECT
 public:
  MDIMain();

  WallpaperArea* MdiArea() const { return area_; }

  // Shows the gallery unless one is open.
  void mnuFileGallery_Click();

 private:
  void MDIForm_Load();

  WallpaperArea* area_;
  ErrorArray errors_;
};

}  // namespace cb
