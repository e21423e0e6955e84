// SPDX-License-Identifier: GPL-3.0-or-later
// The claim pack, the backup and the restore: ask for their choices and file
// names, run them under the progress window, and tell how they ended.
#include <QLineEdit>

#include <algorithm>
#include <ctime>
#include <filesystem>

#include "dialogs/frmCommonDialog.h"
#include "frame/MDIMain.h"
#include "gallery/frmGallery.h"
#include "pack/Backup.h"
#include "pack/ClaimPack.h"
#include "pack/frmClaimPack.h"
#include "pack/frmJobProgress.h"
#include "qt/MsgBox.h"
#include "qt/Twips.h"
#include "state/modGlobal.h"

namespace cb {
namespace {

namespace fs = std::filesystem;

constexpr char kBackupTitle[] = "Back Up";
constexpr char kRestoreTitle[] = "Restore";
constexpr char kClaimType[] = "Claim Packs (*.pdf)";
constexpr char kClaimPattern[] = "*.pdf";
constexpr char kBackupType[] = "Backups (*.tar.gz)";
constexpr char kBackupPattern[] = "*.tar.gz";
// The question before a restore names this many files at most.
constexpr std::size_t kListedFiles = 12;

const UIMainController& Controller() { return *Globals().MainController; }

std::string OpenFilePath() { return Controller().SlideInformationFilePath(); }

std::string GalleryDir() { return Controller().AppPath() + Controller().GetGalleryDirectory(); }

// The name in the file dialog's box when it closed, in the folder on show;
// empty on cancel. The dialog opens in `folder` with `name` offered.
std::string ChosenPath(const char* title, const fs::path& folder, const std::string& name, const char* type,
                       const char* pattern) {
  frmCommonDialog& d =
      RunCommonDialog(title, PathToQ(folder.string()), pattern, {type, kAllFilesType}, PathToQ(name));
  const QString typed = d.txtFilename->text();
  if (typed.isEmpty() || d.Cancelled) return {};
  const std::string path = PathFromQ(d.FileListBox1->Path() + "/" + typed);
  UnloadCommonDialog();
  return path;
}

std::string ChosenSavePath(const char* title, const fs::path& suggested, const char* type, const char* pattern) {
  return ChosenPath(title, suggested.parent_path(), suggested.filename().string(), type, pattern);
}

bool MayWrite(const std::string& path, const char* title) {
  std::error_code ec;
  return !fs::exists(path, ec) || MDIMain::OverwriteConfirmed(PathToQ(fs::path(path).filename().string()), title);
}

// Runs `job` under the progress window; false when it failed or was
// cancelled, a failure told in a message.
bool RunJob(QWidget* parent, const char* title, const frmJobProgress::Job& job) {
  frmJobProgress progress(title, parent);
  const Status outcome = progress.Run(job);
  if (outcome.ok()) return true;
  if (!progress.Cancelled()) MsgBox(Utf8ToQ(std::string(outcome.description())), vbOKOnly | vbExclamation, title);
  return false;
}

// One line each, the first kListedFiles of them.
std::string Lines(const std::vector<std::string>& items) {
  std::string text;
  for (std::size_t i = 0; i < std::min(items.size(), kListedFiles); ++i) text += "\n" + items[i];
  if (items.size() > kListedFiles) text += "\n... and " + std::to_string(items.size() - kListedFiles) + " more";
  return text;
}

void TellNotes(const std::vector<std::string>& notes, const std::string& done, const char* title) {
  if (!notes.empty()) MsgBox(Utf8ToQ(done + "\n" + Lines(notes)), vbOKOnly | vbInformation, title);
}

// The newest backup in `folder`, so that Enter restores it.
std::string NewestBackup(const fs::path& folder) {
  std::string newest;
  fs::file_time_type when{};
  std::error_code ec;
  for (const auto& e : fs::directory_iterator(folder, ec)) {
    const std::string name = e.path().filename().string();
    if (!name.ends_with(".tar.gz") || !e.is_regular_file(ec)) continue;
    if (const auto t = e.last_write_time(ec); !ec && (newest.empty() || t > when)) {
      newest = name;
      when = t;
    }
  }
  return newest;
}

bool Replaces(const pack::RestorePlan& plan, const std::string& file) {
  const fs::path target = fs::path(file).lexically_normal();
  return std::ranges::any_of(plan.existing, [&](const std::string& name) {
    return (fs::path(plan.appDir) / name).lexically_normal() == target;
  });
}

bool ReplaceConfirmed(const pack::RestorePlan& plan) {
  const std::string text =
      "These files in " + plan.appDir + " will be replaced:\n" + Lines(plan.existing) + "\n\nReplace them?";
  return MsgBox(Utf8ToQ(text), vbYesNo | vbQuestion, kRestoreTitle) == vbYes;
}

}  // namespace

void MDIMain::mnuFileClaim_Click() {
  frmClaimPack choices(this, gallery_ ? gallery_->FoundCount() : std::nullopt);
  if (choices.exec() != QDialog::Accepted) return;
  pack::ClaimRequest request{OpenFilePath(), GalleryDir(), choices.ChosenKind(), choices.ChosenPage(), {}};
  if (choices.OnlyFound()) request.where = Globals().FindQuery;
  request.pdfPath = ChosenSavePath("Save Claim Pack", pack::DefaultClaimPath(request.sifPath), kClaimType,
                                   kClaimPattern);
  if (request.pdfPath.empty() || !MayWrite(request.pdfPath, kClaimPackTitle)) return;
  std::vector<std::string> notes;
  const auto claim = [&](const pack::JobProgress& p) { return pack::MakeClaimPack(request, p, notes); };
  if (!RunJob(this, kClaimPackTitle, claim)) return;
  const std::string done = "The claim pack is written to " + request.pdfPath + ".";
  SetStatusText(Utf8ToQ(done));
  TellNotes(notes, done, kClaimPackTitle);
}

void MDIMain::mnuFileBackup_Click() {
  pack::BackupRequest request{OpenFilePath(), GalleryDir(), {}};
  request.archivePath = ChosenSavePath(kBackupTitle, pack::DefaultBackupPath(request.sifPath, std::time(nullptr)),
                                       kBackupType, kBackupPattern);
  if (request.archivePath.empty() || !MayWrite(request.archivePath, kBackupTitle)) return;
  pack::BackupResult result;
  if (!RunJob(this, kBackupTitle, [&](const pack::JobProgress& p) { return pack::MakeBackup(request, p, result); }))
    return;
  const std::string done =
      std::to_string(result.files) + " files are backed up into " + request.archivePath + ".";
  SetStatusText(Utf8ToQ(done));
  TellNotes(result.notes, done, kBackupTitle);
}

void MDIMain::mnuFileRestore_Click() {
  fs::path folder = fs::path(OpenFilePath()).parent_path();
  if (folder.empty()) folder = Controller().AppPath() + Controller().GetSIFDirectory();
  const std::string archive = ChosenPath(kRestoreTitle, folder, NewestBackup(folder), kBackupType, kBackupPattern);
  if (archive.empty()) return;
  pack::RestorePlan plan;
  const std::string appDir = Controller().AppPath();
  if (!RunJob(this, kRestoreTitle,
              [&](const pack::JobProgress& p) { return pack::PlanRestore(archive, appDir, p, plan); }))
    return;
  if (!plan.existing.empty() && !ReplaceConfirmed(plan)) return;
  if (!RunJob(this, kRestoreTitle, [&](const pack::JobProgress& p) { return pack::CarryOutRestore(plan, p); }))
    return;
  SetStatusText(Utf8ToQ(std::to_string(plan.entries.size()) + " files are restored under " + plan.appDir + "."));
  if (plan.existing.empty()) return;
  // The gallery shows what is on disk now.
  if (Replaces(plan, OpenFilePath())) OpenFile(OpenFilePath());
  RebuildGallery();
}

}  // namespace cb
