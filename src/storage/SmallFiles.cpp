// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/SmallFiles.h"

#include <cstdlib>

#include "base/Text.h"
#include "storage/DataAccess.h"
#include "storage/Scramble.h"

namespace cb {
namespace {

constexpr std::string_view kSource = "DataAccess";
constexpr char kPasswordFile[] = "dprpz.dat";
constexpr char kHistoryFile[] = "/fhistlst.dat";
constexpr std::size_t kPasswordLength = 8;

constexpr unsigned kPasswordMode = 0600;
constexpr unsigned kNewFileMode = 0666;

// Opens the password file, making the program's directory and the file
// (readable by its owner alone) when they are missing.
RtError OpenPasswordFile(Env& env, std::unique_ptr<RecordFile>& file, std::string& path) {
  const std::string dir = PasswordDirectory();
  if (!dir.empty()) {
    // A folder that cannot be made is told by the open below.
    const std::string parent = dir.substr(0, dir.rfind('/', dir.size() - 2) + 1);
    env.MakeDirectory(parent, 0700);
    env.MakeDirectory(dir, 0700);
  }
  path = dir + kPasswordFile;
  return env.OpenRecords(path, kPasswordLength, OpenMode::ReadWritePrivate, file);
}

// These files have always told a failed write as a device error. A missing
// directory on the way stays "path not found" and a refusal "path or file
// access"; any other failure is the file's own error.
RtError WriteError(RtError e, RtError otherwise) {
  switch (e) {
    case RtError::DiskFull:
    case RtError::DeviceIO: return RtError::DeviceIO;
    case RtError::PathNotFound:
    case RtError::PathFileAccess: return e;
    default: return otherwise;
  }
}

std::string Quoted(std::string_view s) { return "\"" + std::string(s) + "\""; }

}  // namespace

std::string PasswordDirectory() {
  std::string base;
  if (const char* xdg = std::getenv("XDG_CONFIG_HOME"); xdg && *xdg) {
    base = xdg;
  } else if (const char* home = std::getenv("HOME"); home && *home) {
    base = std::string(home) + "/.config";
  } else {
    return {};
  }
  base = StripAtNul(base);
  EnsureTrailingBackslash(base);
  return base + "Chattelbook/";
}

std::string WriteLine(const std::vector<std::string>& fields) {
  std::string line;
  for (std::size_t i = 0; i < fields.size(); ++i) line += (i ? "," : "") + Quoted(fields[i]);
  return line + "\r\n";
}

std::vector<std::string> ReadFields(std::string_view text, std::size_t count) {
  std::vector<std::string> out;
  std::size_t i = 0;
  const auto skipBlanks = [&] { while (i < text.size() && text[i] == ' ') ++i; };
  while (out.size() < count) {
    // Line ends between fields are passed over like blanks.
    while (i < text.size() && (text[i] == ' ' || text[i] == '\r' || text[i] == '\n')) ++i;
    if (i >= text.size()) break;
    std::string field;
    if (text[i] == '"') {
      const auto close = text.find('"', i + 1);
      field = std::string(text.substr(i + 1, close == std::string_view::npos ? std::string_view::npos : close - i - 1));
      i = close == std::string_view::npos ? text.size() : close + 1;
      skipBlanks();
    } else {
      const auto end = text.find_first_of(",\r\n", i);
      field = Trim(text.substr(i, end == std::string_view::npos ? std::string_view::npos : end - i));
      i = end == std::string_view::npos ? text.size() : end;
    }
    if (i < text.size() && text[i] == ',') ++i;
    out.push_back(std::move(field));
  }
  return out;
}

Status DataAccess::PutPassword(const std::string& password) {
  std::unique_ptr<RecordFile> file;
  std::string path, bytes;
  if (auto e = OpenPasswordFile(env_, file, path); e != RtError::None) return {e, kSource};
  file.reset();
  if (auto e = env_.ReadWhole(path, bytes); e != RtError::None) return {e, kSource};
  std::string record = ScrambleField(password);
  record.resize(kPasswordLength, ' ');
  RecordsOver(bytes, kPasswordLength)->Put(1, record);
  if (auto e = ReplaceFile(env_, path, bytes, kPasswordMode); e != RtError::None) return {e, kSource};
  return {};
}

Status DataAccess::GetPassword(std::string& password) {
  std::unique_ptr<RecordFile> file;
  std::string path;
  if (auto e = OpenPasswordFile(env_, file, path); e != RtError::None) return {e, kSource};
  std::string record(kPasswordLength, '\0');
  if (auto e = file->Get(1, record); e != RtError::None) return {e, kSource};
  password = UnscrambleField(record);
  return {};
}

Status DataAccess::GetFileHistoryList(const std::string& appPath, FileHistory& history) {
  std::string text;
  // Whatever keeps the list from being read, it is told as missing.
  if (env_.ReadWhole(appPath + kHistoryFile, text) != RtError::None) return {RtError::FileNotFound, kSource};
  const auto fields = ReadFields(text, kHistoryEntries);
  for (std::size_t i = 0; i < fields.size(); ++i) history[i + 1] = fields[i];
  if (fields.size() < kHistoryEntries) return {RtError::InputPastEnd, kSource};
  return {};
}

Status DataAccess::PutFileHistoryList(const std::string& appPath, const FileHistory& history) {
  const RtError e = ReplaceFile(env_, appPath + kHistoryFile, WriteLine({history.begin() + 1, history.end()}),
                                kNewFileMode);
  if (e != RtError::None) return {WriteError(e, RtError::PathFileAccess), kSource};
  return {};
}

Status DataAccess::SaveReport(const std::string& reportsDirectory, const std::string& fileName,
                              const std::string& text) {
  if (const RtError made = env_.MakeDirectory(reportsDirectory, 0755); made != RtError::None)
    return {WriteError(made, RtError::PathNotFound), kSource};
  const RtError e = ReplaceFile(env_, fileName, text + std::string(kReportLineEnd), kNewFileMode);
  if (e != RtError::None) return {WriteError(e, RtError::PathNotFound), kSource};
  return {};
}

}  // namespace cb
