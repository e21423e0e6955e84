// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "state/UIMainController.h"
#include "state/modGlobal.h"

namespace cb {
namespace {

struct TailRow {
  std::string appPath;
  std::string sif, gallery, graphics, reports, root;
};

// Beside a directory that ends in "/" the tails lose their first characters.
const TailRow kTails[] = {
    {"/opt/chattelbook", "/Files/", "/Gallery/", "/Background/", "/Reports/", "/"},
    {"/", "/Files/", "Gallery/", "ckground/", "Reports/", ""},
};

TEST(MainControllerTest, TailsFollowTheLastCharacterOfTheApplicationDirectory) {
  for (const auto& row : kTails) {
    SCOPED_TRACE(row.appPath);
    MemorySettings settings;
    ModGlobal g;
    UIMainController mc(row.appPath, settings, g);
    EXPECT_EQ(mc.GetSIFDirectory(), row.sif);
    EXPECT_EQ(mc.GetGalleryDirectory(), row.gallery);
    EXPECT_EQ(mc.GetGraphicsDirectory(), row.graphics);
    EXPECT_EQ(mc.GetReportsDirectory(), row.reports);
    EXPECT_EQ(mc.GetRootDirectory(), row.root);
  }
}

struct SplitRow {
  std::string path, directory, file;
};

const SplitRow kSplits[] = {
    {"/home/ann/Files/MyFiles.sif", "/home/ann/Files/", "MyFiles.sif"},
    {"/a.b/c d.e.sif", "/a.b/", "c d.e.sif"},
    {"/x/", "/x/", ""},
    {"/top.sif", "/", "top.sif"},
    {"bare.sif", "bare.sif", "kept.sif"},  // no directory: the name cannot be cut out
};

TEST(MainControllerTest, PathSplitsAtTheLastSlash) {
  for (const auto& row : kSplits) {
    SCOPED_TRACE(row.path);
    MemorySettings settings;
    ModGlobal g;
    UIMainController mc("/app", settings, g);
    mc.SlideInformationFile("kept.sif");
    mc.SlideInformationFilePath(row.path);
    EXPECT_EQ(mc.SlideInformationPath(), row.directory);
    EXPECT_EQ(mc.SlideInformationFile(), row.file);
  }
}

TEST(MainControllerTest, RegistryKeysNameTheFileOfTheNextStart) {
  MemorySettings settings;
  ModGlobal g;
  UIMainController first("/app", settings, g);
  EXPECT_FALSE(first.SetRegistryKeys(""));
  EXPECT_FALSE(settings.Has("Startup", "DefDir"));
  EXPECT_FALSE(settings.Has("AppDir", "AppDir"));
  ASSERT_TRUE(first.SetRegistryKeys("/data/Cars.sif"));
  EXPECT_EQ(first.SlideInformationFile(), "Cars.sif");
  EXPECT_EQ(settings.Get("AppDir", "AppDir", ""), "/app");

  UIMainController next("/app", settings, g);
  EXPECT_FALSE(next.FirstRun);
  EXPECT_EQ(next.SlideInformationFilePath(), "/data/Cars.sif");
  EXPECT_EQ(next.SlideInformationPath(), "/data/");
}

}  // namespace
}  // namespace cb
