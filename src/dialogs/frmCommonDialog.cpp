// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/frmCommonDialog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStorageInfo>
#include <QStyle>
#include <memory>
#include <type_traits>
#include <vector>

#include "base/FileListing.h"
#include "dialogs/DialogButtons.h"
#include "dialogs/HelpRoutine.h"
#include "qt/FixedDialog.h"
#include "qt/Twips.h"
#include "storage/Listing.h"

namespace cb {
namespace {

constexpr char kNewCaption[] = "New";

// The two type items the dialog understands; any other leaves the pattern alone.
struct FileType {
  const char* text;
  const char* pattern;
};
constexpr FileType kFileTypes[] = {
    {kSifFilesType, kSifPattern},
    {kAllFilesType, kAllFilesPattern},
};

// Design rectangles in twips, controls in tab order; labels sit above their control.
struct Control {
  const char* name;
  ElementRect place;
};
// The left column is wider than the design's 1815, and everything right of it
// moves over, so that "Slide Info Files (*.sif)" shows whole at today's fonts.
constexpr double kLeftWidth = 2415, kShift = kLeftWidth - 1815;
constexpr Control kControls[] = {
    {"txtFilename", {240, 480, kLeftWidth, 285}},
    {"FileListBox1", {240, 840, kLeftWidth, 1260}},
    {"cboFileType", {240, 2520, kLeftWidth, 315}},
    {"Dir1", {2520 + kShift, 480, 1935, 1665}},
    {"Drive1", {2520 + kShift, 2520, 1935, 315}},
    {"cmdOK", {4800 + kShift, 240, 1455, 375}},
    {"cmdCancel", {4800 + kShift, 720, 1455, 375}},
    {"cmdHelp", {4800 + kShift, 1320, 1455, 375}},
};
struct Caption {
  const char* name;
  const char* text;
  ElementRect place;
  const char* labels;  // the control it names
};
constexpr Caption kLabels[] = {
    {"lblFileName", "File Name:", {240, 240, kLeftWidth, 240}, "txtFilename"},
    {"lblFileType", "List Files of Type:", {240, 2280, kLeftWidth, 240}, "cboFileType"},
    {"lblFolders", "Folders:", {2520 + kShift, 240, 1935, 240}, "Dir1"},
    {"lblDrives", "Drives:", {2520 + kShift, 2280, 1935, 240}, "Drive1"},
};
// The file list stands under the name's label with no label of its own.
constexpr char kFileListName[] = "Files";
constexpr double kClientWidth = 6450 + kShift, kClientHeight = 3075;

std::string Bytes(const QString& path) { return QFile::encodeName(path).toStdString(); }
QString Name(const std::string& bytes) { return QFile::decodeName(QByteArray::fromStdString(bytes)); }

// A folder the lists can stand on: cleaned, or empty when it cannot be read.
QString Readable(const QString& path) {
  const QString clean = Name(CleanDirectory(Bytes(path), Bytes(QDir::currentPath())));
  const QFileInfo info(clean);
  return info.isDir() && info.isReadable() && info.isExecutable() ? clean : QString();
}

std::vector<std::string> Roots() {
  std::vector<std::string> mounts;
  for (const QStorageInfo& v : QStorageInfo::mountedVolumes()) mounts.push_back(Bytes(v.rootPath()));
  return DriveRoots(Bytes(QDir::homePath()), mounts);
}

}  // namespace

DirListBox::DirListBox(QWidget* parent) : QTreeWidget(parent) {
  setHeaderHidden(true);
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setExpandsOnDoubleClick(false);
  setUniformRowHeights(true);
  setIndentation(fontMetrics().averageCharWidth());
  connect(this, &QTreeWidget::itemDoubleClicked, this,
          [this](QTreeWidgetItem* item) { Path(item->data(0, Qt::UserRole).toString()); });
  path_ = Readable(QDir::currentPath());
  Fill();
}

void DirListBox::Path(const QString& path) {
  const QString clean = Readable(path);
  if (clean.isEmpty() || clean == path_) return;
  path_ = clean;
  Fill();
  emit Change();
}

void DirListBox::Fill() {
  clear();
  const QIcon open = style()->standardIcon(QStyle::SP_DirOpenIcon);
  const QIcon closed = style()->standardIcon(QStyle::SP_DirClosedIcon);
  std::vector<QTreeWidgetItem*> parents;
  QTreeWidgetItem* current = nullptr;
  const std::string path = Bytes(path_);
  for (const DirListEntry& e : DirListEntries(path, ListDirectories(Env::Default(), path))) {
    parents.resize(e.depth);
    auto* item = parents.empty() ? new QTreeWidgetItem(this) : new QTreeWidgetItem(parents.back());
    item->setText(0, Name(e.name));
    item->setIcon(0, e.open ? open : closed);
    item->setData(0, Qt::UserRole, Name(e.path));
    parents.push_back(item);
    if (e.open) current = item;
  }
  expandAll();
  if (current) {
    setCurrentItem(current);
    scrollToItem(current);
  }
}

FileListBox::FileListBox(QWidget* parent) : QListWidget(parent) {
  setUniformItemSizes(true);
  path_ = Readable(QDir::currentPath());
  Refresh();
}

void FileListBox::Path(const QString& path) {
  const QString clean = Readable(path);
  if (!clean.isEmpty()) path_ = clean;
  Refresh();
}

void FileListBox::Pattern(const QString& pattern) {
  pattern_ = pattern;
  Refresh();
}

QString FileListBox::FileName() const {
  const QList<QListWidgetItem*> picked = selectedItems();
  return picked.isEmpty() ? QString() : picked.front()->text();
}

void FileListBox::Refresh() {
  clear();
  for (const std::string& name : ListFiles(Env::Default(), Bytes(path_), Bytes(pattern_))) addItem(Name(name));
}

DriveListBox::DriveListBox(QWidget* parent) : QComboBox(parent) {
  const QString home = QDir::homePath();
  for (const std::string& root : Roots()) {
    const QString r = Name(root);
    const auto icon = r == "/" ? QStyle::SP_DriveHDIcon : r == home ? QStyle::SP_DirHomeIcon : QStyle::SP_DriveCDIcon;
    addItem(style()->standardIcon(icon), r);
  }
  connect(this, &QComboBox::activated, this, [this](int index) {
    if (index == shown_) return;
    shown_ = index;
    emit Change();
  });
}

QString DriveListBox::Drive() const { return currentText(); }

void DriveListBox::Drive(const QString& path) {
  std::vector<std::string> roots;
  for (int i = 0; i < count(); ++i) roots.push_back(Bytes(itemText(i)));
  const int index = findText(Name(DriveOf(Bytes(path), roots)));
  const QSignalBlocker quiet(this);
  setCurrentIndex(index);
  shown_ = index;
}

FolderDialog::FolderDialog() {
  setWindowFlags(kFixedDialog);
  Dir1 = new DirListBox(this);
  Dir1->setObjectName("Dir1");
  Dir1->setAccessibleName("Folders");
  Drive1 = new DriveListBox(this);
  Drive1->setObjectName("Drive1");
  Drive1->setAccessibleName("Drives");
  const DialogButtons buttons = MakeDialogButtons(this);
  cmdOK = buttons.ok;
  cmdCancel = buttons.cancel;
  cmdHelp = buttons.help;
  connect(Drive1, &DriveListBox::Change, this, &FolderDialog::Drive1_Change);
  connect(Dir1, &DirListBox::Change, this, &FolderDialog::Dir1_Change);
  connect(cmdOK, &QPushButton::clicked, this, &FolderDialog::cmdOK_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &FolderDialog::cmdCancel_Click);
  connect(cmdHelp, &QPushButton::clicked, this, &FolderDialog::cmdHelp_Click);
  InstallF1(*this);
}

void FolderDialog::cmdHelp_Click() { CloseWithHelp(*this); }

void FolderDialog::Dir1_Change() { Drive1->Drive(Dir1->Path()); }

void FolderDialog::Drive1_Change() { Dir1->Path(Drive1->Drive()); }

frmCommonDialog::frmCommonDialog() {
  setObjectName("frmCommonDialog");
  txtFilename = new QLineEdit(this);
  FileListBox1 = new FileListBox(this);
  cboFileType = new QComboBox(this);
  PlaceControls();

  connect(cboFileType, &QComboBox::activated, this, &frmCommonDialog::cboFileType_Click);
  connect(FileListBox1, &QListWidget::itemClicked, this, &frmCommonDialog::FileListBox1_Click);
  connect(FileListBox1, &QListWidget::itemSelectionChanged, this, &frmCommonDialog::FileListBox1_Click);
  connect(FileListBox1, &QListWidget::itemDoubleClicked, this, &frmCommonDialog::cmdOK_Click);
}

void frmCommonDialog::PlaceControls() {
  QWidget* controls[] = {txtFilename, FileListBox1, cboFileType, Dir1, Drive1, cmdOK, cmdCancel, cmdHelp};
  static_assert(std::extent_v<decltype(controls)> == std::size(kControls));
  for (std::size_t i = 0; i < std::size(kControls); ++i) {
    controls[i]->setObjectName(kControls[i].name);
    controls[i]->setGeometry(TwipsRect(kControls[i].place));
    if (i > 0) setTabOrder(controls[i - 1], controls[i]);
  }
  for (const Caption& c : kLabels) {
    auto* label = new QLabel(c.text, this);
    label->setObjectName(c.name);
    label->setGeometry(TwipsRect(c.place));
    QWidget* named = findChild<QWidget*>(c.labels);
    label->setBuddy(named);
    named->setAccessibleName(QString(c.text).chopped(1));  // without the colon
  }
  FileListBox1->setAccessibleName(kFileListName);
  setFixedSize(TwipsToPixelsX(kClientWidth), TwipsToPixelsY(kClientHeight));
}

void frmCommonDialog::Form_Load() {
  loaded_ = true;
  CentreOnScreen(*this);
  Drive1->Drive(Dir1->Path());
  FileListBox1->Path(Dir1->Path());
  setWindowTitle(DialogTitle);
  Cancelled = false;
}

void frmCommonDialog::Unload() {
  loaded_ = false;
  const QSignalBlocker quiet(Dir1);
  Dir1->Path(QDir::currentPath());
  Drive1->Drive(Dir1->Path());
  FileListBox1->Pattern(kAllFilesPattern);
  FileListBox1->Path(Dir1->Path());
  cboFileType->clear();
  txtFilename->clear();
  setWindowTitle(QString());
}

void frmCommonDialog::showEvent(QShowEvent* e) {
  if (!loaded_) Form_Load();
  QDialog::showEvent(e);
}

void frmCommonDialog::keyPressEvent(QKeyEvent* e) {
  // Escape is the Cancel button's key, not a bare close.
  if (e->key() == Qt::Key_Escape && e->modifiers() == Qt::NoModifier) {
    cmdCancel->click();
    return;
  }
  QDialog::keyPressEvent(e);
}

void frmCommonDialog::Drive1_Change() {
  FolderDialog::Drive1_Change();
  FileListBox1->Path(Dir1->Path());
  txtFilename->clear();
}

void frmCommonDialog::Dir1_Change() {
  // The caller's first setting of the path is the dialog's first touch.
  if (!loaded_) Form_Load();
  FolderDialog::Dir1_Change();
  FileListBox1->Path(Dir1->Path());
  if (windowTitle() != kNewCaption) txtFilename->clear();
}

void frmCommonDialog::cboFileType_Click(int index) {
  const QString text = cboFileType->itemText(index);
  for (const FileType& t : kFileTypes)
    if (text == t.text) FileListBox1->Pattern(t.pattern);
  txtFilename->clear();
}

void frmCommonDialog::FileListBox1_Click() {
  const QString name = FileListBox1->FileName();
  if (!name.isEmpty()) txtFilename->setText(name);
}

void frmCommonDialog::cmdOK_Click() { done(Accepted); }

void frmCommonDialog::cmdCancel_Click() {
  Cancelled = true;
  done(Rejected);
}

void frmCommonDialog::reject() {
  QDialog::reject();
  Unload();
}

namespace {
std::unique_ptr<frmCommonDialog>& CommandDialog() {
  static std::unique_ptr<frmCommonDialog> dialog;
  return dialog;
}
}  // namespace

frmCommonDialog& RunCommonDialog(const QString& title, const QString& folder, const QString& pattern,
                                 const QStringList& types, const QString& name) {
  CommandDialog() = std::make_unique<frmCommonDialog>();
  frmCommonDialog& d = *CommandDialog();
  d.DialogTitle = title;
  d.Dir1->Path(folder);
  d.FileListBox1->Pattern(pattern);
  d.cboFileType->addItems(types);
  d.cboFileType->setCurrentText(types.value(0));
  d.txtFilename->setText(name);
  d.exec();
  return d;
}

void UnloadCommonDialog() { CommandDialog().reset(); }

}  // namespace cb
