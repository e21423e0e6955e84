#include "app/UIMainController.h"

#include <array>
#include <string_view>

#include "app/modGlobal.h"
#include "storage/DataAccess.h"

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
    {"/Reports/", 8},
    {"/", 0},
}};

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

bool UIMainController::LoadSettings(ErrorArray& errors) {
  const bool ok = DataAccess(*this, globals_.Slides).LoadSettings(errors);
  if (ok) globals_.SlidesChanged = false;
  return ok;
}

bool UIMainController::SaveSettings(ErrorArray& errors) {
  const bool ok = DataAccess(*this, globals_.Slides).SaveSettings(errors);
  if (ok) globals_.SlidesChanged = false;
  return ok;
}

bool UIMainController::PutPassword(const std::string& password) {
  return DataAccess(*this, globals_.Slides).PutPassword(password, globals_.ErrorInfo);
}

bool UIMainController::GetPassword(std::string& password) {
  return DataAccess(*this, globals_.Slides).GetPassword(password, globals_.ErrorInfo);
}

bool UIMainController::GetFileHistoryList(std::array<std::string, 5>& history, ErrorArray& errors) {
  return DataAccess(*this, globals_.Slides).GetFileHistoryList(history, errors);
}

bool UIMainController::PutFileHistoryList(const std::array<std::string, 5>& history, ErrorArray& errors) {
  return DataAccess(*this, globals_.Slides).PutFileHistoryList(history, errors);
}

}  // namespace cb
