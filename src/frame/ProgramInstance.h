// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One program per data folder. Each program writes its whole collection back
// at every change, so a second one on the same folder would undo the first
// one's edits: a later start hands its file to the running program over a
// local socket in the user's runtime folder, and ends.

#include <QLocalServer>
#include <QObject>
#include <QString>

#include <functional>
#include <string>
#include <vector>

namespace cb {

class ProgramInstance : public QObject {
  Q_OBJECT
 public:
  // `dataDir` is the application directory the program works on.
  explicit ProgramInstance(const std::string& dataDir);

  enum class Start { Running, HandedOver, Failed };
  // Either hands `file` (absolute, or empty for none) to the program already
  // running on the folder, or becomes that program. A socket left behind by a
  // program that was killed is removed first. Failed when another program
  // holds the socket but does not take the file; Running also when the
  // socket cannot be made, since that must never stop a start.
  Start HandOverOrListen(const QString& file);

  // Files handed over from now on go to `receiver`; those that came before
  // it was set go to it at once.
  void SetReceiver(std::function<void(const QString&)> receiver);

  // The socket's path: the runtime folder, and a name made from the data folder.
  static QString SocketPath(const std::string& dataDir);

 private:
  void Accept();
  void Deliver(const QString& file);

  QString path_;
  QLocalServer server_;
  std::vector<QString> waiting_;
  std::function<void(const QString&)> receiver_;
};

}  // namespace cb
