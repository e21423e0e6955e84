// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/Main.h"

#include <QApplication>
#include <QThread>
#include <QTime>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "dialogs/HelpRoutine.h"
#include "frame/Forms.h"
#include "frame/MDIMain.h"
#include "frame/ProgramInstance.h"
#include "frame/frmLogin.h"
#include "frame/frmSplash.h"
#include "help/UIHelpController.h"
#include "help/frmHelp.h"
#include "qt/LoadPicture.h"
#include "qt/MsgBox.h"
#include "qt/QtSettingsStore.h"
#include "qt/Twips.h"
#include "state/AppDirectory.h"
#include "state/CommandLine.h"
#include "state/StartupErrors.h"
#include "state/modGlobal.h"
#include "state/MDIMainRules.h"

namespace cb {
namespace {

constexpr char kDefaultFile[] = "MyFiles.sif";
constexpr char kWallpaperDir[] = "/wallpaper/";
constexpr char kHelpFailed[] = "An error occurred while generating the help files.";
constexpr char kInvalidPassword[] = "Invalid password.";

int SecondOfDay(const QTime& t) { return t.hour() * 3600 + t.minute() * 60 + t.second(); }

// Every failure of a start-up step is passed over; some are told first.
void Report(RtError e) {
  if (auto m = StartupErrorMessage(e, kAppTitle)) MsgBox(ToQ(m->text), vbOKOnly, ToQ(m->title));
}

// The executable's directory, or the user's data directory when the program runs installed.
AppDirectoryChoice ApplicationDirectory() {
  return ChooseApplicationDirectory(PathFromQ(QCoreApplication::applicationDirPath()), std::getenv("XDG_DATA_HOME"),
                                    std::getenv("HOME"));
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

int RunProgram(const QStringList& args) {
  std::vector<std::string> words;
  for (const QString& a : args.mid(1)) words.push_back(PathFromQ(a));
  const CommandLine line = ParseCommandLine(words);
  if (line.kind == CommandLine::Kind::Error) {
    std::fprintf(stderr, "chattelbook: %s\n\n%s", line.message.c_str(), UsageText().c_str());
    return 2;
  }
  std::error_code ec;
  const std::string file = line.file.empty() ? std::string() : std::filesystem::absolute(line.file, ec).string();
  const AppDirectoryChoice where = ApplicationDirectory();
  const std::string& appDir = where.path;
  ProgramInstance instance(appDir);
  switch (instance.HandOverOrListen(PathToQ(file))) {
    case ProgramInstance::Start::HandedOver:
      return 0;
    case ProgramInstance::Start::Failed:
      std::fprintf(stderr, "chattelbook: the program running on %s does not answer\n", appDir.c_str());
      return 1;
    case ProgramInstance::Start::Running:
      break;
  }
  // The message names a path, which is UTF-8; the program goes on where it stands.
  if (!where.failure.empty()) MsgBox(Utf8ToQ(where.failure), vbOKOnly, kAppTitle);
  static QtSettingsStore settings;
  if (!Main(appDir, settings)) return 0;  // the start-up refused the user
  MDIMain& main = TheMDIMain();
  if (!file.empty()) main.OpenFromOutside(file);
  instance.SetReceiver([&main](const QString& handed) { main.TakeHandedFile(PathFromQ(handed)); });
  return QApplication::exec();
}

bool Main(const std::string& appPath, SettingsStore& settings) {
  InstallHelpViewer();
  ModGlobal& g = Globals();
  g.MainController = std::make_unique<UIMainController>(appPath, settings, g);
  UIMainController& mc = *g.MainController;
  mc.LockOpenFile();
  mc.KeepHistory();

  auto* splash = new frmSplash();
  SetOpenSplash(splash);
  splash->show();
  splash->repaint();
  QCoreApplication::processEvents();

  if (mc.FirstRun) {
    if (!UIHelpController(appPath).GenerateHelp()) MsgBox(kHelpFailed, vbOKOnly, kErrorTitle);
    mc.SetRegistryKeys(appPath + mc.GetSIFDirectory() + kDefaultFile);
    mc.SlideTemplate(1);
  } else {
    std::string password;
    Report(mc.GetPassword(password), g.ErrorInfo);
    if (!password.empty()) {
      frmLogin login(frmLogin::kLogin);
      login.exec();
      if (!login.LoginAccepted) {
        MsgBox(kInvalidPassword, vbOKOnly, kErrorTitle);
        if (frmSplash* open = OpenSplash()) open->close();
        return false;
      }
    }
  }

  Report(mc.LoadSettings(), g.ErrorInfo);  // a missing default file starts an empty program
  WaitSeconds(mc.FirstRun ? 2 : 0);
  Report(mc.GetFileHistoryList(g.History), g.ErrorInfo);  // a missing list leaves it empty

  MDIMain& main = TheMDIMain();
  QImage wallpaper;
  const RtError e = LoadPicture(FilePath(appPath + kWallpaperDir, mc.Wallpaper()), wallpaper);
  if (e == RtError::None)
    main.MdiArea()->SetPicture(std::move(wallpaper));
  else
    Report(e);
  main.show();
  if (frmSplash* open = OpenSplash()) open->close();
  if (mc.FirstRun) OpenHelp(kQuickStartPage);
  return true;
}

}  // namespace cb
