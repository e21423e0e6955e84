// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The gallery: the open collection as a five-by-three grid of framed
// pictures, scrolled sideways by one column. It never holds more than
// fifteen slide pictures; scrolling reloads the same fifteen cells.

#include <QPointer>
#include <QWidget>
#include <array>
#include <map>
#include <optional>

#include "base/RuntimeError.h"
#include "dialogs/SlideRequest.h"
#include "find/SlideQuery.h"
#include "gallery/GalleryLayout.h"
#include "gallery/UIGalleryController.h"
#include "qt/MenuBuilder.h"

class QAction;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QScrollBar;

namespace cb {

class StretchImage;
class frmLoading;
class frmModifySlide;
struct ScrollStep;

// The path of record `record`'s picture in the gallery directory.
QString GalleryPicturePath(std::int32_t record);

class frmGallery : public QWidget {
  Q_OBJECT
 public:
  frmGallery();
  ~frmGallery() override;

  // The creation steps: caption, then the load of the first page.
  void Create();
  // Each activation: history, Roof repair, status text, toolbar.
  void Form_Activate();

  // Opens or reuses the slide window on cell `index`; false for an empty cell.
  bool ShowSlide(std::int16_t index);
  // Opens or reuses the slide window on record `record` for the reports.
  bool ShowReportSlide(std::int32_t record);
  void ShowEditSlide(std::int32_t slideTemplate);
  // The slide popup at the mouse, for a right click in the slide window.
  void ShowSlidePopup();

  void mnuSlidesAdd_Click();
  // Opens the collection editor as soon as events run; its OK may rebuild
  // the gallery, so nothing of this window is touched once the editor is up.
  void mnuSlidesModify_Click();
  void mnuSlidesRemoved_Click();
  void mnuPopup1Delete_Click();
  void mnuPopupReset_Click();
  // Opens the find bar along the foot of the window and gives it the keyboard.
  void mnuEditFind_Click();
  // Closes it, clearing the query: every slide again, from the first page.
  void CloseFindBar();
  // A slide's details were edited: the next query reads the slides anew.
  void SlideEdited() { index_.reset(); }
  // How many slides the find bar's query shows; nothing while every slide is.
  std::optional<std::int32_t> FoundCount() const;
  // JPEGs dropped from a file manager become slides, in the order dropped,
  // as Add Slide makes them, with one save; other files are named back.
  void AddDroppedPictures(const std::vector<std::string>& paths);

  // Image1(1..15) the slide images, Image1(16..30) their frames.
  StretchImage* Image1(int index) const { return images_[static_cast<std::size_t>(index - 1)]; }
  QScrollBar* FlatScrollBar1;
  QWidget* Picture1;
  QWidget* FindBar;
  QLineEdit* txtFind;
  QLabel* lblFound;
  QPushButton* cmdFindClose;
  QAction* Item(MenuId id) const { return menus_.Item(id); }
  QMenu* Menu(MenuId id) const { return menus_.Menu(id); }
  const QList<QMenu*>& MenuBarMenus() const { return menus_.bar; }

  // Cascading keeps the size the layout is drawn for.
  QSize sizeHint() const override;

  bool WarnMissingSlides = true;
  int WarnAnswer = 0;
  std::int16_t PopupSlideIndex = -1;
  bool SkipClick = false;
  QString NewSlidePath;
  // The slide window the last click or report link showed, as the frame sets it.
  QPointer<QWidget> fSlide;

 signals:
  // A menu item whose command is the main window's (File, View, Window, Help).
  void CommandChosen(cb::MenuId item);
  void StatusTextChanged(const QString& text);
  // The end of each activation: the frame shows the history and sets its toolbar.
  void Activated();
  // The first page is loaded: the frame's Window menu is live.
  void PageLoaded();
  // Slides were added or removed and saved: the gallery is to be built afresh.
  void CollectionChanged();
  // A slide to show: the frame opens the slide window or brings the open one to it.
  void SlideWanted(const cb::SlideRequest& request);
  // The toolbar's Edit and the popup's Reset, for the open slide window.
  void EditSlideWanted(std::int32_t slideTemplate);
  void SlideResetWanted();
  // The collection editor, about to be shown modally: the frame rebuilds the
  // gallery on its changes, also after this gallery is gone.
  void CollectionEditorOpened(cb::frmModifySlide* editor);
  void Unloaded();

 protected:
  void resizeEvent(QResizeEvent* e) override;
  void closeEvent(QCloseEvent* e) override;
  // A drop with a slide file in it is left to the main window.
  void dragEnterEvent(QDragEnterEvent* e) override;
  void dropEvent(QDropEvent* e) override;
  bool eventFilter(QObject* watched, QEvent* e) override;

 private:
  void CreateMenus();
  void CreateFindBar();
  // "&Undo Edit Slide", or "&Undo" and off when there is nothing to undo; Redo likewise.
  void NameUndoItems();
  void Load();
  // Base, Roof and CurrentImageNumber as a load opens them.
  void SetOpeningWindow();
  // The first page's slides, the empty cells and the bar, as a load fills
  // them, into cleared cells; false when a failure ended it. `loading` shows
  // the progress, where there is one.
  bool FillFirstPage(frmLoading* loading);
  // Each keystroke in the find bar: the matches from the first page.
  void FindTextChanged(const QString& text);
  // The index of the slides, built when first asked for.
  const SlideIndex& Index();
  // Parses `text` (UTF-8) and shows its matches from the next fill on.
  void ApplyFind(const std::string& text);
  void ShowMatches();
  // The find bar's count, e.g. "37 of 1,204 slides".
  void ShowFoundCount();
  // N: how many slides the gallery shows, and the record at a position.
  std::int32_t Shown() const;
  std::int32_t RecordAt(std::int32_t position) const;
  // Removes the slide of cell `index` of the page on show, as its position
  // among the slides shown says.
  bool RemoveSlide(std::int32_t index);
  void LayOut();
  void SetStatusText();
  void ClearSlideImages();
  // Tool tip and accessible name of cell `cell` for slide `record`; a record
  // outside 1..N names the cell empty.
  void NameCell(int cell, std::int32_t record);
  void FlatScrollBar1_Change(int value);
  void RefillCells(const ScrollStep& step);
  void Image1_MouseUp(int index, Qt::MouseButton button, QPointF pos);
  void Image1_Click(int index);
  void ShowWhat(MenuId item);
  // Loads record `record`'s picture into cell `cell` as a load does: a missing
  // file goes through the missing-file protocol and is retried. False when
  // the load must end (any other failure).
  bool LoadCell(int cell, std::int32_t record);
  // The missing-file protocol for record `record`; false when the slide
  // could not be removed, which ends the retry.
  bool MissingSlide(std::int32_t record);
  // The picture at `path` for slide cell `cell`, remembered as the cell's.
  RtError Picture(int cell, const QString& path, QImage& out);
  // The slide cells' size now, in device pixels.
  QSize CellPixels() const;
  // Cells shown from a thumbnail that they have outgrown get the decode.
  void SharpenCells();
  // Decodes, on a worker, the columns a one-column step either way will show.
  void LookAround();

  std::array<StretchImage*, 30> images_{};
  std::array<QString, kGalleryCells> cellPaths_;  // the picture file each slide cell last took
  // Where the elements stand, in twips: the design's until the first resize.
  std::array<ElementRect, 30> placed_ = DesignLayout().elements;
  BuiltMenus menus_;
  UIGalleryController GalleryController;
  ErrorArray errors_;
  ShownSlides shown_;
  SlideQuery query_;
  std::optional<SlideIndex> index_;  // built at the first query; a removal outdates it
  bool findOpen_ = false;
  bool missingRemoved_ = false;  // the missing-file protocol has saved in this load or step
};

}  // namespace cb
