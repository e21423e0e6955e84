// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A temporary installation holding one collection of small pictures, with
// the main window and its gallery started on it offscreen.

#include <gtest/gtest.h>

#include <QImage>

#include "frame/Forms.h"
#include "frame/MDIMain.h"
#include "gallery/frmGallery.h"
#include "qt/MsgBox.h"
#include "qt/StretchImage.h"
#include "state/modGlobal.h"
#include "support/TempDir.h"
#include "support/WhenShown.h"

namespace cb::testing {

class GalleryFixture : public ::testing::Test {
 protected:
  GalleryFixture() {
    setenv("XDG_CONFIG_HOME", config.str().c_str(), 1);  // no password of the user's own
    for (const char* dir : {"Files", "Gallery", "Background"}) std::filesystem::create_directories(app / dir);
    QImage frame(4, 4, QImage::Format_RGB32);
    frame.fill(Qt::darkYellow);
    frame.save(QString::fromStdString(app / "Background/oak.jpg"));
    SetMsgBoxHook([this](const QString& text, int style, const QString& title) {
      messages.push_back(title + ": " + text);
      styles.push_back(style);
      return answer;
    });
  }
  ~GalleryFixture() override {
    StopPolls();
    SetMsgBoxHook({});
    UnloadForms();
    Globals() = ModGlobal();
  }

  // Writes a collection of `n` slides, slide i showing "p<i>.png" with the
  // text "Slide <i>", and starts the main window on it. Pictures listed in
  // `missing` are not written.
  void Start(int n, std::initializer_list<int> missing = {}) {
    QImage picture(6, 4, QImage::Format_RGB32);
    picture.fill(Qt::darkCyan);
    ModGlobal& g = Globals();
    g.MainController = std::make_unique<UIMainController>(app.str(), settings, g);
    UIMainController& mc = *g.MainController;
    mc.SetRegistryKeys(app / "Files/t.sif");
    mc.BackgroundImage("oak.jpg");
    g.Slides.assign(1, SlideRecord());
    for (int i = 1; i <= n; ++i) {
      SlideRecord r;
      r.Set(Field::PictureFile, "p" + std::to_string(i) + ".png");
      r.Set(Field::SlideText, "Slide " + std::to_string(i));
      g.Slides.push_back(r);
      if (std::find(missing.begin(), missing.end(), i) == missing.end())
        picture.save(QString::fromStdString(app / ("Gallery/p" + std::to_string(i) + ".png")));
    }
    mc.NumberOfRecords(n);
    ErrorArray errors;
    ASSERT_TRUE(Report(mc.SaveSettings(), errors));
    TheMDIMain().show();
  }

  frmGallery& Gallery() { return *TheMDIMain().fGallery(); }
  UIMainController& Mc() { return *Globals().MainController; }

  // The records the slide cells show, read back from their tool tips ("Slide 7" gives 7, "Empty" 0).
  std::vector<int> Shown() {
    std::vector<int> out;
    for (int i = 1; i <= 15; ++i) {
      const QString tip = Gallery().Image1(i)->toolTip();
      out.push_back(tip.startsWith("Slide ") ? tip.mid(6).toInt() : 0);
    }
    return out;
  }

  TempDir app, config;
  MemorySettings settings;
  QStringList messages;
  QList<int> styles;  // of each message, in order
  int answer = vbYes;
};

}  // namespace cb::testing
