#include "gallery/frmGallery.h"

#include <QAction>
#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScrollBar>
#include <cmath>

#include "app/MDIMainFiles.h"
#include "app/Forms.h"
#include "app/MDIMain.h"
#include "app/MDIMainMenuBuilder.h"
#include "app/modGlobal.h"
#include "dialogs/HelpRoutine.h"
#include "qt/MsgBox.h"
#include "qt/DrawingLock.h"
#include "qt/StretchImage.h"
#include "qt/Twips.h"
#include "dialogs/dlgWhat.h"
#include "dialogs/frmCommonDialog.h"
#include "gallery/GalleryLayout.h"
#include "gallery/GalleryMenuTable.h"
#include "gallery/ScrollRules.h"
#include "gallery/dlgRemoveSlide.h"
#include "slide/frmSlide.h"
#include "slide/SlideNames.h"

namespace cb {
namespace {

constexpr char kHelpPage[] = "help011.htm";
constexpr char kCannotSave[] = "Could not save sif file.";
constexpr char kErrorTitle[] = "Error";

// Items that forward to the main window's command of the same purpose.
struct Forward {
  const char* item;
  void (MDIMain::*command)();
};

constexpr Forward kForwards[] = {
    {"mnuFileNew", &MDIMain::mnuFileNew_Click},
    {"mnuFileOpen", &MDIMain::mnuFileOpen_Click},
    {"mnuFileSaveAs", &MDIMain::mnuFileSaveAs_Click},
    {"mnuFileGallery", &MDIMain::mnuFileGallery_Click},
    {"mnuFilePassword", &MDIMain::mnuFilePassword_Click},
    {"mnuFileExit", &MDIMain::mnuFileExit_Click},
    {"mnuFileWallpaper", &MDIMain::mnuFileWallpaper_Click},
    {"mnuViewToolbar", &MDIMain::mnuViewToolbar_Click},
    {"mnuViewStatusbar", &MDIMain::mnuViewStatusbar_Click},
    {"mnuWindowTileV", &MDIMain::mnuWindowVertical_Click},
    {"mnuWindowTileH", &MDIMain::mnuWindowHorizontal_Click},
    {"mnuWindowCascade", &MDIMain::mnuWindowCascade_Click},
    {"mnuHelpContents", &MDIMain::mnuHelpContents_Click},
    {"mnuHelpAbout", &MDIMain::mnuHelpAbout_Click},
    {"mnuPopup2SetWallpaper", &MDIMain::mnuFileWallpaper_Click},
    {"mnuPopup4SetBackground", &MDIMain::SetBackground},
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
    images_[static_cast<std::size_t>(i - 1)] = image;
    connect(image, &StretchImage::MouseUp, this, [this, i](Qt::MouseButton b, QPointF p) { Image1_MouseUp(i, b, p); });
    connect(image, &StretchImage::Click, this, [this, i] { Image1_Click(i); });
  }
  // Frames lie behind their slide pictures.
  for (int i = 1; i <= kGalleryCells; ++i) Image1(i)->raise();
  FlatScrollBar1 = new QScrollBar(Qt::Horizontal, this);
  FlatScrollBar1->setObjectName("FlatScrollBar1");
  FlatScrollBar1->setTracking(false);
  connect(FlatScrollBar1, &QScrollBar::valueChanged, this, &frmGallery::FlatScrollBar1_Change);
  CreateMenus();
  setFocusPolicy(Qt::StrongFocus);  // so the window has the keyboard, and F1, when it is active
  InstallF1(*this, kHelpPage);
  resize(TwipsToPixelsX(kOpeningClientWidth), TwipsToPixelsY(kOpeningClientHeight));
  LayOut();
}

frmGallery::~frmGallery() = default;

void frmGallery::CreateMenus() {
  BuiltMenus built = BuildMenus(this, GalleryMenu());
  items_ = built.items;
  menus_ = built.menus;
  bar_ = built.bar;
  for (const auto& f : kForwards) {
    QAction* a = items_[f.item];
    connect(a, &QAction::triggered, this, [a, command = f.command] {
      // The main window's handler keeps the check marks of both menus.
      if (a->isCheckable()) a->setChecked(!a->isChecked());
      (TheMDIMain().*command)();
    });
  }
  for (int i = 1; i <= 4; ++i)
    connect(items_[ItemName("mnuFileHist", i)], &QAction::triggered, this, [i] { TheMDIMain().mnuFileHist_Click(i); });
  connect(items_["mnuSlidesAdd"], &QAction::triggered, this, &frmGallery::mnuSlidesAdd_Click);
  connect(items_["mnuPopup1Delete"], &QAction::triggered, this, &frmGallery::mnuPopup1Delete_Click);
  connect(items_["mnuPopupReset"], &QAction::triggered, this, &frmGallery::mnuPopupReset_Click);
  for (const char* what : {"mnuPopup1What", "mnuPopup3What", "mnuPopup4What"})
    connect(items_[what], &QAction::triggered, this, [this, what] { ShowWhat(what); });
  for (const char* help : {"mnuPopup1Help", "mnuPopup3Help", "mnuPopup4Help"})
    connect(items_[help], &QAction::triggered, this, [] { OpenHelp(kHelpPage); });
  // The collection editor and the template chooser join these items when they land.
}

void frmGallery::ShowWhat(const QString& item) {
  for (const auto& note : kGalleryWhatNotes)
    if (QString::fromUtf8(note.item.data(), int(note.item.size())) == item)
      cb::ShowWhat(note.height, note.width, QString::fromUtf8(note.text.data(), int(note.text.size())));
}

void frmGallery::resizeEvent(QResizeEvent*) {
  if (window()->isMinimized()) return;
  LayOut();
}

void frmGallery::LayOut() {
  const DrawingLock lock(this);
  Picture1->setGeometry(rect());
  const int bar = TwipsToPixelsY(kScrollBarHeight);
  FlatScrollBar1->setGeometry(0, height() - bar, width(), bar);
  const GalleryLayout layout = LayOutGallery(PixelsToTwipsX(width()), PixelsToTwipsY(height()), kScrollBarHeight);
  // The writes run in order until an element refuses one; the rest keep their places.
  for (std::size_t k = 0; k < layout.refusedAt; ++k) {
    const ElementWrite& w = WriteOrder()[k];
    ElementRect& to = placed_[static_cast<std::size_t>(w.index - 1)];
    const ElementRect& from = layout.Image1(w.index);
    switch (w.property) {
      case ElementProperty::Width: to.Width = from.Width; break;
      case ElementProperty::Left: to.Left = from.Left; break;
      case ElementProperty::Height: to.Height = from.Height; break;
      case ElementProperty::Top: to.Top = from.Top; break;
    }
  }
  for (int i = 1; i <= kGalleryElements; ++i) {
    const ElementRect& r = placed_[static_cast<std::size_t>(i - 1)];
    Image1(i)->setGeometry(TwipsRect(r.Left, r.Top, r.Width, r.Height));
  }
}

void frmGallery::Image1_MouseUp(int index, Qt::MouseButton button, QPointF pos) {
  ModGlobal& g = Globals();
  UIMainController& mc = *g.MainController;
  if (button == Qt::RightButton) {
    const auto x = mc.GetXCoord(ToLong(PixelsToTwipsX(static_cast<int>(std::lround(pos.x())))).value, std::int16_t(index));
    const auto y = mc.GetYCoord(ToLong(PixelsToTwipsY(static_cast<int>(std::lround(pos.y())))).value, std::int16_t(index));
    if (x.error == RtError::None) g.MouseX = x.value;
    if (y.error == RtError::None) g.MouseY = y.value;
    PopupSlideIndex = static_cast<std::int16_t>(index);
    QMenu* popup = menus_[index > kGalleryCells ? "mnuPopup4" : "mnuPopup1"];
    if (index <= kGalleryCells) items_["mnuPopup1Delete"]->setEnabled(Image1(index)->HasPicture());
    popup->popup(QCursor::pos());
    SkipClick = true;
  } else {
    SkipClick = false;
  }
  if (index <= kGalleryCells) mc.CurrentImageNumber(RecordInCell(mc.CurrentlyActiveBase(), index));
}

void frmGallery::Image1_Click(int index) {
  if (SkipClick) return;
  if (index <= kGalleryCells) ShowSlide(static_cast<std::int16_t>(index));
  TheMDIMain().SetStatusText(QString("Slide: %1").arg(Globals().MainController->CurrentImageNumber()));
}

void frmGallery::Form_Activate() {
  MDIMain& main = TheMDIMain();
  main.UpdateHistoryMenu();
  SkipClick = false;
  UIMainController& mc = *Globals().MainController;
  const auto n = static_cast<std::int32_t>(Globals().Slides.size()) - 1;
  mc.CurrentlyActiveRoof(RoofOnActivate(mc.CurrentlyActiveRoof(), n));
  SetStatusText();
  main.SetGalleryToolbar();
}

void frmGallery::mnuPopup1Delete_Click() {
  if (PopupSlideIndex == -1) return;
  dlgRemoveSlide question;
  question.exec();
  if (!question.Confirmed) return;
  ModGlobal& g = Globals();
  if (GalleryController.DeleteSlide(PopupSlideIndex, *g.MainController, g.Slides)) {
    if (!g.MainController->SaveSettings(errors_)) MsgBox(kCannotSave, vbCritical, kErrorTitle);
    PopupSlideIndex = -1;
  }
  TheMDIMain().RebuildGallery();
}

void frmGallery::mnuSlidesAdd_Click() {
  ModGlobal& g = Globals();
  UIMainController& mc = *g.MainController;
  frmCommonDialog& d = RunCommonDialog("Add Slide", PathToQ(mc.AppPath() + mc.GetGalleryDirectory()), "*.jpg",
                                       {"Slides (*.jpg)", "All Files (*.*)"});
  const QString selected = d.FileListBox1->FileName();
  if (selected.isEmpty()) return;
  NewSlidePath = d.FileListBox1->Path() + "/" + selected;
  UnloadCommonDialog();
  // A failed copy or save ends the command without a word; the new record stays in memory.
  if (!GalleryController.AppendSlide(PathFromQ(NewSlidePath), mc, g.Slides)) return;
  if (!mc.SaveSettings(errors_)) return;
  NewSlidePath.clear();
  TheMDIMain().RebuildGallery();
}

void frmGallery::closeEvent(QCloseEvent* e) {
  if (QWidget* slide = FindOpenForm("frmSlide")) delete slide->parentWidget();
  TheMDIMain().GalleryUnloaded();
  e->accept();
}

}  // namespace cb
