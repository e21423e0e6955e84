#pragma once
// An image element that stretches its picture to whatever size it is given,
// and reports a press as mouse-down, then mouse-up followed by click. The
// second press of a double-click gives mouse-up only, so a double-click is
// one click, as on the platform the program comes from.

#include <QImage>
#include <QWidget>

namespace cb {

class StretchImage : public QWidget {
  Q_OBJECT
 public:
  explicit StretchImage(QWidget* parent = nullptr);

  void SetPicture(QImage picture);
  void ClearPicture() { SetPicture({}); }
  bool HasPicture() const { return !picture_.isNull(); }
  const QImage& Picture() const { return picture_; }

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
  QImage picture_;
  bool doubleClicked_ = false;
};

}  // namespace cb
