// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The sample gallery's drawings. Each paints a whole picture of
// kPictureWidth by kPictureHeight on an antialiased painter.

#include <QPainter>

namespace cb::assets {

// Around the house.
void DrawTelevision(QPainter& p);
void DrawSofa(QPainter& p);
void DrawPainting(QPainter& p);
void DrawDiningTable(QPainter& p);

// Kitchen, laundry and garage.
void DrawFridge(QPainter& p);
void DrawMicrowave(QPainter& p);
void DrawCoffeeMachine(QPainter& p);
void DrawWashingMachine(QPainter& p);
void DrawDrill(QPainter& p);
void DrawLawnMower(QPainter& p);

// Small valuables, music and sport.
void DrawLaptop(QPainter& p);
void DrawCamera(QPainter& p);
void DrawJewellery(QPainter& p);
void DrawWatch(QPainter& p);
void DrawGuitar(QPainter& p);
void DrawBicycle(QPainter& p);

// Houses and other dwellings, and cars, by the name of their picture file;
// false, drawing nothing, for a name they do not know.
bool DrawHouse(QPainter& p, const char* file);
bool DrawCar(QPainter& p, const char* file);

}  // namespace cb::assets
