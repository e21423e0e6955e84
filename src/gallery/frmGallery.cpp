// SPDX-License-Identifier: GPL-3.0-or-later
#include "gallery/frmGallery.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <cmath>

#include "dialogs/HelpRoutine.h"
#include "dialogs/dlgWhat.h"
#include "dialogs/frmCommonDialog.h"
#include "gallery/DropRules.h"
#include "gallery/GalleryLayout.h"
#include "gallery/GalleryMenuTable.h"
#include "gallery/ScrollRules.h"
#include "gallery/dlgRemoveSlide.h"
#include "gallery/frmModifySlide.h"
#include "gallery/frmRemovedSlides.h"
#include "model/SlideNames.h"
#include "qt/DrawingLock.h"
#include "qt/DroppedFiles.h"
#include "qt/MsgBox.h"
#include "qt/OpenForms.h"
#include "qt/StretchImage.h"
#include "qt/Twips.h"
#include "state/MDIMainRules.h"
#include "state/modGlobal.h"
#include "storage/HistorySteps.h"

namespace cb {
namespace {

constexpr char kCannotSave[] = "Could not save sif file.";
constexpr char kAddSlideTitle[] = "Add Slide";

// Items whose commands are the main window's, of the same id.
constexpr MenuId kForwards[] = {
    MenuId::FileNew,        MenuId::FileOpen,       MenuId::FileSaveAs,         MenuId::FileGallery,
    MenuId::FilePassword,   MenuId::FileExit,       MenuId::FileWallpaper,      MenuId::ViewToolbar,
    MenuId::ViewStatusbar,  MenuId::WindowVertical, MenuId::WindowHorizontal,   MenuId::WindowCascade,
    MenuId::HelpContents,   MenuId::HelpAbout,      MenuId::Popup2SetWallpaper, MenuId::Popup4SetBackground,
    MenuId::FileHist1,      MenuId::FileHist2,      MenuId::FileHist3,          MenuId::FileHist4,
    MenuId::SlidesTemplate, MenuId::FileClaim,      MenuId::FileBackup,         MenuId::FileRestore,
    MenuId::EditUndo,       MenuId::EditRedo,
};

}  // namespace

frmGallery::frmGallery() {
  setObjectName("frmGallery");
  setWindowTitle("Gallery");
  setAttribute(Qt::WA_DeleteOnClose);
  Picture1 = new QWidget(this);
  Picture1->setObjectName("Picture1");
  for (int i = 1; i <= kGalleryElements; ++i) {
    auto* image = new StretchImage(Picture1);
    image->setObjectName(QString("Image1(%1)").arg(i));
    image->setAccessibleName(i > kGalleryCells ? QString("Frame %1").arg(SlideImageOf(i)) : kEmptyCellToolTip.data());
    images_[static_cast<std::size_t>(i - 1)] = image;
    connect(image, &StretchImage::MouseUp, this, [this, i](Qt::MouseButton b, QPointF p) { Image1_MouseUp(i, b, p); });
    connect(image, &StretchImage::Click, this, [this, i] { Image1_Click(i); });
  }
  // Frames lie behind their slide pictures.
  for (int i = 1; i <= kGalleryCells; ++i) Image1(i)->raise();
  FlatScrollBar1 = new QScrollBar(Qt::Horizontal, this);
  FlatScrollBar1->setObjectName("FlatScrollBar1");
  FlatScrollBar1->setTracking(false);
  FlatScrollBar1->setAccessibleName("Slides");
  FlatScrollBar1->setContextMenuPolicy(Qt::NoContextMenu);  // the bar has no menu of its own
  connect(FlatScrollBar1, &QScrollBar::valueChanged, this, &frmGallery::FlatScrollBar1_Change);
  CreateMenus();
  CreateFindBar();
  setAcceptDrops(true);
  setFocusPolicy(Qt::StrongFocus);  // so the window has the keyboard, and F1, when it is active
  InstallF1(*this);
  resize(TwipsToPixelsX(kOpeningClientWidth), TwipsToPixelsY(kOpeningClientHeight));
  LayOut();
}

frmGallery::~frmGallery() = default;

QSize frmGallery::sizeHint() const {
  return {TwipsToPixelsX(kOpeningClientWidth), TwipsToPixelsY(kOpeningClientHeight)};
}

void frmGallery::CreateMenus() {
  menus_ = BuildMenus(this, GalleryMenu());
  for (QMenu* m : menus_.bar) InstallMenuF1(*m);
  for (MenuId id : kForwards) {
    QAction* a = Item(id);
    connect(a, &QAction::triggered, this, [this, a, id] {
      // The main window's handler keeps the check marks of both menus.
      if (a->isCheckable()) a->setChecked(!a->isChecked());
      emit CommandChosen(id);
    });
  }
  connect(Item(MenuId::SlidesAdd), &QAction::triggered, this, &frmGallery::mnuSlidesAdd_Click);
  connect(Item(MenuId::SlidesModify), &QAction::triggered, this, &frmGallery::mnuSlidesModify_Click);
  connect(Item(MenuId::SlidesRemoved), &QAction::triggered, this, &frmGallery::mnuSlidesRemoved_Click);
  // The bin lives in the history's folder: no history, no bin.
  const auto binKept = [this] { Item(MenuId::SlidesRemoved)->setEnabled(Globals().MainController->KeepsHistory()); };
  binKept();
  connect(Menu(MenuId::Slides), &QMenu::aboutToShow, this, binKept);
  connect(Item(MenuId::Popup1Delete), &QAction::triggered, this, &frmGallery::mnuPopup1Delete_Click);
  connect(Item(MenuId::Popup3Reset), &QAction::triggered, this, &frmGallery::mnuPopupReset_Click);
  connect(Item(MenuId::EditFind), &QAction::triggered, this, &frmGallery::mnuEditFind_Click);
  // The items name their steps while the menu is open; outside it their keys
  // stay live, and the handlers find out whether there is a step to take.
  connect(Menu(MenuId::Edit), &QMenu::aboutToShow, this, &frmGallery::NameUndoItems);
  connect(Menu(MenuId::Edit), &QMenu::aboutToHide, this, [this] {
    for (MenuId id : {MenuId::EditUndo, MenuId::EditRedo}) Item(id)->setEnabled(true);
  });
  for (MenuId what : {MenuId::Popup1What, MenuId::Popup3What, MenuId::Popup4What})
    connect(Item(what), &QAction::triggered, this, [this, what] { ShowWhat(what); });
  for (MenuId help : {MenuId::Popup1Help, MenuId::Popup3Help, MenuId::Popup4Help})
    connect(Item(help), &QAction::triggered, this, [this] { ShowHelp(*this); });
}

void frmGallery::NameUndoItems() {
  const UIMainController& mc = *Globals().MainController;
  const std::pair<MenuId, std::optional<std::string>> steps[] = {{MenuId::EditUndo, mc.UndoName()},
                                                                 {MenuId::EditRedo, mc.RedoName()}};
  for (const auto& [id, step] : steps) {
    Item(id)->setText(Utf8ToQ(StepCaption(id, step)));
    Item(id)->setEnabled(step.has_value());
  }
}

void frmGallery::CreateFindBar() {
  FindBar = new QWidget(this);
  FindBar->setObjectName("FindBar");
  FindBar->setAccessibleName("Find bar");
  FindBar->hide();
  txtFind = new QLineEdit(FindBar);
  txtFind->setObjectName("txtFind");
  txtFind->setAccessibleName("Find slides");
  txtFind->setWhatsThis(
      "Type words to show only the slides that hold all of them, in any field.  A \"quoted phrase\" is found "
      "as typed, -word leaves out the slides with it, location:garage looks in one field, and value>500 or "
      "value:100..500 compare the value.  Press F1 for more.");
  lblFound = new QLabel(FindBar);
  lblFound->setObjectName("lblFound");
  lblFound->setAccessibleName("Slides found");
  lblFound->setWhatsThis("How many slides the words in the find box show, out of all the slides of the file.");
  cmdFindClose = new QPushButton("Close", FindBar);
  cmdFindClose->setObjectName("cmdFindClose");
  cmdFindClose->setAccessibleName("Close find bar");
  cmdFindClose->setWhatsThis("Closes the find bar and shows every slide again, from the first page.");
  // The box and the count share the width, so a long count never squeezes
  // the box; what the count cannot show stays in its tool tip.
  lblFound->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  auto* row = new QHBoxLayout(FindBar);
  row->setContentsMargins(4, 2, 4, 2);
  row->addWidget(txtFind, 1);
  row->addWidget(lblFound, 1);
  row->addWidget(cmdFindClose);
  connect(txtFind, &QLineEdit::textChanged, this, &frmGallery::FindTextChanged);
  connect(cmdFindClose, &QPushButton::clicked, this, &frmGallery::CloseFindBar);
  txtFind->installEventFilter(this);  // Esc in the box closes the bar
}

bool frmGallery::eventFilter(QObject* watched, QEvent* e) {
  if (watched == txtFind && e->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(e)->key() == Qt::Key_Escape) {
    CloseFindBar();
    return true;
  }
  return QWidget::eventFilter(watched, e);
}

void frmGallery::mnuEditFind_Click() {
  Index();  // built before the first keystroke, which then only runs its query
  if (!findOpen_) {
    findOpen_ = true;
    FindBar->show();
    LayOut();
  }
  txtFind->setFocus();
  txtFind->selectAll();
}

void frmGallery::CloseFindBar() {
  if (!findOpen_) return;
  findOpen_ = false;
  FindBar->hide();
  const QSignalBlocker quiet(txtFind);
  txtFind->clear();
  ApplyFind({});
  LayOut();
  ShowMatches();
  setFocus();
}

const SlideIndex& frmGallery::Index() {
  if (!index_) index_.emplace(Globals().Slides);
  return *index_;
}

std::optional<std::int32_t> frmGallery::FoundCount() const {
  if (!shown_.Filtered()) return std::nullopt;
  return Shown();
}

void frmGallery::ShowWhat(MenuId item) {
  for (const auto& note : kGalleryWhatNotes)
    if (note.item == item) cb::ShowWhat(note.height, note.width, Utf8ToQ(note.text));
}

void frmGallery::resizeEvent(QResizeEvent*) {
  if (window()->isMinimized()) return;
  LayOut();
}

void frmGallery::LayOut() {
  const DrawingLock lock(this);
  // The grid keeps to the area above the find bar, laid out as ever.
  const int find = findOpen_ ? FindBar->sizeHint().height() : 0;
  const int gridHeight = height() - find;
  FindBar->setGeometry(0, gridHeight, width(), find);
  Picture1->setGeometry(0, 0, width(), gridHeight);
  const int bar = TwipsToPixelsY(kScrollBarHeight);
  FlatScrollBar1->setGeometry(0, gridHeight - bar, width(), bar);
  ApplyWrites(LayOutGallery(PixelsToTwipsX(width()), PixelsToTwipsY(gridHeight), kScrollBarHeight), placed_);
  for (int i = 1; i <= kGalleryElements; ++i) {
    const ElementRect& r = placed_[static_cast<std::size_t>(i - 1)];
    Image1(i)->setGeometry(TwipsRect(r));
  }
  SharpenCells();
}

void frmGallery::Image1_MouseUp(int index, Qt::MouseButton button, QPointF pos) {
  ModGlobal& g = Globals();
  UIMainController& mc = *g.MainController;
  if (button == Qt::RightButton) {
    const auto x = GalleryController.GetXCoord(ToLong(PixelsToTwipsX(static_cast<int>(std::lround(pos.x())))).value, std::int16_t(index));
    const auto y = GalleryController.GetYCoord(ToLong(PixelsToTwipsY(static_cast<int>(std::lround(pos.y())))).value, std::int16_t(index));
    if (x.error == RtError::None) g.MouseX = x.value;
    if (y.error == RtError::None) g.MouseY = y.value;
    PopupSlideIndex = static_cast<std::int16_t>(index);
    QMenu* popup = Menu(index > kGalleryCells ? MenuId::Popup4 : MenuId::Popup1);
    if (index <= kGalleryCells) Item(MenuId::Popup1Delete)->setEnabled(Image1(index)->HasPicture());
    popup->popup(QCursor::pos());
    SkipClick = true;
  } else {
    SkipClick = false;
  }
  if (index <= kGalleryCells) mc.CurrentImageNumber(RecordAt(RecordInCell(mc.CurrentlyActiveBase(), index)));
}

void frmGallery::Image1_Click(int index) {
  if (SkipClick) return;
  if (index <= kGalleryCells) ShowSlide(static_cast<std::int16_t>(index));
  emit StatusTextChanged(QString("Slide: %1").arg(Globals().MainController->CurrentImageNumber()));
}

void frmGallery::Form_Activate() {
  SkipClick = false;
  UIMainController& mc = *Globals().MainController;
  mc.CurrentlyActiveRoof(RoofOnActivate(mc.CurrentlyActiveRoof(), Shown()));
  SetStatusText();
  emit Activated();
}

void frmGallery::mnuPopup1Delete_Click() {
  if (PopupSlideIndex == -1) return;
  dlgRemoveSlide question;
  question.exec();
  if (!question.Confirmed) return;
  ModGlobal& g = Globals();
  if (RemoveSlide(PopupSlideIndex)) {
    if (!Report(g.MainController->SaveSettings(steps::kRemoveSlide), errors_))
      MsgBox(kCannotSave, vbCritical, kErrorTitle);
    PopupSlideIndex = -1;
  }
  emit CollectionChanged();
}

void frmGallery::mnuSlidesAdd_Click() {
  ModGlobal& g = Globals();
  UIMainController& mc = *g.MainController;
  frmCommonDialog& d = RunCommonDialog(kAddSlideTitle, PathToQ(mc.AppPath() + mc.GetGalleryDirectory()), kSlidesPattern,
                                       {kSlidesType, kAllFilesType});
  const QString selected = d.FileListBox1->FileName();
  if (selected.isEmpty()) return;
  NewSlidePath = d.FileListBox1->Path() + "/" + selected;
  UnloadCommonDialog();
  // A failed copy or save ends the command without a word; the new record stays in memory.
  if (!mc.GlobalController().AppendSlide(PathFromQ(NewSlidePath), mc, g.Slides)) return;
  if (!Report(mc.SaveSettings(steps::kAddSlide), errors_)) return;
  NewSlidePath.clear();
  emit CollectionChanged();
}

void frmGallery::dragEnterEvent(QDragEnterEvent* e) {
  const std::vector<std::string> paths = DroppedFiles(e->mimeData());
  if (!paths.empty() && SortDrop(paths).slideFiles.empty()) e->acceptProposedAction();
}

void frmGallery::dropEvent(QDropEvent* e) {
  const std::vector<std::string> paths = DroppedFiles(e->mimeData());
  if (paths.empty() || !SortDrop(paths).slideFiles.empty()) return e->ignore();
  e->acceptProposedAction();
  AddDroppedPictures(paths);
}

void frmGallery::AddDroppedPictures(const std::vector<std::string>& paths) {
  ModGlobal& g = Globals();
  UIMainController& mc = *g.MainController;
  SortedDrop drop = SortDrop(paths);
  const std::vector<std::string> uncopied = mc.GlobalController().AppendSlides(drop.pictures, mc, g.Slides);
  drop.others.insert(drop.others.end(), uncopied.begin(), uncopied.end());
  if (!drop.others.empty()) MsgBox(Utf8ToQ(NotTakenText(drop.others)), vbOKOnly | vbExclamation, kAddSlideTitle);
  if (uncopied.size() == drop.pictures.size() || !Report(mc.SaveSettings(steps::kAddSlide), errors_)) return;
  emit CollectionChanged();
}

void frmGallery::mnuSlidesModify_Click() {
  // The editor's OK replaces this gallery, menus and all, so it runs once the
  // menu that chose it has finished with its click, and from the application,
  // not from this window.
  QTimer::singleShot(0, qApp, [self = QPointer<frmGallery>(this)] {
    if (!self) return;
    frmModifySlide editor;
    editor.GalleryWindowState = self->parentWidget() ? self->parentWidget()->windowState() : self->windowState();
    emit self->CollectionEditorOpened(&editor);
    editor.exec();
  });
}

void frmGallery::mnuSlidesRemoved_Click() {
  if (!Globals().MainController->KeepsHistory()) return;
  frmRemovedSlides bin;
  bin.exec();
  if (bin.Restored) emit CollectionChanged();
}

void frmGallery::closeEvent(QCloseEvent* e) {
  if (QWidget* slide = FindOpenForm("frmSlide")) delete slide->parentWidget();
  emit Unloaded();
  e->accept();
}

}  // namespace cb
