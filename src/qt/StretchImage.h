// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// An image element that stretches its picture to whatever size it is given,
// and reports a press as mouse-down, then mouse-up followed by click. The
// second press of a double-click gives mouse-up only, so a double-click is
// one click, as on the platform the program comes from.
// Given a picture file rather than a picture, it decodes the file at the
// scale its exposed part needs, and again finer or for another part when a
// larger size or a move asks for detail it lacks; it draws only what shows.

#include <QImage>
#include <QWidget>
#include <cstddef>
#include <memory>

#include "model/PictureRegion.h"

namespace cb {

class PictureSource;

class StretchImage : public QWidget {
  Q_OBJECT
 public:
  explicit StretchImage(QWidget* parent = nullptr);

  void SetPicture(QImage picture);
  void ClearPicture() { SetPicture({}); }
  // Shows `source`, decoded when first drawn; a decode that fails shows nothing.
  void SetSource(std::shared_ptr<const PictureSource> source);
  // Shows `source` decoded now for the present size; when it does not
  // decode, the element keeps what it shows and the result is false.
  bool ReplaceSource(std::shared_ptr<const PictureSource> source);
  bool HasPicture() const { return !picture_.isNull() || source_; }
  // The whole picture, or the part of the source last decoded.
  const QImage& Picture() const { return picture_; }
  // What Picture() holds of the source.
  DecodePlan Held() const { return held_; }

 signals:
  void MouseDown(Qt::MouseButton button, QPointF pos);
  void MouseUp(Qt::MouseButton button, QPointF pos);
  void Click();

 protected:
  void paintEvent(QPaintEvent* e) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;
  void mouseDoubleClickEvent(QMouseEvent* e) override;

 private:
  // What the element needs decoded of its source to draw what shows now.
  DecodePlan Wanted(const PictureSource& source) const;
  bool Decode(const std::shared_ptr<const PictureSource>& source, const DecodePlan& plan);

  QImage picture_;
  std::shared_ptr<const PictureSource> source_;
  DecodePlan held_;
  bool failed_ = false;  // the source's last decode failed
  bool doubleClicked_ = false;
};

}  // namespace cb
