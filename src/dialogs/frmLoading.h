// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The small modeless progress window of the gallery's loads and scrolls.

#include <QDialog>

class QLabel;
class QProgressBar;

namespace cb {

class frmLoading : public QDialog {
  Q_OBJECT
 public:
  frmLoading();

  void SetPBMax(int v);
  void SetPBMin(int v);

  QLabel* lblText;
  QProgressBar* ProgressBar1;

 protected:
  void showEvent(QShowEvent* e) override;
};

// The default instance, made (hidden) at the first call.
frmLoading& TheLoading();
// Unloads the progress window; the next reference makes a new, hidden one.
void UnloadLoading();

}  // namespace cb
