#include "qt/DecodePictures.h"

#include <QGuiApplication>
#include <QScreen>
#include <QtConcurrent/QtConcurrentMap>

#include "qt/LoadPicture.h"

namespace cb {

std::vector<DecodedPicture> DecodePictures(const QStringList& paths, QSize bound) {
  std::vector<DecodedPicture> out(static_cast<std::size_t>(paths.size()));
  std::vector<int> order(out.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = static_cast<int>(i);
  QtConcurrent::blockingMap(order, [&](int i) {
    DecodedPicture& d = out[static_cast<std::size_t>(i)];
    d.error = LoadPicture(paths[i], d.image, bound);
  });
  return out;
}

QSize GalleryCellBound() {
  const QScreen* s = QGuiApplication::primaryScreen();
  if (!s) return {400, 400};
  const QSize px = s->size() * s->devicePixelRatio();
  return {px.width() / 5, px.height() / 3};
}

}  // namespace cb
