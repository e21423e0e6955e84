// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A temporary installation with a controller over in-memory settings.

#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

#include "base/Text.h"
#include "state/UIMainController.h"
#include "state/modGlobal.h"
#include "support/TempDir.h"

namespace cb::testing {

// A slide with the given fields assigned and the others never assigned.
inline SlideRecord Slide(std::initializer_list<std::pair<Field, std::string>> fields) {
  SlideRecord r;
  for (const auto& [f, v] : fields) r.Set(f, v);
  return r;
}

// `n` slides behind an empty header, slide i's text being `text` followed by i.
inline SlideArray Numbered(int n, const std::string& text) {
  SlideArray s(static_cast<std::size_t>(n) + 1);
  for (int i = 1; i <= n; ++i) s[static_cast<std::size_t>(i)].Set(Field::SlideText, text + std::to_string(i));
  return s;
}

class SifFixture : public ::testing::Test {
 protected:
  SifFixture() { std::filesystem::create_directories(app / "Files"); }

  // The controller of a program started with the current settings.
  UIMainController& Start() {
    g.MainController = std::make_unique<UIMainController>(app.str(), settings, g);
    return *g.MainController;
  }

  std::string FilesPath(const std::string& name) const { return app / ("Files/" + name); }

  TempDir app;
  MemorySettings settings;
  ModGlobal g;
};

}  // namespace cb::testing
