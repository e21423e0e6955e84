// SPDX-License-Identifier: GPL-3.0-or-later
// New, Open, Save As and the history entries: ask for a file, point the settings at it, read or
// write it, and build the gallery afresh.
#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QTimer>

#include <filesystem>
#include <fstream>

#include "dialogs/frmCommonDialog.h"
#include "frame/MDIMain.h"
#include "gallery/DropRules.h"
#include "gallery/frmGallery.h"
#include "qt/DroppedFiles.h"
#include "qt/MsgBox.h"
#include "qt/Twips.h"
#include "state/modGlobal.h"
#include "storage/FileSystem.h"
#include "storage/HistorySteps.h"

namespace cb {
namespace {

constexpr char kLoadErrorText[] = "Invalid Slide Information File";
constexpr char kLoadErrorTitle[] = "Load Error";
constexpr char kNewFileTitle[] = "New File";
constexpr char kSaveAsTitle[] = "Save As";

QString FilesFolder() {
  const UIMainController& mc = *Globals().MainController;
  return PathToQ(mc.AppPath() + mc.GetSIFDirectory());
}

frmCommonDialog& RunSifDialog(const QString& title) {
  return RunCommonDialog(title, FilesFolder(), kSifPattern, {kSifFilesType, kAllFilesType});
}

// True when `name` stands in the dialog's folder under exactly that name.
bool Exists(const frmCommonDialog& d, const QString& probe, const QString& name) {
  if (name.isEmpty()) return false;
  return DirEntryName(PathFromQ(d.Dir1->Path() + "/" + probe)) == PathFromQ(name);
}

std::string InFileList(const frmCommonDialog& d, const QString& name) {
  return PathFromQ(d.FileListBox1->Path() + "/" + name);
}

}  // namespace

bool MDIMain::OverwriteConfirmed(const QString& name, const char* title) {
  return MsgBox("The file '" + name + "' already exists.\nAre you sure you want to overwrite this file?",
                vbYesNo, title) == vbYes;
}

void MDIMain::mnuFileNew_Click() { NewFile(steps::kNewFile); }

void MDIMain::NewFile(std::string_view step) {
  frmCommonDialog& d = RunSifDialog("New");
  QString typed = d.txtFilename->text();
  if (typed.isEmpty() || d.Cancelled) return;
  const QString selected = d.FileListBox1->FileName();
  if (Exists(d, selected, selected) && !OverwriteConfirmed(selected, kNewFileTitle)) return;
  ModGlobal& g = Globals();
  UIMainController& mc = *g.MainController;
  g.FindQuery.clear();
  g.Slides.assign(1, SlideRecord());
  mc.NumberOfRecords(0);
  if (!typed.contains('.')) typed += ".sif";
  if (mc.SetRegistryKeys(InFileList(d, typed)) && Report(mc.SaveSettings(step), errors_)) CaptionGallery();
  UnloadCommonDialog();
  RebuildGallery();
}

void MDIMain::CaptionGallery() {
  if (gallery_) gallery_->setWindowTitle("Gallery " + PathToQ(Globals().MainController->SlideInformationFilePath()));
}

// Points the settings at `path` and reads it; a file that does not load is told.
void MDIMain::OpenFile(const std::string& path) {
  UIMainController& mc = *Globals().MainController;
  Globals().FindQuery.clear();  // a query belongs to the file it was typed over
  if (!mc.SetRegistryKeys(path)) return;
  if (Report(mc.LoadSettings(), errors_))
    CaptionGallery();
  else
    MsgBox(kLoadErrorText, vbOKOnly, kLoadErrorTitle);
}

void MDIMain::mnuFileOpen_Click() {
  frmCommonDialog& d = RunSifDialog("Open");
  const QString selected = d.FileListBox1->FileName();
  if (selected.isEmpty() || d.Cancelled) return;
  OpenFile(InFileList(d, selected));
  UnloadCommonDialog();
  RebuildGallery();
}

void MDIMain::OpenFromOutside(const std::string& path) {
  std::error_code ec;
  if (!std::filesystem::is_regular_file(path, ec) || !std::ifstream(path, std::ios::binary)) {
    MsgBox(kLoadErrorText, vbOKOnly, kLoadErrorTitle);
    return;
  }
  OpenFile(path);
  RebuildGallery();
}

void MDIMain::TakeHandedFile(const std::string& path) {
  if (isMinimized()) showNormal();
  raise();
  activateWindow();
  if (path.empty()) return;
  if (QApplication::activeModalWidget()) {
    constexpr int kRetryMs = 250;
    QTimer::singleShot(kRetryMs, this, [this, path] { TakeHandedFile(path); });
    return;
  }
  OpenFromOutside(path);
}

namespace {

std::vector<std::string> SlideFilesOf(const QMimeData* data) { return SortDrop(DroppedFiles(data)).slideFiles; }

}  // namespace

void MDIMain::dragEnterEvent(QDragEnterEvent* e) {
  if (!SlideFilesOf(e->mimeData()).empty()) e->acceptProposedAction();
}

void MDIMain::dropEvent(QDropEvent* e) {
  const std::vector<std::string> files = SlideFilesOf(e->mimeData());
  if (files.empty()) return e->ignore();
  e->acceptProposedAction();
  OpenFromOutside(files.front());  // one file is open at a time
}

void MDIMain::mnuFileHist_Click(int index) {
  ModGlobal& g = Globals();
  OpenFile(g.MainController->SlideInformationPath() + g.History[static_cast<std::size_t>(index)]);
  RebuildGallery();
}

void MDIMain::mnuFileSaveAs_Click() {
  frmCommonDialog& d = RunSifDialog("Save As");
  const QString typed = d.txtFilename->text();
  if (typed.isEmpty() || d.Cancelled) return;
  const QString selected = d.FileListBox1->FileName();
  if (Exists(d, typed, selected) && !OverwriteConfirmed(selected, kSaveAsTitle)) return;
  UIMainController& mc = *Globals().MainController;
  if (mc.SetRegistryKeys(InFileList(d, typed)) && Report(mc.SaveSettings(steps::kSaveAs), errors_)) CaptionGallery();
  UnloadCommonDialog();
}

}  // namespace cb
