// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/MDIMain.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QStatusBar>
#include <QToolBar>
#include <cmath>

#include "artwork/ToolbarIcons.h"
#include "dialogs/HelpRoutine.h"
#include "gallery/frmGallery.h"
#include "help/frmHelp.h"
#include "qt/OpenForms.h"
#include "qt/Twips.h"
#include "reports/frmReport.h"
#include "state/modGlobal.h"

namespace cb {

void WallpaperArea::SetPicture(QImage picture) {
  picture_ = std::move(picture);
  tile_ = QPixmap::fromImage(picture_);
  viewport()->update();
}

void WallpaperArea::paintEvent(QPaintEvent* e) {
  QMdiArea::paintEvent(e);
  if (tile_.isNull()) return;
  // Never stretched: a picture smaller than the area repeats, as the shipped wallpapers do seamlessly.
  QPainter p(viewport());
  p.drawTiledPixmap(viewport()->rect(), tile_);
}

MDIMain::MDIMain() : area_(new WallpaperArea(this)) {
  setObjectName("MDIMain");
  setAcceptDrops(true);
  setWindowTitle(kAppTitle);
  area_->setObjectName("MDIClient");
  area_->setBackground(QColor(128, 128, 128));
  area_->viewport()->installEventFilter(this);
  connect(area_, &QMdiArea::subWindowActivated, this, &MDIMain::SubWindowActivated);
  setCentralWidget(area_);
  SetHelpArea(area_);
  CreateMenus();
  CreateToolBar();
  CreateStatusBar();
  ConnectMenuHandlers();
  resize(TwipsToPixelsX(14400), TwipsToPixelsY(10800));
  CentreOnScreen(*this);
  MDIForm_Load();
}

// The children go down with the window; their last activations reach no one.
MDIMain::~MDIMain() { disconnect(area_, nullptr, this, nullptr); }

void MDIMain::MDIForm_Load() { mnuFileGallery_Click(); }

void MDIMain::CreateToolBar() {
  toolbar_ = addToolBar("Toolbar1");
  toolbar_->setObjectName("Toolbar1");
  toolbar_->setMovable(false);
  toolbar_->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  toolbar_->setIconSize(QSize(24, 24));
  for (const auto& entry : kToolbarButtons) {
    QAction* a = toolbar_->addAction(ToolbarIcon(Utf8ToQ(entry.imageKey)), Utf8ToQ(entry.key));
    a->setObjectName(Utf8ToQ(entry.key));
    a->setToolTip(Utf8ToQ(entry.tooltip));
    a->setStatusTip(Utf8ToQ(entry.statusTip));
    a->setCheckable(entry.checkable);
    connect(a, &QAction::triggered, this, [this, id = entry.id] { Toolbar1_ButtonClick(id); });
    buttons_[static_cast<std::size_t>(entry.id)] = a;
  }
}

void MDIMain::CreateStatusBar() {
  statusBar()->setObjectName("StatusBar1");
  simpleText_ = new QLabel(statusBar());
  simpleText_->setObjectName("SimpleText");
  statusBar()->addWidget(simpleText_, 1);
}

void MDIMain::SetStatusText(const QString& text) { simpleText_->setText(text); }
QString MDIMain::StatusText() const { return simpleText_->text(); }

void MDIMain::ApplyToolbar(ToolbarEvent event) {
  const ToolbarFacts facts{FindOpenForm("frmSlide") != nullptr, area_->subWindowList().size() > 1,
                           Button(ToolbarButton::Zoom)->isChecked()};
  const ToolbarChange change = ToolbarAfter(event, facts);
  for (std::size_t k = 0; k < change.size(); ++k) {
    if (change[k].enabled != Change::Keep) buttons_[k]->setEnabled(change[k].enabled == Change::On);
    if (change[k].pressed != Change::Keep) buttons_[k]->setChecked(change[k].pressed == Change::On);
  }
}

void MDIMain::MDIForm_Activate() {
  ApplyToolbar(ToolbarEvent::FrameActivated);
  // The refresh can follow the viewer's own activation (the Report click that
  // opened it, the frame back from a dialog): an active viewer's rule stands.
  if (activeChild_ && qobject_cast<frmReport*>(activeChild_->widget())) ApplyToolbar(ToolbarEvent::ReportActivated);
  toolbar_->update();
}

void MDIMain::Toolbar1_ButtonClick(ToolbarButton b) {
  // Wiring a button: its row in kToolbarButtons, and its command here.
  struct ButtonAction {
    ToolbarButton button;
    void (MDIMain::*action)();
  };
  static constexpr ButtonAction kActions[] = {
      {ToolbarButton::New, &MDIMain::mnuFileNew_Click},    {ToolbarButton::Open, &MDIMain::mnuFileOpen_Click},
      {ToolbarButton::Edit, &MDIMain::EditSlide},          {ToolbarButton::Zoom, &MDIMain::PressZoom},
      {ToolbarButton::Unzoom, &MDIMain::PressUnzoom},      {ToolbarButton::Window, &MDIMain::ArrangeNext},
      {ToolbarButton::Help, &MDIMain::mnuHelpContents_Click},
      {ToolbarButton::Report, &MDIMain::ShowSelectReport},
      {ToolbarButton::Back, &MDIMain::SetBackground},
  };
  // An open report takes the click itself: nothing more, not even the refresh.
  if (b == ToolbarButton::Report && FindOpenForm("frmReport")) return;
  for (const auto& a : kActions)
    if (b == a.button) (this->*a.action)();
  MDIForm_Activate();
}

void MDIMain::EditSlide() {
  if (gallery_) gallery_->ShowEditSlide(Globals().MainController->SlideTemplate());
}

void MDIMain::ArrangeNext() { Arrange(NextArrangement(windowCounter_)); }

void MDIMain::Arrange(Arrangement a) {
  if (a == Arrangement::Cascade) {
    area_->cascadeSubWindows();
    return;
  }
  QList<QMdiSubWindow*> shown;
  // The help viewer keeps the whole area; the others share it.
  for (QMdiSubWindow* w : area_->subWindowList())
    if (w->isVisible() && !w->isMinimized() && !qobject_cast<frmHelp*>(w->widget())) shown.append(w);
  const QRect r = area_->viewport()->rect();
  const int n = static_cast<int>(shown.size());
  for (int k = 0; k < n; ++k) {
    QMdiSubWindow* w = shown[k];
    if (w->isMaximized()) w->showNormal();
    const TileRect place = TilePlace(a, r.width(), r.height(), k, n);
    w->setGeometry(place.left, place.top, place.width, place.height);
  }
}

void MDIMain::changeEvent(QEvent* e) {
  if (e->type() == QEvent::ActivationChange && isActiveWindow()) MDIForm_Activate();
  QMainWindow::changeEvent(e);
}

void MDIMain::closeEvent(QCloseEvent* e) {
  // Unloading the main window ends the program at once; every change is already saved.
  e->accept();
  QApplication::closeAllWindows();
  QCoreApplication::quit();
}

bool MDIMain::eventFilter(QObject* watched, QEvent* e) {
  if (watched != area_->viewport()) return false;
  if (e->type() == QEvent::MouseButtonPress) {
    const auto* m = static_cast<QMouseEvent*>(e);
    ModGlobal& g = Globals();
    g.MouseX = static_cast<std::int32_t>(std::lround(PixelsToTwipsX(m->position().toPoint().x())));
    g.MouseY = static_cast<std::int32_t>(std::lround(PixelsToTwipsY(m->position().toPoint().y())));
  } else if (e->type() == QEvent::MouseButtonRelease) {
    const auto* m = static_cast<QMouseEvent*>(e);
    if (m->button() == Qt::RightButton) Menu(MenuId::Popup2)->popup(m->globalPosition().toPoint());
  }
  return false;
}

}  // namespace cb
