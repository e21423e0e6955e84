// SPDX-License-Identifier: GPL-3.0-or-later
#include "state/AppDirectory.h"

#include <array>
#include <filesystem>
#include <string_view>

namespace cb {
namespace {

namespace fs = std::filesystem;  // names only: the disk is reached through the Env

constexpr std::array<std::string_view, 4> kCopied{"Files", "Gallery", "Background", "Wallpaper"};
constexpr std::array<std::string_view, 2> kMadeEmpty{"Help", "Reports"};

struct Link {
  std::string_view name, target;
};
// The program spells these two folders both ways.
constexpr std::array<Link, 2> kLinks{{{"help", "Help"}, {"wallpaper", "Wallpaper"}}};

std::string Below(const std::string& dir, std::string_view name) { return (fs::path(dir) / name).string(); }

RtError Fill(Env& env, const std::string& shipped, const std::string& dir) {
  for (const auto folder : kCopied) {
    const std::string from = Below(shipped, folder);
    const RtError e = env.KindOf(from) == EntryKind::Directory ? env.CopyTree(from, Below(dir, folder))
                                                                : env.MakeDirectory(Below(dir, folder), 0777);
    if (e != RtError::None) return e;
  }
  for (const auto folder : kMadeEmpty)
    if (const RtError e = env.MakeDirectory(Below(dir, folder), 0777); e != RtError::None) return e;
  for (const auto& l : kLinks)
    if (const RtError e = env.MakeLink(std::string(l.target), Below(dir, l.name)); e != RtError::None) return e;
  return RtError::None;
}

std::string NotMade(const std::string& dir, std::string_view reason) {
  return "The folder " + dir + " could not be made: " + std::string(reason) + ".";
}

// Makes `dir` and the directories on the way to it.
RtError MakeDirectories(Env& env, const std::string& dir) {
  for (auto slash = dir.find('/', 1); slash != std::string::npos; slash = dir.find('/', slash + 1))
    if (const RtError e = env.MakeDirectory(dir.substr(0, slash), 0777); e != RtError::None) return e;
  return env.MakeDirectory(dir, 0777);
}

}  // namespace

std::string UserApplicationDirectory(const char* xdgDataHome, const char* home) {
  if (xdgDataHome && xdgDataHome[0] == '/') return (fs::path(xdgDataHome) / "Chattelbook").string();
  if (home && home[0] == '/') return (fs::path(home) / ".local/share/Chattelbook").string();
  return {};
}

bool SeedApplicationDirectory(const std::string& shipped, const std::string& target, std::string& message, Env& env) {
  if (env.KindOf(target) != EntryKind::Missing) return true;
  const std::string parent = fs::path(target).parent_path().string();
  std::string part;
  RtError e = MakeDirectories(env, parent);
  // The application directory is the user's ordinary folder, not a private one.
  if (e == RtError::None) e = env.MakeUniqueDirectory(parent + "/.Chattelbook.", 0755, part);
  if (e != RtError::None) {
    message = NotMade(target, Description(e));
    return false;
  }
  e = Fill(env, shipped, part);
  if (e == RtError::None) e = env.Rename(part, target);
  if (e != RtError::None) {
    env.RemoveTree(part);
    // Another start may have seeded it meanwhile; that one is as good.
    if (env.KindOf(target) == EntryKind::Directory) return true;
    message = NotMade(target, Description(e));
    return false;
  }
  return true;
}

AppDirectoryChoice ChooseApplicationDirectory(const std::string& exeDir, const char* xdgDataHome, const char* home,
                                              Env& env) {
  // Where the program stands tells, not whether it may write there: root may write an installation too.
  if (env.KindOf(Below(exeDir, kInstalledMarker)) != EntryKind::File) return {exeDir, {}};
  const std::string user = UserApplicationDirectory(xdgDataHome, home);
  if (user.empty()) return {exeDir, NotMade("~/.local/share/Chattelbook", "HOME is not set")};
  AppDirectoryChoice choice{user, {}};
  if (!SeedApplicationDirectory(exeDir, user, choice.failure, env)) choice.path = exeDir;
  return choice;
}

}  // namespace cb
