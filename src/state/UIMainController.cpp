// SPDX-License-Identifier: GPL-3.0-or-later
#include "state/UIMainController.h"

#include <array>
#include <ctime>
#include <string_view>
#include <utility>

#include "state/modGlobal.h"
#include "storage/DataAccess.h"
#include "storage/HistorySteps.h"

namespace cb {
namespace {

constexpr std::string_view kStartupSection = "Startup";
constexpr std::string_view kDefDirKey = "DefDir";
constexpr std::string_view kAppDirSection = "AppDir";
constexpr std::string_view kAppDirKey = "AppDir";

struct DirectoryTail {
  std::string_view tail;  // after a directory that does not end in "/"
  std::size_t keepAtRoot; // characters kept from the right after one that does
};

enum Tail { kFiles, kGallery, kBackground, kReports, kRoot };

constexpr std::array<DirectoryTail, 5> kTails{{
    {"/Files/", 8},
    {"/Gallery/", 8},
    {"/Background/", 9},
    {kReportsFolder, 8},
    {"/", 0},
}};

constexpr std::string_view kNoHistory = "No changes are kept for this file.";

std::string TailFor(const std::string& appPath, Tail which) {
  const auto& t = kTails[which];
  if (appPath.empty() || appPath.back() != '/') return std::string(t.tail);
  const auto keep = std::min(t.keepAtRoot, t.tail.size());
  return std::string(t.tail.substr(t.tail.size() - keep));
}

}  // namespace

UIMainController::UIMainController(std::string appPath, SettingsStore& settings, ModGlobal& globals)
    : appPath_(std::move(appPath)), settings_(settings), globals_(globals) {
  globalController_ = std::make_unique<UIGlobalController>();
  SlideInformationFilePath(GetRegistryKeys());
  FirstRun = SlideInformationFilePath().empty();
  formHeight_ = 5310;
  formWidth_ = 6720;
}

void UIMainController::SlideInformationFilePath(std::string v) {
  slideInformationFilePath_ = std::move(v);
  const auto& p = slideInformationFilePath_;
  if (lockOpenFile_) openFileLock_.TryAcquire(p);
  if (keepHistory_) {
    history_ = p.empty() ? nullptr : std::make_unique<SlideHistory>(Env::Default(), p);
    pictures_ = p.empty() ? nullptr : std::make_unique<KeptPictures>(Env::Default(), p);
    OpenHistory();
  }
  if (p.empty()) return;
  const auto slash = p.rfind('/');
  if (slash == std::string::npos) {
    // No directory part: the whole text becomes the directory and the file
    // name cannot be cut out, so it keeps what it held.
    slideInformationPath_ = p;
    return;
  }
  slideInformationPath_ = p.substr(0, slash + 1);
  slideInformationFile_ = p.substr(slash + 1);
}

void UIMainController::NumberOfRecords(std::int32_t v) {
  numberOfRecords_ = v;
  if (v == 0) currentlyActiveBase_ = 0;
}

bool UIMainController::SetRegistryKeys(const std::string& path) {
  if (path.empty()) return false;
  // A failing write is passed over; the path still becomes the open file.
  settings_.Put(std::string(kStartupSection), std::string(kDefDirKey), path);
  settings_.Put(std::string(kAppDirSection), std::string(kAppDirKey), appPath_);
  SlideInformationFilePath(path);
  return true;
}

std::string UIMainController::GetRegistryKeys() const {
  return settings_.Get(std::string(kStartupSection), std::string(kDefDirKey), "");
}

std::string UIMainController::GetSIFDirectory() const { return TailFor(appPath_, kFiles); }
std::string UIMainController::GetGalleryDirectory() const { return TailFor(appPath_, kGallery); }
std::string UIMainController::GetGraphicsDirectory() const { return TailFor(appPath_, kBackground); }
std::string UIMainController::GetReportsDirectory() const { return TailFor(appPath_, kReports); }
std::string UIMainController::GetRootDirectory() const { return TailFor(appPath_, kRoot); }

std::int32_t UIMainController::GetCategories(KeyList& list) const { return cb::GetCategories(globals_.Slides, list); }
std::int32_t UIMainController::GetLocations(KeyList& list) const { return cb::GetLocations(globals_.Slides, list); }

SifSettings UIMainController::HeaderSettings() const {
  return {numberOfRecords_, backgroundImage_, wallpaper_, slideTemplate_, reportFont_};
}

SifPaths UIMainController::LoadPaths() const {
  return {slideInformationFilePath_, slideInformationFile_, appPath_ + GetSIFDirectory() + slideInformationFile_};
}

Status UIMainController::LoadSettings() {
  SifSettings s = HeaderSettings();
  const Status status = DataAccess().LoadSettings(LoadPaths(), s, globals_.Slides);
  if (s.NumberOfRecords != numberOfRecords_ || status.ok()) NumberOfRecords(s.NumberOfRecords);
  backgroundImage_ = std::move(s.BackgroundImage);
  wallpaper_ = std::move(s.Wallpaper);
  slideTemplate_ = s.SlideTemplate;
  reportFont_ = std::move(s.ReportFont);
  if (status.ok()) globals_.SlidesChanged = false;
  if (status.ok()) OpenHistory();
  if (status.ok() && history_) saved_ = globals_.Slides;
  return status;
}

void UIMainController::OpenHistory() {
  if (history_ && history_->Open() == SlideHistory::Fit::SetAside) historySetAside_ = true;
}

Status UIMainController::SaveSettings(std::string_view step, bool amend) {
  const std::int32_t done = history_ ? history_->Done() : 0;
  const Status status = history_
                            ? DataAccess().SaveSettings(slideInformationFilePath_, HeaderSettings(), globals_.Slides,
                                                        *history_, step.empty() ? steps::kChange : step, amend)
                            : DataAccess().SaveSettings(slideInformationFilePath_, HeaderSettings(), globals_.Slides);
  if (status.ok()) globals_.SlidesChanged = false;
  if (status.ok()) Binned(step, StepWay::Made);
  // Pictures copied over belong to the step this save made, if it made one.
  if (pictures_) {
    const std::int32_t made = status.ok() && history_->Done() != done ? history_->Done() : 0;
    static_cast<void>(history_->AddBytes(made, pictures_->Attach(made)));
  }
  return status;
}

void UIMainController::Binned(std::string_view step, StepWay way) {
  if (!history_) return;
  BinStep(Env::Default(), slideInformationFilePath_, step, way, saved_, globals_.Slides,
          static_cast<std::int64_t>(std::time(nullptr)));
  saved_ = globals_.Slides;
}

std::vector<RemovedSlide> UIMainController::RemovedSlides() const {
  if (!history_) return {};
  return RemovedBin(Env::Default(), slideInformationFilePath_).Entries();
}

Status UIMainController::RestoreRemoved(const std::vector<std::size_t>& chosen) {
  if (!history_) return Status::Described(kNoHistory);
  RemovedBin bin(Env::Default(), slideInformationFilePath_);
  const SlideArray before = globals_.Slides;
  PutBack(globals_.Slides, bin.At(chosen));
  NumberOfRecords(static_cast<std::int32_t>(globals_.Slides.size()) - 1);
  if (Status s = SaveSettings(steps::kRestoreRemoved); !s.ok()) {
    globals_.Slides = before;
    NumberOfRecords(static_cast<std::int32_t>(before.size()) - 1);
    return s;
  }
  return ForgetRemoved(chosen);
}

Status UIMainController::ForgetRemoved(const std::vector<std::size_t>& chosen) {
  if (!history_) return Status::Described(kNoHistory);
  if (const RtError e = RemovedBin(Env::Default(), slideInformationFilePath_).Forget(chosen); e != RtError::None)
    return {e, "RemovedBin"};
  return {};
}

void UIMainController::KeepHistory() {
  keepHistory_ = true;
  SlideInformationFilePath(slideInformationFilePath_);
}

std::optional<std::string> UIMainController::UndoName() const { return history_ ? history_->UndoName() : std::nullopt; }

std::optional<std::string> UIMainController::RedoName() const { return history_ ? history_->RedoName() : std::nullopt; }

Status UIMainController::Undo() { return StepHistory(true); }

Status UIMainController::Redo() { return StepHistory(false); }

Status UIMainController::StepHistory(bool back) {
  if (!history_) return Status::Described(kNoHistory);
  const std::string step = (back ? history_->UndoName() : history_->RedoName()).value_or("");
  const std::int32_t number = back ? history_->Done() : history_->Done() + 1;
  if (Status s = DataAccess().StepHistory(slideInformationFilePath_, *history_, back); !s.ok()) return s;
  pictures_->PutBack(number, back, appPath_ + GetGalleryDirectory());
  SlideArray before = saved_;
  const Status loaded = LoadSettings();
  if (!loaded.ok()) return loaded;
  saved_.swap(before);
  Binned(step, back ? StepWay::Undone : StepWay::Redone);
  return loaded;
}

bool UIMainController::TakeHistoryNotice() { return std::exchange(historySetAside_, false); }

Status UIMainController::PutPassword(const std::string& password) { return DataAccess().PutPassword(password); }

Status UIMainController::GetPassword(std::string& password) { return DataAccess().GetPassword(password); }

Status UIMainController::GetFileHistoryList(FileHistory& history) {
  return DataAccess().GetFileHistoryList(appPath_, history);
}

Status UIMainController::PutFileHistoryList(const FileHistory& history) {
  return DataAccess().PutFileHistoryList(appPath_, history);
}

}  // namespace cb
