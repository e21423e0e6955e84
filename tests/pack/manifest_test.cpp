// SPDX-License-Identifier: GPL-3.0-or-later
// The manifest of a backup reads back every name it writes.

#include <gtest/gtest.h>

#include "pack/Manifest.h"

namespace cb::pack {
namespace {

// Names sha256sum escapes, and others it keeps as they are.
TEST(Backup, ManifestKeepsEveryNameItWrites) {
  Manifest m;
  for (const std::string name : {"Gallery/two\nlines.jpg", "Gallery/back\\slash\\n.jpg", "Gallery/\xE9t\xE9.jpg",
                                 "  Gallery/lead.jpg", "Gallery/\\", "Gallery/\r.jpg"}) {
    m.hashes[name] = Sha256Hex(name);
    m.order.push_back(name);
    m.missing.push_back(name + "-gone");
  }
  std::string message;
  const auto back = ParseManifest(ManifestText(m, "Home.sif"), message);
  ASSERT_TRUE(back) << message;
  EXPECT_EQ(back->hashes, m.hashes);
  EXPECT_EQ(back->order, m.order);
  EXPECT_EQ(back->missing, m.missing);
}

}  // namespace
}  // namespace cb::pack
