// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The long-lived state of one run of the program, shared by every window.

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "base/RuntimeError.h"
#include "model/SlideRecord.h"
#include "state/UIMainController.h"
#include "storage/SmallFiles.h"

namespace cb {

struct ModGlobal {
  // The one application controller, made first at start-up.
  std::unique_ptr<UIMainController> MainController;
  // The open collection: element 0 the header, 1..n the slides.
  SlideArray Slides = SlideArray(1);
  // The last storage failure: number, source, description.
  ErrorArray ErrorInfo;
  // Set by edits, cleared by a load or save; the program saves at each edit instead.
  bool SlidesChanged = false;
  std::int32_t GalleryScrollValue = 0;
  // What the gallery's find bar holds (UTF-8): it outlives the gallery's
  // rebuilds, and opening another file clears it.
  std::string FindQuery;
  FileHistory History;
  bool SplashDismissed = false;
  // Where the last mouse press happened, in twips; what's-this notes open there.
  std::int32_t MouseX = 0;
  std::int32_t MouseY = 0;
  std::array<std::string, 16> BackgroundNames;
};

// The process's one instance.
ModGlobal& Globals();

}  // namespace cb
