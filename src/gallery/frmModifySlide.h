// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The collection editor: the pictures of one folder on the left, the slides
// of the collection on the right. Moving names only records changes; OK
// applies them, rebuilds the gallery and leaves the editor open.

#include <QDialog>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "gallery/UIModifySlideController.h"

class QCheckBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace cb {

class frmModifySlide : public QDialog {
  Q_OBJECT
 public:
  frmModifySlide();

  // Asks for the folder first; with none chosen the editor never shows.
  int exec() override;

  // The gallery's window state, given by the gallery before exec() and
  // given back to the gallery that OK builds.
  Qt::WindowStates GalleryWindowState = Qt::WindowNoState;
  // The folder chosen at load, without a trailing "/".
  QString SourceDirectory;
  // Its ".jpg" files, from element 1.
  std::vector<std::string> DirectoryFiles;

  QLabel* Label1;
  QListWidget* lstAvailable;
  QLabel* Label2;
  QListWidget* lstSelected;
  QPushButton* cmdAddOne;
  QPushButton* cmdAddAll;
  QPushButton* cmdRemoveOne;
  QPushButton* cmdRemoveAll;
  QCheckBox* chkExclude;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
  QPushButton* cmdHelp;

  const UIModifySlideController& ModifyController() const { return controller_; }

  void cmdAddOne_Click();
  void cmdAddAll_Click();
  void cmdRemoveOne_Click();
  void cmdRemoveAll_Click();
  void chkExclude_Click();
  void cmdOK_Click();
  void cmdHelp_Click();

  // Closing waits while OK is still applying the changes.
  void reject() override;

 signals:
  // OK changed the collection and saved it: the gallery is to be built afresh
  // and given GalleryWindowState.
  void CollectionChanged();

 private:
  bool Form_Load();
  void PlaceControls();
  // Moves the picked names (or all) from one list to the other and shows both.
  void Transfer(QListWidget* from, QListWidget* to, bool all);

  UIModifySlideController controller_;
  ErrorArray errors_;
  bool applying_ = false;
};

}  // namespace cb
