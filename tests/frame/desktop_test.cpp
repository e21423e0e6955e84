// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop's ways in: files dropped on the windows, a file named at
// start or handed over by a later start, one program per data folder.
#include <gtest/gtest.h>

#include <QDropEvent>
#include <QEventLoop>
#include <QMimeData>
#include <QThread>
#include <QUrl>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <memory>

#include "frame/ProgramInstance.h"
#include "support/GalleryFixture.h"

namespace cb {
namespace {

namespace fs = std::filesystem;

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
