// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The program's own open and save dialog. A caller sets DialogTitle, then
// Dir1's path (the first touch, which loads the dialog), the file list's
// pattern and the type combo's items and text; runs exec(); and reads the
// controls. OK and Cancel leave them as the user did; Help, F1 and the
// window's close unload the dialog, and they read empty.

#include <QComboBox>
#include <QDialog>
#include <QListWidget>
#include <QTreeWidget>

class QLabel;
class QLineEdit;
class QPushButton;

namespace cb {

// The file types the dialog offers, and their patterns.
inline constexpr char kSifFilesType[] = "Slide Info Files (*.sif)";
inline constexpr char kSifPattern[] = "*.sif";
inline constexpr char kAllFilesType[] = "All Files (*.*)";
inline constexpr char kAllFilesPattern[] = "*.*";
inline constexpr char kSlidesType[] = "Slides (*.jpg)";
inline constexpr char kSlidesPattern[] = "*.jpg";
inline constexpr char kWallpaperType[] = "Wallpaper File (*.jpg)";
inline constexpr char kWallpaperPattern[] = "*.jpg";

// A directory list: the folders down to Path() open, its sub-folders below.
// A double click on a row moves there; Change follows every new path.
class DirListBox : public QTreeWidget {
  Q_OBJECT
 public:
  explicit DirListBox(QWidget* parent);

  // Absolute, without a trailing "/" except at the root.
  QString Path() const { return path_; }
  // Moves to `path`, relative ones from the process's directory. A folder
  // that is missing or unreadable leaves the path as it stands, silently.
  void Path(const QString& path);

 signals:
  void Change();

 protected:
  // Folder pictures show the nesting; there are no expand arrows.
  void drawBranches(QPainter*, const QRect&, const QModelIndex&) const override {}

 private:
  void Fill();
  QString path_;
};

// A file list: the regular files of Path() that fit Pattern(), by name.
class FileListBox : public QListWidget {
  Q_OBJECT
 public:
  explicit FileListBox(QWidget* parent);

  QString Path() const { return path_; }
  // Lists `path` afresh; a missing or unreadable folder keeps the old path.
  void Path(const QString& path);
  QString Pattern() const { return pattern_; }
  // "*.sif", "*.*", or several joined by ";"; lists afresh.
  void Pattern(const QString& pattern);
  // The selected file's name without its folder, or empty.
  QString FileName() const;

 private:
  void Refresh();
  QString path_, pattern_ = "*.*";
};

// The drive list, here a list of roots: "/", the home folder and mounted volumes.
class DriveListBox : public QComboBox {
  Q_OBJECT
 public:
  explicit DriveListBox(QWidget* parent);

  // The root on show.
  QString Drive() const;
  // Shows the root that holds `path`, without raising Change.
  void Drive(const QString& path);

 signals:
  // The user picked another root.
  void Change();

 private:
  int shown_ = -1;
};

// A dialog with the folder lists and the OK, Cancel and Help row. The two
// lists follow each other: a root picked moves the folders there, and the
// root list shows the root of the folder.
class FolderDialog : public QDialog {
  Q_OBJECT
 public:
  DirListBox* Dir1;
  DriveListBox* Drive1;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
  QPushButton* cmdHelp;

  virtual void cmdOK_Click() = 0;
  virtual void cmdCancel_Click() = 0;
  // Closes into help.
  void cmdHelp_Click();

 protected:
  FolderDialog();
  virtual void Dir1_Change();
  virtual void Drive1_Change();
};

class frmCommonDialog : public FolderDialog {
  Q_OBJECT
 public:
  frmCommonDialog();

  // The caption, taken on load; "New" keeps a typed name across a change of folder.
  QString DialogTitle;
  // False on load, true once Cancel has closed the dialog.
  bool Cancelled = false;

  QLineEdit* txtFilename;
  FileListBox* FileListBox1;
  QComboBox* cboFileType;

  // OK hides the dialog with whatever the controls hold; nothing is checked.
  void cmdOK_Click() override;
  // Sets Cancelled and hides the dialog, which stays loaded.
  void cmdCancel_Click() override;

  // Closing the window or the help routine unloads the dialog: its controls
  // come back empty, as a fresh load would leave them.
  void reject() override;

 protected:
  void showEvent(QShowEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  void Drive1_Change() override;
  void Dir1_Change() override;

 private:
  void Form_Load();
  void Unload();
  void cboFileType_Click(int index);
  void FileListBox1_Click();
  void PlaceControls();

  bool loaded_ = false;
};

// The dialog as the commands run it: one at a time, kept loaded after a
// cancel until the next command replaces it. Makes a new dialog (replacing
// the last), sets its title, folder, pattern and file types, and shows it
// modally. The dialog stays loaded. A `name` starts in the name box, so
// Enter takes it.
frmCommonDialog& RunCommonDialog(const QString& title, const QString& folder, const QString& pattern,
                                 const QStringList& types, const QString& name = {});

// Unloads the dialog of the last command.
void UnloadCommonDialog();

}  // namespace cb
