// SPDX-License-Identifier: GPL-3.0-or-later
#include "gallery/GalleryLayout.h"

#include <cmath>

#include "base/Text.h"

namespace cb {
namespace {

constexpr double kSlideShrinkX = 2 * kSlideInsetX;  // 285
constexpr double kSlideShrinkY = 2 * kSlideInsetY;  // 240

// The grid as drawn at design time, before any resize.
constexpr double kDesignFrameWidth = 1305;
constexpr double kDesignFrameHeight = 1515;
constexpr double kDesignColumnPitch = 1320;
constexpr double kDesignRowPitch = 1560;
constexpr double kDesignSlideLeft = 142;
constexpr double kDesignSlideTop = 120;
constexpr double kDesignSlideWidth = 1020;
constexpr double kDesignSlideHeight = 1275;
constexpr ElementRect kDesignPicture1{0, 0, 6615, 4695};
constexpr ElementRect kDesignScrollBar{0, 4680, 6615, 255};



constexpr std::array<ElementWrite, 2 * 4 * kGalleryCells> MakeWriteOrder() {
  std::array<ElementWrite, 2 * 4 * kGalleryCells> order{};
  std::size_t n = 0;
  for (int f = FrameOf(1); f <= kGalleryElements; ++f)
    for (auto p : {ElementProperty::Width, ElementProperty::Left, ElementProperty::Height,
                   ElementProperty::Top})
      order[n++] = {f, p};
  for (int i = 1; i <= kGalleryCells; ++i)
    for (auto p : {ElementProperty::Width, ElementProperty::Left, ElementProperty::Top,
                   ElementProperty::Height})
      order[n++] = {i, p};
  return order;
}

constexpr auto kWriteOrder = MakeWriteOrder();

float Value(const ElementRect& r, ElementProperty p) {
  switch (p) {
    case ElementProperty::Width: return r.Width;
    case ElementProperty::Left: return r.Left;
    case ElementProperty::Height: return r.Height;
    case ElementProperty::Top: return r.Top;
  }
  return 0;
}

std::size_t FirstRefusal(const GalleryLayout& layout) {
  for (std::size_t w = 0; w < kWriteOrder.size(); ++w) {
    const auto& [index, property] = kWriteOrder[w];
    const bool isSize = property == ElementProperty::Width || property == ElementProperty::Height;
    if (isSize && Value(layout.Image1(index), property) < 0) return w;
  }
  return kWriteOrder.size();
}

}  // namespace

const std::array<ElementWrite, 2 * 4 * kGalleryCells>& WriteOrder() { return kWriteOrder; }

int CellColumn(int index) { return CellOf(index).column - 1; }
int CellRow(int index) { return CellOf(index).row - 1; }

GalleryLayout LayOutGallery(double clientWidth, double clientHeight, double scrollBarHeight) {
  GalleryLayout layout;
  layout.Picture1 = {0, 0, static_cast<float>(clientWidth), static_cast<float>(clientHeight)};
  layout.FlatScrollBar1 = {0, static_cast<float>(clientHeight - scrollBarHeight),
                           static_cast<float>(clientWidth), static_cast<float>(scrollBarHeight)};
  // The grid shares out the picture box's own scale, as the elements read it.
  const double sw = layout.Picture1.Width;
  const double sh = layout.Picture1.Height;
  const double gridHeight = sh - scrollBarHeight;
  const std::array<double, kGalleryRows> rowTops{0, gridHeight / 3, (2 * gridHeight) / 3};
  for (int i = 1; i <= kGalleryCells; ++i) {
    const int c = CellColumn(i);
    ElementRect& frame = layout.elements[FrameOf(i) - 1];
    frame.Width = static_cast<float>(sw / 5);
    frame.Left = c == 0 ? 0.0f : static_cast<float>((c * sw) / 5);
    frame.Height = static_cast<float>(gridHeight / 3);
    frame.Top = static_cast<float>(rowTops[CellRow(i)]);
  }
  for (int i = 1; i <= kGalleryCells; ++i) {
    const ElementRect& frame = layout.Image1(FrameOf(i));
    ElementRect& slide = layout.elements[i - 1];
    slide.Width = static_cast<float>(frame.Width - kSlideShrinkX);
    slide.Left = static_cast<float>(frame.Left + kSlideInsetX);
    slide.Top = static_cast<float>(frame.Top + kSlideInsetY);
    slide.Height = static_cast<float>(frame.Height - kSlideShrinkY);
  }
  layout.refusedAt = FirstRefusal(layout);
  return layout;
}

GalleryLayout DesignLayout() {
  GalleryLayout layout;
  layout.Picture1 = kDesignPicture1;
  layout.FlatScrollBar1 = kDesignScrollBar;
  for (int i = 1; i <= kGalleryCells; ++i) {
    const double left = CellColumn(i) * kDesignColumnPitch;
    const double top = CellRow(i) * kDesignRowPitch;
    layout.elements[FrameOf(i) - 1] = {static_cast<float>(left), static_cast<float>(top),
                                       kDesignFrameWidth, kDesignFrameHeight};
    layout.elements[i - 1] = {static_cast<float>(left + kDesignSlideLeft),
                              static_cast<float>(top + kDesignSlideTop), kDesignSlideWidth,
                              kDesignSlideHeight};
  }
  layout.refusedAt = kWriteOrder.size();
  return layout;
}

std::int16_t CellCentringOffset(std::int16_t frame, std::int16_t picture) {
  return static_cast<std::int16_t>(std::nearbyint(frame / 2.0 - picture / 2.0));
}

void ApplyWrites(const GalleryLayout& layout, std::array<ElementRect, kGalleryElements>& placed) {
  for (std::size_t k = 0; k < layout.refusedAt && k < WriteOrder().size(); ++k) {
    const ElementWrite& w = WriteOrder()[k];
    ElementRect& to = placed[static_cast<std::size_t>(w.index - 1)];
    const ElementRect& from = layout.Image1(w.index);
    switch (w.property) {
      case ElementProperty::Width: to.Width = from.Width; break;
      case ElementProperty::Left: to.Left = from.Left; break;
      case ElementProperty::Height: to.Height = from.Height; break;
      case ElementProperty::Top: to.Top = from.Top; break;
    }
  }
}

}  // namespace cb
