// SPDX-License-Identifier: GPL-3.0-or-later
// The claim pack, backup and restore from the File menu, played as a user
// would, against what chattelbook-sif writes for the same file; and the
// desktop's ways in: files dropped on the windows, a file named at start or
// handed over by a later start, one program per data folder.
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QDate>
#include <QDropEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>
#include <QThread>
#include <QUrl>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <memory>
#include <sstream>

#include "Commands.h"
#include "dialogs/HelpRoutine.h"
#include "dialogs/frmCommonDialog.h"
#include "frame/ProgramInstance.h"
#include "pack/Backup.h"
#include "pack/ClaimPack.h"
#include "pack/frmClaimPack.h"
#include "pack/frmJobProgress.h"
#include "support/GalleryFixture.h"

namespace cb {
namespace {

namespace fs = std::filesystem;
using testing::ReadFile;
using testing::WhenShown;

class PackCommandsTest : public testing::GalleryFixture {
 protected:
  std::string Files(const std::string& name) const { return app / ("Files/" + name); }
  const QString backupName = "t-" + QDate::currentDate().toString("yyyy-MM-dd") + ".tar.gz";

  // chattelbook-sif with `args` after its name; its exit status.
  int Sif(const QStringList& args) {
    std::ostringstream out, err;
    std::istringstream in;
    return sif::RunSif(QStringList{"chattelbook-sif"} + args, out, err, in);
  }

  // Plays the file dialog: checks its caption and offered name, then OK.
  void AcceptFileDialog(const QString& caption, const QString& offered) {
    WhenShown("frmCommonDialog", [this, caption, offered](QWidget& w) {
      auto& d = static_cast<frmCommonDialog&>(w);
      EXPECT_EQ(d.windowTitle(), caption);
      EXPECT_EQ(d.txtFilename->text(), offered);
      EXPECT_EQ(d.FileListBox1->Path(), QString::fromStdString(app / "Files"));
      QTest::keyClick(d.txtFilename, Qt::Key_Return);
    });
  }

  // The gallery hands its File items to the main window through a queued signal.
  void Choose(MenuId item) {
    Gallery().Item(item)->trigger();
    QCoreApplication::sendPostedEvents();
  }

  pack::Manifest ManifestOf(const std::string& archive) {
    pack::RestorePlan plan;
    EXPECT_TRUE(pack::PlanRestore(archive, app.str(), pack::Unwatched, plan).ok()) << archive;
    return plan.manifest;
  }
};

// A PDF with its dates blanked: two runs differ in nothing else.
QByteArray Undated(const std::string& pdf) {
  static const QRegularExpression date(R"(\(D:[0-9+\-Z']+\))");
  return QString::fromLatin1(QByteArrayView(pdf)).replace(date, "(D:)").toLatin1();
}

TEST_F(PackCommandsTest, ItemsFollowSaveAsAndTakeF1) {
  Start(3);
  for (const auto& [item, caption] : {std::pair{MenuId::FileClaim, "&Claim Pack..."},
                                      {MenuId::FileBackup, "&Back Up..."},
                                      {MenuId::FileRestore, "&Restore..."}}) {
    EXPECT_EQ(Gallery().Item(item)->text(), caption);
    EXPECT_TRUE(Gallery().Item(item)->isEnabled()) << caption;
    EXPECT_EQ(TheMDIMain().Item(item)->isEnabled(), item == MenuId::FileRestore) << caption;
  }
  QMenu* menu = Gallery().Menu(MenuId::File);
  const auto at = [&](MenuId id) { return menu->actions().indexOf(Gallery().Item(id)); };
  EXPECT_EQ(at(MenuId::FileClaim), at(MenuId::Bar2) + 1);
  EXPECT_EQ(at(MenuId::FileGallery), at(MenuId::FileRestore) + 1);
  menu->popup({0, 0});
  menu->setActiveAction(Gallery().Item(MenuId::FileBackup));
  QKeyEvent f1(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
  QApplication::sendEvent(menu, &f1);
  EXPECT_EQ(HelpPage(), "help003.htm");
  EXPECT_FALSE(menu->isVisible());
}

TEST_F(PackCommandsTest, ClaimAndBackupFromTheMenuAreTheCommands) {
  Start(20);
  Gallery().mnuEditFind_Click();
  Gallery().txtFind->setText("-p1");   // slides 2 to 9 and 20
  fs::remove(app / "Gallery/p7.png");  // gone since the gallery showed it
  WhenShown("frmClaimPack", [this](QWidget& w) {
    auto& d = static_cast<frmClaimPack&>(w);
    EXPECT_EQ(d.windowTitle(), "Claim Pack");
    ASSERT_NE(d.chkFound, nullptr);
    EXPECT_EQ(d.chkFound->text(), "&Only the slides found (9)");
    EXPECT_TRUE(d.chkFound->isChecked());
    EXPECT_TRUE(d.optCategory->isChecked());
    EXPECT_EQ(d.optLetter->isChecked(), pack::LocalePageSize() == QPageSize::Letter);
    d.optLocation->setChecked(true);
    d.optLetter->setChecked(true);
    AcceptFileDialog("Save Claim Pack", "t-claim.pdf");
    QTest::keyClick(&d, Qt::Key_Return);
  });
  Choose(MenuId::FileClaim);
  ASSERT_TRUE(fs::exists(Files("t-claim.pdf")));
  ASSERT_EQ(messages.size(), 1);
  EXPECT_TRUE(messages[0].contains("slide 7: picture \"p7.png\" is missing")) << messages[0].toStdString();
  ASSERT_EQ(Sif({"claim", QString::fromStdString(Files("t.sif")), "--by", "location", "--page", "letter", "--where",
                 "-p1", "-o", QString::fromStdString(app / "command.pdf")}),
            sif::kExitOk);
  EXPECT_EQ(Undated(ReadFile(Files("t-claim.pdf"))), Undated(ReadFile(app / "command.pdf")));

  AcceptFileDialog("Back Up", backupName);
  Choose(MenuId::FileBackup);
  const std::string made = Files(backupName.toStdString());
  ASSERT_TRUE(fs::exists(made));
  ASSERT_EQ(Sif({"backup", QString::fromStdString(Files("t.sif")), "-o", QString::fromStdString(app / "c.tar.gz")}),
            sif::kExitOk);
  const pack::Manifest ours = ManifestOf(made), theirs = ManifestOf(app / "c.tar.gz");
  EXPECT_EQ(ours.order, theirs.order);
  EXPECT_EQ(ours.hashes, theirs.hashes);
  EXPECT_EQ(ours.missing, std::vector<std::string>{"Gallery/p7.png"});
  EXPECT_EQ(ours.missing, theirs.missing);
}

// Cancel as soon as the progress shows: the job stops and leaves no file.
TEST_F(PackCommandsTest, CancelLeavesNoFileBehind) {
  Start(2);
  // A large picture keeps the backup busy well past the first cancel check.
  fs::resize_file(app / "Gallery/p1.png", std::uintmax_t{1} << 30);
  AcceptFileDialog("Back Up", backupName);
  WhenShown("frmJobProgress",
            [](QWidget& w) { QTest::mouseClick(static_cast<frmJobProgress&>(w).cmdCancel, Qt::LeftButton); });
  Choose(MenuId::FileBackup);
  std::vector<std::string> left;
  for (const auto& e : fs::directory_iterator(app / "Files")) left.push_back(e.path().filename().string());
  EXPECT_EQ(left, std::vector<std::string>{"t.sif"});
  EXPECT_TRUE(messages.isEmpty()) << messages.join("\n").toStdString();
}

TEST_F(PackCommandsTest, RestoreAsksBeforeReplacingAndReloads) {
  Start(20);
  pack::BackupResult result;
  ASSERT_TRUE(pack::MakeBackup({Files("t.sif"), app / "Gallery", Files("t.tar.gz")}, pack::Unwatched, result).ok());
  Start(3);  // the file now has three slides
  for (const int reply : {vbNo, vbYes}) {
    answer = reply;
    messages.clear();
    AcceptFileDialog("Restore", "t.tar.gz");
    Choose(MenuId::FileRestore);
    ASSERT_EQ(messages.size(), 1);
    EXPECT_TRUE(messages[0].startsWith("Restore: These files in " + QString::fromStdString(app.str()) +
                                       " will be replaced:\n\nFiles/t.sif\nGallery/p1.png\n"))
        << messages[0].toStdString();
    EXPECT_EQ(Mc().NumberOfRecords(), reply == vbYes ? 20 : 3);
  }
  EXPECT_EQ(Shown()[14], 15);  // the gallery reloaded the restored file
}

class DesktopTest : public testing::GalleryFixture {
 protected:
  // Drops `paths` on `target` as a file manager would: enter, then drop.
  static bool Drop(QWidget& target, const std::vector<std::string>& paths) {
    QMimeData data;
    QList<QUrl> urls;
    for (const auto& p : paths) urls << QUrl::fromLocalFile(QString::fromStdString(p));
    data.setUrls(urls);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &drop);
    return drop.isAccepted();
  }

  testing::TempDir elsewhere;
};

TEST_F(DesktopTest, JpegsDroppedOnTheGalleryBecomeSlidesInOrder) {
  Start(2);
  QImage picture(8, 6, QImage::Format_RGB32);
  picture.fill(Qt::darkGreen);
  std::vector<std::string> dropped;
  for (const char* name : {"e.jpg", "a.JPG", "d.jpeg", "notes.txt", "c.jpg", "b.jpg"}) {
    dropped.push_back(elsewhere / name);
    picture.save(QString::fromStdString(dropped.back()), "JPEG");
  }
  dropped.push_back(elsewhere / "gone.jpg");  // never written: its copy fails
  ASSERT_TRUE(Drop(Gallery(), dropped));
  EXPECT_EQ(Mc().NumberOfRecords(), 7);
  std::size_t record = 3;
  for (const std::string name : {"e.jpg", "a.JPG", "d.jpeg", "c.jpg", "b.jpg"}) {
    EXPECT_EQ(Trim(Globals().Slides[record++].Get(Field::PictureFile)), name);
    EXPECT_TRUE(fs::exists(app / ("Gallery/" + name)));
  }
  ASSERT_EQ(messages.size(), 1);
  EXPECT_TRUE(messages[0].endsWith(":\n\nnotes.txt\ngone.jpg")) << messages[0].toStdString();
  ErrorArray errors;  // read back: the file on disk holds all seven
  ASSERT_TRUE(Report(Mc().LoadSettings(), errors));
  EXPECT_EQ(Mc().NumberOfRecords(), 7);
}

TEST_F(DesktopTest, SlideFileDroppedOrNamedOpensAsOpenWould) {
  Start(2);
  fs::copy_file(app / "Files/t.sif", app / "Files/u.sif");
  ASSERT_TRUE(Drop(Gallery(), {app / "Files/u.sif"}));  // the gallery leaves it to the main window
  EXPECT_EQ(Mc().SlideInformationFilePath(), app / "Files/u.sif");
  EXPECT_TRUE(messages.isEmpty());

  for (const std::string& bad : {app / "Files/missing.sif", app / "Files"}) {
    messages.clear();
    TheMDIMain().OpenFromOutside(bad);
    EXPECT_EQ(messages, QStringList{"Load Error: Invalid Slide Information File"}) << bad;
    EXPECT_EQ(Mc().SlideInformationFilePath(), app / "Files/u.sif");
  }
}

// Runs `start` on a thread of its own while this one serves the running program.
ProgramInstance::Start StartBeside(const std::string& dataDir, const QString& file) {
  std::atomic<int> outcome{-1};
  std::unique_ptr<QThread> later(QThread::create([&] {
    ProgramInstance second(dataDir);
    outcome = static_cast<int>(second.HandOverOrListen(file));
  }));
  later->start();
  while (outcome < 0) QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
  later->wait();
  return static_cast<ProgramInstance::Start>(outcome.load());
}

TEST_F(DesktopTest, ALaterStartHandsItsFileToTheRunningProgram) {
  const std::string dataDir = app.str();
  // A socket left by a killed program: bound, never listened on.
  const QString path = ProgramInstance::SocketPath(dataDir);
  fs::remove(path.toStdString());
  const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, path.toUtf8().constData(), sizeof address.sun_path - 1);
  ASSERT_EQ(::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  ::close(fd);

  ProgramInstance running(dataDir);
  ASSERT_EQ(running.HandOverOrListen({}), ProgramInstance::Start::Running);
  QStringList handed;
  EXPECT_EQ(StartBeside(dataDir, "/files/first.sif"), ProgramInstance::Start::HandedOver);
  running.SetReceiver([&](const QString& f) { handed << f; });  // what came early waits for it
  EXPECT_EQ(StartBeside(dataDir, ""), ProgramInstance::Start::HandedOver);
  EXPECT_EQ(StartBeside(elsewhere.str(), ""), ProgramInstance::Start::Running);  // another folder, another program
  EXPECT_EQ(handed, QStringList({"/files/first.sif", ""}));
}

}  // namespace
}  // namespace cb
