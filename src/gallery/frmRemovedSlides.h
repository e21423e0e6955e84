// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The bin of the open file: the slides taken out of it, newest first, which
// Restore puts back where they stood and Forget drops for good.

#include <QDialog>

#include "base/Status.h"

class QPushButton;
class QTreeWidget;

namespace cb {

class frmRemovedSlides : public QDialog {
  Q_OBJECT
 public:
  frmRemovedSlides();

  QTreeWidget* lstRemoved;
  QPushButton* cmdRestore;
  QPushButton* cmdForget;
  QPushButton* cmdClose;
  QPushButton* cmdHelp;

  // Set once Restore has changed the collection: the gallery is to be built afresh.
  bool Restored = false;

  void cmdRestore_Click();
  void cmdForget_Click();

 private:
  void Fill();
  std::vector<std::size_t> Chosen() const;

  ErrorArray errors_;
};

}  // namespace cb
