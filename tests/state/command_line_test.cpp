// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "gallery/DropRules.h"
#include "state/CommandLine.h"

namespace cb {
namespace {

using K = CommandLine::Kind;

TEST(CommandLine, ParsesOneFileOrHelpOrVersion) {
  struct Case {
    std::vector<std::string> args;
    K kind;
    std::string file;
  };
  const Case cases[] = {
      {{}, K::Run, ""},
      {{"a.sif"}, K::Run, "a.sif"},
      {{"--help"}, K::Help, ""},
      {{"a.sif", "-h"}, K::Help, ""},      // help wins wherever it stands
      {{"-x", "--version"}, K::Version, ""},  // even after a mistake
      {{"--", "-v"}, K::Run, "-v"},         // a file may begin with a dash
      {{"a.sif", "b.sif"}, K::Error, ""},
      {{"--frobnicate"}, K::Error, ""},
      {{"-"}, K::Run, "-"},
  };
  for (const auto& c : cases) {
    const CommandLine line = ParseCommandLine(c.args);
    SCOPED_TRACE(c.args.empty() ? "(none)" : c.args.front());
    EXPECT_EQ(line.kind, c.kind);
    EXPECT_EQ(line.file, c.file);
    EXPECT_EQ(line.message.empty(), c.kind != K::Error);
  }
}

TEST(DropRules, SortsByExtensionInAnyCase) {
  const std::vector<std::string> dropped{"/p/a.JPG", "/p/b.jpeg", "/p/c.png", "/p/d.Sif", "/p.jpg/e", "/p/f.jpg"};
  const SortedDrop drop = SortDrop(dropped);
  EXPECT_EQ(drop.pictures, (std::vector<std::string>{"/p/a.JPG", "/p/b.jpeg", "/p/f.jpg"}));
  EXPECT_EQ(drop.slideFiles, std::vector<std::string>{"/p/d.Sif"});
  EXPECT_EQ(drop.others, (std::vector<std::string>{"/p/c.png", "/p.jpg/e"}));
  EXPECT_TRUE(NotTakenText(drop.others).ends_with(":\n\nc.png\ne"));
}

}  // namespace
}  // namespace cb
