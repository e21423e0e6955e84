// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/ProgramInstance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLocalSocket>
#include <QLockFile>
#include <QStandardPaths>
#include <QTimer>

namespace cb {
namespace {

// Long enough for a busy program to answer, short enough not to look hung.
constexpr int kAnswerMs = 5000;
constexpr int kConnectMs = 1000;
constexpr int kLockMs = 2 * kAnswerMs;
constexpr char kTaken[] = "ok\n";

}  // namespace

ProgramInstance::ProgramInstance(const std::string& dataDir) : path_(SocketPath(dataDir)) {
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  connect(&server_, &QLocalServer::newConnection, this, &ProgramInstance::Accept);
}

QString ProgramInstance::SocketPath(const std::string& dataDir) {
  QString dir = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  if (dir.isEmpty()) dir = QDir::tempPath();
  const QByteArray hash =
      QCryptographicHash::hash(QByteArray::fromStdString(dataDir), QCryptographicHash::Sha256).toHex().left(16);
  return dir + "/chattelbook-" + QString::fromLatin1(hash);
}

ProgramInstance::Start ProgramInstance::HandOverOrListen(const QString& file) {
  // Two starts at once must not both take the socket.
  QLockFile lock(path_ + ".lock");
  lock.tryLock(kLockMs);
  QLocalSocket socket;
  socket.connectToServer(path_);
  if (socket.waitForConnected(kConnectMs)) {
    socket.write(file.toUtf8() + "\n");
    socket.flush();
    while (socket.bytesAvailable() < static_cast<qint64>(sizeof kTaken - 1) && socket.waitForReadyRead(kAnswerMs)) {
    }
    return socket.readAll() == kTaken ? Start::HandedOver : Start::Failed;
  }
  // Without a socket of its own the program still runs, alone as before.
  QLocalServer::removeServer(path_);
  server_.listen(path_);
  return Start::Running;
}

void ProgramInstance::Accept() {
  while (QLocalSocket* socket = server_.nextPendingConnection()) {
    connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
      if (!socket->canReadLine()) return;
      const QString file = QString::fromUtf8(socket->readLine()).chopped(1);
      socket->write(kTaken);
      socket->disconnectFromServer();
      Deliver(file);
    });
  }
}

void ProgramInstance::Deliver(const QString& file) {
  if (receiver_)
    receiver_(file);
  else
    waiting_.push_back(file);
}

void ProgramInstance::SetReceiver(std::function<void(const QString&)> receiver) {
  receiver_ = std::move(receiver);
  for (const QString& file : std::exchange(waiting_, {})) receiver_(file);
}

}  // namespace cb
