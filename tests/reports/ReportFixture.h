#pragma once
// A temporary installation with a report controller over a given inventory.

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "reports/UIReportController.h"
#include "state/SettingsStore.h"
#include "state/UIMainController.h"
#include "state/modGlobal.h"
#include "support/TempDir.h"

namespace cb::testing {

// The date every test page shows.
inline constexpr char kTestDate[] = "22/11/2026 20:07:34";
// The open file as the links of every test page name it.
inline constexpr char kTestFilePath[] = "/home/ann/Chattelbook/Files/Household.sif";

class ReportFixture : public ::testing::Test {
 protected:
  ReportFixture() {
    mc = std::make_unique<UIMainController>(app.str(), settings, g);
    mc->SlideInformationFilePath(kTestFilePath);
    mc->SlideTemplate(1);
  }

  // A controller over g.Slides with the test locale and `font`.
  UIReportController& Controller(const std::string& font = "Arial Narrow") {
    ReportLocale locale;
    locale.generalDate = [] { return std::string(kTestDate); };
    reports = std::make_unique<UIReportController>(*mc, g.Slides, g.ErrorInfo, locale);
    reports->ReportFont(font);
    return *reports;
  }

  // A page as written, line end included.
  std::string Page(const std::string& name) const { return ReadFile(app / ("Reports/" + name)); }
  bool Exists(const std::string& name) const { return std::filesystem::exists(app / ("Reports/" + name)); }

  TempDir app;
  MemorySettings settings;
  ModGlobal g;
  std::unique_ptr<UIMainController> mc;
  std::unique_ptr<UIReportController> reports;
};

}  // namespace cb::testing
