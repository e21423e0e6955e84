// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The application's state: the open Slide Information File, the position of
// the gallery, the fixed sizes of its cells and the directory rules of the
// installation. It forwards loads and saves to DataAccess.

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "model/Categories.h"
#include "state/SettingsStore.h"
#include "state/UIGlobalController.h"
#include "storage/DataAccess.h"
#include "storage/KeptPictures.h"
#include "storage/RemovedSlides.h"
#include "storage/SlideFileLock.h"
#include "storage/SlideHistory.h"

namespace cb {

struct ModGlobal;

class UIMainController {
 public:
  // Reads the default file from `settings` and decides FirstRun.
  // `appPath` is the application directory as the platform reports it: no
  // trailing "/" unless it is the root. `globals` must outlive the controller.
  UIMainController(std::string appPath, SettingsStore& settings, ModGlobal& globals);

  bool FirstRun = false;

  const std::string& AppPath() const { return appPath_; }
  // The settings store, for windows that make a controller of their own.
  SettingsStore& Settings() const { return settings_; }

  const std::string& SlideInformationPath() const { return slideInformationPath_; }
  void SlideInformationPath(std::string v) { slideInformationPath_ = std::move(v); }
  const std::string& SlideInformationFilePath() const { return slideInformationFilePath_; }
  // Stores the path and, unless it is empty, splits it at its last "/".
  // With LockOpenFile on, the file's lock moves to it.
  void SlideInformationFilePath(std::string v);
  // The program (not a test, nor a window's own controller) holds the lock
  // of the file it has open, so that chattelbook-sif leaves it alone.
  void LockOpenFile() {
    lockOpenFile_ = true;
    openFileLock_.TryAcquire(slideInformationFilePath_);
  }
  // The program (again, not a test) keeps an undo history beside the file it
  // has open, which each save adds a step to.
  void KeepHistory();

  const std::string& Wallpaper() const { return wallpaper_; }
  void Wallpaper(std::string v) { wallpaper_ = std::move(v); }
  const std::string& ReportFont() const { return reportFont_; }
  void ReportFont(std::string v) { reportFont_ = std::move(v); }
  const std::string& SlideInformationFile() const { return slideInformationFile_; }
  void SlideInformationFile(std::string v) { slideInformationFile_ = std::move(v); }

  std::int32_t CurrentlyActiveRoof() const { return currentlyActiveRoof_; }
  void CurrentlyActiveRoof(std::int32_t v) { currentlyActiveRoof_ = v; }
  std::int32_t CurrentlyActiveBase() const { return currentlyActiveBase_; }
  void CurrentlyActiveBase(std::int32_t v) { currentlyActiveBase_ = v; }
  std::int32_t CurrentImageNumber() const { return currentImageNumber_; }
  void CurrentImageNumber(std::int32_t v) { currentImageNumber_ = v; }
  std::int32_t NumberOfRecords() const { return numberOfRecords_; }
  // An empty collection also has no base.
  void NumberOfRecords(std::int32_t v);

  std::int16_t FormWidth() const { return formWidth_; }
  std::int16_t FormHeight() const { return formHeight_; }
  std::int16_t ImageTop() const { return imageTop_; }
  std::int16_t ImageLeft() const { return imageLeft_; }
  std::int16_t ImageHeight() const { return imageHeight_; }
  std::int16_t ImageWidth() const { return imageWidth_; }
  // Cell sizes of the design grid in twips: Round(4695 / 3) and Round(6615 / 5).
  std::int16_t bImageHeight() const { return 1565; }
  std::int16_t bImageWidth() const { return 1323; }

  const std::string& BackgroundImage() const { return backgroundImage_; }
  void BackgroundImage(std::string v) { backgroundImage_ = std::move(v); }
  std::int16_t NumberOfColumns() const { return numberOfColumns_; }
  void NumberOfColumns(std::int16_t v) { numberOfColumns_ = v; }
  std::int16_t NumberOfRows() const { return numberOfRows_; }
  void NumberOfRows(std::int16_t v) { numberOfRows_ = v; }
  std::int32_t SlideTemplate() const { return slideTemplate_; }
  void SlideTemplate(std::int32_t v) { slideTemplate_ = v; }

  // Makes `path` the default file of the next start and the open file.
  // False, writing nothing, when `path` is empty.
  bool SetRegistryKeys(const std::string& path);
  // The default file of the settings, or the empty string.
  std::string GetRegistryKeys() const;

  // Tails to append to AppPath(); at the root some lose their first characters.
  std::string GetSIFDirectory() const;
  std::string GetGalleryDirectory() const;
  std::string GetGraphicsDirectory() const;
  std::string GetReportsDirectory() const;
  std::string GetRootDirectory() const;

  // The distinct categories and locations of the open collection, in order
  // of first appearance, from index 1; the count added.
  std::int32_t GetCategories(KeyList& list) const;
  std::int32_t GetLocations(KeyList& list) const;

  // The header's settings and the paths a load of the open file uses.
  SifSettings HeaderSettings() const;
  SifPaths LoadPaths() const;

  // Read or write the open file through a fresh DataAccess; a success clears
  // SlidesChanged. The window that asked turns a failure into its strings.
  Status LoadSettings();
  // With a history kept, the save is its step `step` ("Edit Slide", ...);
  // `amend` folds it into the last step.
  Status SaveSettings(std::string_view step = {}, bool amend = false);

  // The names of the steps Undo and Redo would take back or make again.
  std::optional<std::string> UndoName() const;
  std::optional<std::string> RedoName() const;
  // Puts the file back as it was before the last step done, or after the
  // next one undone, then loads it.
  Status Undo();
  Status Redo();
  // Whether the open file keeps a history, and with it a bin of removed slides.
  bool KeepsHistory() const { return history_ != nullptr; }
  // Before a picture of the gallery folder is copied over from `comingFrom`:
  // with a history, both are kept with the next step, for undo and redo.
  void KeepOverwrittenPicture(const std::string& galleryPath, const std::string& comingFrom) {
    if (pictures_) pictures_->Keep(galleryPath, comingFrom);
  }
  // The bin of the open file, newest first; empty without a history.
  std::vector<RemovedSlide> RemovedSlides() const;
  // Puts the bin's entries at `chosen` back where they stood, as the step
  // "Restore Removed Slides", and takes them out of the bin.
  Status RestoreRemoved(const std::vector<std::size_t>& chosen);
  // Takes the entries at `chosen` out of the bin.
  Status ForgetRemoved(const std::vector<std::size_t>& chosen);

  // True once after a load found the history no longer fitting the file:
  // it was changed elsewhere and the history was set aside.
  bool TakeHistoryNotice();

  // The password and the file history, through a fresh DataAccess.
  Status PutPassword(const std::string& password);
  Status GetPassword(std::string& password);
  Status GetFileHistoryList(FileHistory& history);
  Status PutFileHistoryList(const FileHistory& history);

  // The ".jpg" files of `path`; see UIGlobalController::LoadDirectory.
  std::int32_t LoadDirectory(const std::string& path, std::vector<std::string>& files, bool addPath) const {
    return globalController_->LoadDirectory(path, files, addPath);
  }

  UIGlobalController& GlobalController() { return *globalController_; }

 private:
  Status StepHistory(bool back);
  // Tells the bin how step `step` went from the last load or save to the
  // collection now, and remembers the collection as it is.
  void Binned(std::string_view step, StepWay way);
  // Reads the history and checks it against the file; one set aside is told once.
  void OpenHistory();

  bool lockOpenFile_ = false;
  SlideFileLock openFileLock_;
  bool keepHistory_ = false;
  std::unique_ptr<SlideHistory> history_;  // of the open file, with keepHistory_
  bool historySetAside_ = false;
  SlideArray saved_;  // the collection as last loaded or saved, with history_
  std::unique_ptr<KeptPictures> pictures_;  // with history_
  std::string appPath_;
  SettingsStore& settings_;
  ModGlobal& globals_;

  std::unique_ptr<UIGlobalController> globalController_;
  std::int16_t numberOfRows_ = 0;
  std::int16_t numberOfColumns_ = 0;
  std::int16_t imageWidth_ = 0;
  std::int16_t imageHeight_ = 0;
  std::int16_t imageLeft_ = 0;
  std::int16_t imageTop_ = 0;
  std::int16_t formHeight_ = 0;
  std::int16_t formWidth_ = 0;
  std::int32_t numberOfRecords_ = 0;
  std::int32_t currentImageNumber_ = 0;
  std::int32_t currentlyActiveBase_ = 0;
  std::int32_t currentlyActiveRoof_ = 0;
  std::string slideInformationFile_;
  std::string wallpaper_;
  std::string reportFont_;
  std::string slideInformationFilePath_;
  std::string slideInformationPath_;
  std::int32_t slideTemplate_ = 0;
  std::string backgroundImage_;
};

}  // namespace cb
