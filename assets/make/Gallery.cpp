// SPDX-License-Identifier: GPL-3.0-or-later
// The sample gallery: the pictures that the template files name. They are
// drawn on all cores; each picture is independent of the others.

#include <cstdio>
#include <iterator>

#include "Assets.h"
#include "Drawings.h"
#include "artwork/Paint.h"

namespace cb::assets {
namespace {

struct Picture {
  const char* file;
  bool (*draw)(QPainter& p, const char* file);
};

template <void (*Draw)(QPainter&)>
bool Plain(QPainter& p, const char*) {
  Draw(p);
  return true;
}

const Picture kPictures[] = {
    {"tv.jpg", Plain<DrawTelevision>},
    {"sofa.jpg", Plain<DrawSofa>},
    {"painting.jpg", Plain<DrawPainting>},
    {"dining.jpg", Plain<DrawDiningTable>},
    {"fridge.jpg", Plain<DrawFridge>},
    {"microwave.jpg", Plain<DrawMicrowave>},
    {"coffee.jpg", Plain<DrawCoffeeMachine>},
    {"washer.jpg", Plain<DrawWashingMachine>},
    {"drill.jpg", Plain<DrawDrill>},
    {"mower.jpg", Plain<DrawLawnMower>},
    {"laptop.jpg", Plain<DrawLaptop>},
    {"camera.jpg", Plain<DrawCamera>},
    {"jewellery.jpg", Plain<DrawJewellery>},
    {"watch.jpg", Plain<DrawWatch>},
    {"guitar.jpg", Plain<DrawGuitar>},
    {"bicycle.jpg", Plain<DrawBicycle>},

    {"suburban.jpg", DrawHouse},
    {"brickveneer.jpg", DrawHouse},
    {"weatherboard.jpg", DrawHouse},
    {"terrace.jpg", DrawHouse},
    {"apartments.jpg", DrawHouse},
    {"cottage.jpg", DrawHouse},
    {"duplex.jpg", DrawHouse},
    {"townhouse.jpg", DrawHouse},
    {"villa.jpg", DrawHouse},
    {"modern.jpg", DrawHouse},
    {"unitblock.jpg", DrawHouse},
    {"farmhouse.jpg", DrawHouse},
    {"queenslander.jpg", DrawHouse},
    {"beachhouse.jpg", DrawHouse},

    {"sedan.jpg", DrawCar},
    {"hatchback.jpg", DrawCar},
    {"ute.jpg", DrawCar},
    {"suv.jpg", DrawCar},
    {"van.jpg", DrawCar},
    {"sportscar.jpg", DrawCar},
    {"wagon.jpg", DrawCar},
    {"coupe.jpg", DrawCar},
    {"citycar.jpg", DrawCar},
    {"fourwd.jpg", DrawCar},
    {"peoplemover.jpg", DrawCar},
    {"classic.jpg", DrawCar},
    {"tray.jpg", DrawCar},
    {"convertible.jpg", DrawCar},
};

// Draws and saves one picture; false, with a message, on failure.
bool Make(const Picture& picture, const QString& dir) {
  QImage img(kPictureWidth, kPictureHeight, QImage::Format_RGB32);
  img.fill(Qt::white);
  QPainter p(&img);
  p.setRenderHint(QPainter::Antialiasing);
  const bool drawn = picture.draw(p, picture.file);
  p.end();
  if (!drawn) {
    std::fprintf(stderr, "chattelbook-assets: nothing draws %s\n", picture.file);
    return false;
  }
  AddGrain(img, 2, SeedOf(picture.file));
  if (!SaveJpeg(img, dir + "/" + picture.file, kJpegQuality)) {
    std::fprintf(stderr, "chattelbook-assets: cannot write %s/%s\n", qPrintable(dir), picture.file);
    return false;
  }
  return true;
}

}  // namespace

QStringList GalleryNames() {
  QStringList names;
  for (const Picture& picture : kPictures) names << picture.file;
  return names;
}

bool WriteGallery(const QString& dir) {
  return EveryInParallel(std::size(kPictures), [&dir](std::size_t i) { return Make(kPictures[i], dir); });
}

}  // namespace cb::assets
