#include "state/AppDirectory.h"

#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string_view>

namespace cb {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 4> kCopied{"Files", "Gallery", "Background", "Wallpaper"};
constexpr std::array<std::string_view, 2> kMadeEmpty{"Help", "Reports"};

struct Link {
  std::string_view name, target;
};
// The program spells these two folders both ways.
constexpr std::array<Link, 2> kLinks{{{"help", "Help"}, {"wallpaper", "Wallpaper"}}};

bool Fill(const fs::path& shipped, const fs::path& dir, std::error_code& ec) {
  for (const auto folder : kCopied) {
    const fs::path from = shipped / folder;
    if (fs::is_directory(from, ec))
      fs::copy(from, dir / folder, fs::copy_options::recursive, ec);
    else
      fs::create_directory(dir / folder, ec);
    if (ec) return false;
  }
  for (const auto folder : kMadeEmpty)
    if (!fs::create_directory(dir / folder, ec) && ec) return false;
  for (const auto& l : kLinks) {
    fs::create_directory_symlink(l.target, dir / l.name, ec);
    if (ec) return false;
  }
  return true;
}

}  // namespace

std::string UserApplicationDirectory(const char* xdgDataHome, const char* home) {
  if (xdgDataHome && xdgDataHome[0] == '/') return (fs::path(xdgDataHome) / "Chattelbook").string();
  if (home && home[0] == '/') return (fs::path(home) / ".local/share/Chattelbook").string();
  return {};
}

bool SeedApplicationDirectory(const std::string& shipped, const std::string& target, std::string& message) {
  std::error_code ec;
  if (fs::exists(target, ec)) return true;
  const fs::path parent = fs::path(target).parent_path();
  fs::create_directories(parent, ec);
  std::string part = (parent / ".Chattelbook.XXXXXX").string();
  if (ec || !::mkdtemp(part.data())) {
    message = target + ": " + (ec ? ec.message() : std::string("cannot be made"));
    return false;
  }
  // mkdtemp makes the folder private; the application directory is the user's ordinary folder.
  fs::permissions(part, fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec |
                            fs::perms::others_read | fs::perms::others_exec, ec);
  if (Fill(shipped, part, ec)) fs::rename(part, target, ec);
  if (ec) {
    message = target + ": " + ec.message();
    std::error_code ignored;
    fs::remove_all(part, ignored);
    // Another start may have seeded it meanwhile; that one is as good.
    return fs::is_directory(target, ignored);
  }
  return true;
}

std::string ChooseApplicationDirectory(const std::string& exeDir, bool exeDirWritable, const char* xdgDataHome,
                                       const char* home) {
  if (exeDirWritable) return exeDir;
  const std::string user = UserApplicationDirectory(xdgDataHome, home);
  std::string message;
  if (user.empty() || !SeedApplicationDirectory(exeDir, user, message)) return exeDir;
  return user;
}

}  // namespace cb
