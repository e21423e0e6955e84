#include "app/Main.h"

#include <QApplication>
#include <QThread>
#include <QTime>

#include "app/Forms.h"
#include "app/MDIMain.h"
#include "app/QtSettingsStore.h"
#include "app/StartupErrors.h"
#include "app/frmSplash.h"
#include "app/modGlobal.h"
#include "dialogs/LoadPicture.h"
#include "dialogs/MsgBox.h"
#include "dialogs/Twips.h"

namespace cb {
namespace {

constexpr char kAppTitle[] = "Chattelbook";
constexpr char kDefaultFile[] = "MyFiles.sif";
constexpr char kWallpaperDir[] = "/wallpaper/";

int SecondOfDay(const QTime& t) { return t.hour() * 3600 + t.minute() * 60 + t.second(); }

// Every failure of a start-up step is passed over; some are told first.
void Report(RtError e) {
  if (auto m = StartupErrorMessage(e, kAppTitle)) MsgBox(ToQ(m->text), vbOKOnly, ToQ(m->title));
}

std::string ApplicationDirectory() {
  return FromQ(QCoreApplication::applicationDirPath());
}

}  // namespace

void WaitSeconds(int seconds) {
  ModGlobal& g = Globals();
  g.SplashDismissed = false;
  const int target = SecondOfDay(QTime::currentTime()) + seconds;
  while (!g.SplashDismissed) {
    if (SecondOfDay(QTime::currentTime()) > target) g.SplashDismissed = true;
    QCoreApplication::processEvents();
    QThread::msleep(10);  // nothing to do between events but watch the clock
  }
}

bool Main() {
  static QtSettingsStore settings;
  return Main(ApplicationDirectory(), settings);
}

bool Main(const std::string& appPath, SettingsStore& settings) {
  ModGlobal& g = Globals();
  g.MainController = std::make_unique<UIMainController>(appPath, settings, g);
  UIMainController& mc = *g.MainController;

  auto* splash = new frmSplash();
  SetOpenSplash(splash);
  splash->show();
  splash->repaint();
  QCoreApplication::processEvents();

  if (mc.FirstRun) {
    // The help pages are written here on a first use once the help generator lands.
    mc.SetRegistryKeys(appPath + mc.GetSIFDirectory() + kDefaultFile);
    mc.SlideTemplate(1);
  } else {
    // The login of a password-guarded program is asked for here once the password file lands.
  }

  mc.LoadSettings(g.ErrorInfo);  // a missing default file starts an empty program
  WaitSeconds(mc.FirstRun ? 2 : 0);
  // The file history is read here once its list file lands.

  MDIMain& main = TheMDIMain();
  QImage wallpaper;
  const RtError e = LoadPicture(ToQ(appPath + kWallpaperDir + mc.Wallpaper()), wallpaper);
  if (e == RtError::None)
    main.MdiArea()->SetPicture(std::move(wallpaper));
  else
    Report(e);
  main.show();
  if (frmSplash* open = OpenSplash()) open->close();
  // A first use opens the quick start page here once the help viewer lands.
  return true;
}

}  // namespace cb
