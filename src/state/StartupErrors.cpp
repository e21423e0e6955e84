// SPDX-License-Identifier: GPL-3.0-or-later
#include "state/StartupErrors.h"

#include <array>

namespace cb {
namespace {

enum class Reaction { Silent, WallpaperMessage };

struct Row {
  RtError error;
  Reaction reaction;
};

constexpr std::array<Row, 4> kReactions{{
    {RtError::FileNotFound, Reaction::Silent},
    {RtError::PathFileAccess, Reaction::Silent},
    {RtError::PathNotFound, Reaction::Silent},
    {RtError::InvalidPicture, Reaction::WallpaperMessage},
}};

constexpr std::string_view kWallpaperTitle = "Wallpaper";

}  // namespace

std::optional<StartupMessage> StartupErrorMessage(RtError e, const std::string& appTitle) {
  if (e == RtError::None) return std::nullopt;
  for (const auto& row : kReactions) {
    if (row.error != e) continue;
    if (row.reaction == Reaction::Silent) return std::nullopt;
    return StartupMessage{NumberText(e) + ": " + std::string(Description(e)), std::string(kWallpaperTitle)};
  }
  return StartupMessage{std::string(Description(e)), appTitle};
}

}  // namespace cb
