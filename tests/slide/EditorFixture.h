// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The main window on a small collection, with the slide editor opened the
// way a user opens it: a click on a thumbnail, then the toolbar's Edit.

#include <QApplication>
#include <QPointer>
#include <QTest>

#include "slide/frmEditSlide.h"
#include "support/GalleryFixture.h"

namespace cb::testing {

class EditorFixture : public GalleryFixture {
 protected:
  // Opens the slide in gallery cell `cell` and presses Edit; the editor that opened.
  frmEditSlide* OpenEditor(int cell) {
    QTest::mouseClick(Gallery().Image1(cell), Qt::LeftButton);
    return PressEdit();
  }

  frmEditSlide* PressEdit() {
    const auto before = Editors();
    TheMDIMain().Button(ToolbarButton::Edit)->trigger();
    for (frmEditSlide* e : Editors())
      if (!before.contains(e)) return e;
    return nullptr;
  }

  // The editors open now.
  static QList<frmEditSlide*> Editors() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QList<frmEditSlide*> open;
    for (QWidget* w : QApplication::topLevelWidgets())
      if (auto* e = qobject_cast<frmEditSlide*>(w); e && e->isVisible()) open.append(e);
    return open;
  }

  // Whether `editor` has been unloaded.
  static bool Gone(const QPointer<frmEditSlide>& editor) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return editor.isNull();
  }

  // The open file as the disk holds it, read by a program of its own.
  struct Disk {
    SlideArray slides;
    std::int32_t slideTemplate = 0;
    // The trimmed field of record `record`.
    std::string Get(int record, Field f) const { return Trim(slides.at(static_cast<std::size_t>(record)).Get(f)); }
  };
  Disk OnDisk() {
    ModGlobal other;
    MemorySettings s;
    other.MainController = std::make_unique<UIMainController>(app.str(), s, other);
    other.MainController->SetRegistryKeys(app / "Files/t.sif");
    ErrorArray errors;
    EXPECT_TRUE(Report(other.MainController->LoadSettings(), errors));
    return {other.Slides, other.MainController->SlideTemplate()};
  }
};

}  // namespace cb::testing
