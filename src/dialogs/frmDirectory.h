#pragma once
// The modal folder chooser of the collection editor. It is one instance for
// the whole run: after OK it stays loaded and hidden, so the next use opens
// on the folder chosen last; Cancel, Help, F1 and the window's close unload
// it, and the next use opens on the gallery directory again.

#include <QDialog>

class QPushButton;

namespace cb {

class DirListBox;
class DriveListBox;

class frmDirectory : public QDialog {
  Q_OBJECT
 public:
  frmDirectory();

  // The folder chosen, without a trailing "/"; empty when none was.
  QString SelectedPath;

  QPushButton* cmdOK;
  QPushButton* cmdCancel;
  QPushButton* cmdHelp;
  DirListBox* Dir1;
  DriveListBox* Drive1;

  void cmdOK_Click();
  void cmdCancel_Click();
  void cmdHelp_Click();

  // Every way out but OK unloads the dialog and empties SelectedPath.
  void reject() override;

 protected:
  void showEvent(QShowEvent* e) override;

 private:
  void Form_Load();
  void Dir1_Change();
  void Drive1_Change();

  bool loaded_ = false;
};

// The one instance, made at the first call.
frmDirectory& TheDirectory();
// Deletes the instance; the next call makes a new one.
void UnloadDirectory();

}  // namespace cb
