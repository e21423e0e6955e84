#include "app/MDIMain.h"

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

#include "app/Forms.h"
#include "artwork/ToolbarIcons.h"
#include "app/modGlobal.h"
#include "gallery/frmGallery.h"
#include "qt/Twips.h"

namespace cb {

void WallpaperArea::SetPicture(QImage picture) {
  picture_ = std::move(picture);
  viewport()->update();
}

void WallpaperArea::paintEvent(QPaintEvent* e) {
  QMdiArea::paintEvent(e);
  if (picture_.isNull()) return;
  QPainter p(viewport());
  const QRect r = viewport()->rect();
  p.drawImage(QPoint(r.center().x() - picture_.width() / 2, r.center().y() - picture_.height() / 2), picture_);
}

MDIMain::MDIMain() : area_(new WallpaperArea(this)) {
  setObjectName("MDIMain");
  setWindowTitle(kAppTitle);
  area_->setObjectName("MDIClient");
  area_->setBackground(QColor(128, 128, 128));
  area_->viewport()->installEventFilter(this);
  connect(area_, &QMdiArea::subWindowActivated, this, &MDIMain::SubWindowActivated);
  setCentralWidget(area_);
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
  for (const auto& spec : kToolbarButtons) {
    const QString key = QString::fromUtf8(spec.key.data(), static_cast<int>(spec.key.size()));
    QAction* a = toolbar_->addAction(ToolbarIcon(QString::fromUtf8(spec.imageKey.data(), int(spec.imageKey.size()))), key);
    a->setObjectName(key);
    a->setToolTip(QString::fromUtf8(spec.tooltip.data(), static_cast<int>(spec.tooltip.size())));
    a->setCheckable(key == "Zoom" || key == "Unzoom");
    if (key == "Edit") a->setStatusTip("Edit Slide Details");
    connect(a, &QAction::triggered, this, [this, key] { Toolbar1_ButtonClick(key); });
    buttons_.insert(key, a);
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

void MDIMain::MDIForm_Activate() {
  const bool slideOpen = FindOpenForm("frmSlide") != nullptr;
  for (auto it = buttons_.cbegin(); it != buttons_.cend(); ++it)
    it.value()->setEnabled(ToolbarButtonEnabled(it.key().toStdString(), slideOpen));
  const bool zoom = buttons_["Zoom"]->isChecked();
  buttons_["Zoom"]->setChecked(zoom);
  buttons_["Unzoom"]->setChecked(!zoom);
  buttons_["Report"]->setEnabled(true);
  toolbar_->update();
}

void MDIMain::Toolbar1_ButtonClick(const QString& key) {
  struct ButtonAction {
    const char* key;
    void (MDIMain::*action)();
  };
  static constexpr ButtonAction kActions[] = {
      {"New", &MDIMain::mnuFileNew_Click},    {"Open", &MDIMain::mnuFileOpen_Click},
      {"Edit", &MDIMain::EditSlide},          {"Zoom", &MDIMain::PressZoom},
      {"Unzoom", &MDIMain::PressUnzoom},      {"Window", &MDIMain::ArrangeNext},
      {"Back", &MDIMain::SetBackground},      {"Help", &MDIMain::mnuHelpContents_Click},
  };
  if (key == "Report") {
    if (FindOpenForm("frmReport")) return;  // nothing more, not even the refresh
    // The report chooser opens here once the report windows land.
  }
  for (const auto& a : kActions)
    if (key == a.key) (this->*a.action)();
  MDIForm_Activate();
}

void MDIMain::EditSlide() {
  if (gallery_) gallery_->ShowEditSlide(Globals().MainController->SlideTemplate());
}

// Zoom and Unzoom only choose the sense of the next clicks on a slide, like radio buttons.
void MDIMain::PressZoom() {
  buttons_["Zoom"]->setChecked(true);
  buttons_["Unzoom"]->setChecked(false);
}

void MDIMain::PressUnzoom() {
  buttons_["Zoom"]->setChecked(false);
  buttons_["Unzoom"]->setChecked(true);
}

void MDIMain::ArrangeNext() { Arrange(NextArrangement(windowCounter_)); }

void MDIMain::Arrange(Arrangement a) {
  if (a == Arrangement::Cascade) {
    area_->cascadeSubWindows();
    return;
  }
  QList<QMdiSubWindow*> shown;
  for (QMdiSubWindow* w : area_->subWindowList())
    if (w->isVisible() && !w->isMinimized()) shown.append(w);
  if (shown.isEmpty()) return;
  const QRect r = area_->viewport()->rect();
  const int n = static_cast<int>(shown.size());
  for (int k = 0; k < n; ++k) {
    QMdiSubWindow* w = shown[k];
    if (w->isMaximized()) w->showNormal();
    if (a == Arrangement::TileVertical)  // side by side
      w->setGeometry(r.width() * k / n, 0, r.width() * (k + 1) / n - r.width() * k / n, r.height());
    else
      w->setGeometry(0, r.height() * k / n, r.width(), r.height() * (k + 1) / n - r.height() * k / n);
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
    lastRightButton_ = m->button() == Qt::RightButton;
    if (lastRightButton_) menus_["mnuPopup2"]->popup(m->globalPosition().toPoint());
  }
  return false;
}

}  // namespace cb
