// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The frame chooser: the first fifteen frames of the graphics directory as
// samples in the gallery's grid. A click on one chooses it; losing the
// activation closes the chooser with no change.

#include <QDialog>
#include <array>

namespace cb {

class StretchImage;

class frmBackground : public QDialog {
  Q_OBJECT
 public:
  frmBackground();

  // Loads the samples, then shows the chooser modally.
  int exec() override;

  QWidget* Picture1;
  // Image1(1..15), the samples.
  StretchImage* Image1(int index) const { return images_[static_cast<std::size_t>(index - 1)]; }

  // Chooses the sample at `index`; the frame already in use closes with no event.
  void Image1_Click(int index);

 signals:
  // The collection's frame has changed; nothing is saved yet.
  void BackgroundChanged();
  // All fifteen positions hold a frame: the frame's Window menu is live.
  void SamplesLoaded();

 protected:
  void changeEvent(QEvent* e) override;

 private:
  void Form_Load();

  std::array<StretchImage*, 15> images_{};
  bool wasActive_ = false;
};

}  // namespace cb
