// SPDX-License-Identifier: GPL-3.0-or-later
#include "Where.h"

namespace cb::sif {

QCommandLineOption WhereOption() {
  return QCommandLineOption(QString("where"), "only the slides the find query matches", "QUERY");
}

bool WhereQuery(const QCommandLineParser& p, const CommandIo& io, SlideQuery& query, int& status) {
  const QStringList values = p.values(WhereOption());
  if (values.size() > 1) {
    status = UsageError(io, "--where is given more than once");
    return false;
  }
  query = ParseQuery(values.isEmpty() ? std::string() : values.front().toStdString());
  if (query.readAsWords.empty()) return true;
  io.err << "chattelbook-sif: --where:";
  for (const auto& words : query.readAsWords) io.err << " " << words;
  io.err << " read as words\n";
  return true;
}

}  // namespace cb::sif
