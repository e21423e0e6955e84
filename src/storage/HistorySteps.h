// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The names of the steps of a slide file's undo history, as the Edit menu
// shows them after "Undo" and "Redo" and chattelbook-sif history lists them.

#include <string_view>

namespace cb::steps {

inline constexpr std::string_view kEditSlide = "Edit Slide";
inline constexpr std::string_view kAddSlide = "Add Slide";
inline constexpr std::string_view kRemoveSlide = "Remove Slide";
inline constexpr std::string_view kModifyCollection = "Modify Slide Collection";
inline constexpr std::string_view kRemoveMissing = "Remove Missing Slides";
inline constexpr std::string_view kRestoreRemoved = "Restore Removed Slides";
inline constexpr std::string_view kChangeBackground = "Change Background";
inline constexpr std::string_view kSetWallpaper = "Set Wallpaper";
inline constexpr std::string_view kChooseReportFont = "Choose Report Font";
inline constexpr std::string_view kNewFile = "New";
inline constexpr std::string_view kSetTemplate = "Set Slide Template";
inline constexpr std::string_view kSaveAs = "Save As";
inline constexpr std::string_view kImport = "Import";
inline constexpr std::string_view kRestore = "Restore";
// A save that names no step of its own.
inline constexpr std::string_view kChange = "Change";

}  // namespace cb::steps
