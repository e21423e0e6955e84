// SPDX-License-Identifier: GPL-3.0-or-later
// Feeds arbitrary bytes to the Slide Information File load, held in memory:
// every input must end in a load or a failure that names its error, never a
// crash or an allocation from an unchecked count.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "storage/DataAccess.h"

namespace {

constexpr char kPath[] = "/app/Files/fuzz.sif";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  cb::MemoryEnv env;
  env.Files()[kPath].assign(reinterpret_cast<const char*>(data), size);
  const cb::SifPaths paths{kPath, "fuzz.sif", kPath};
  cb::SifSettings settings;
  cb::SlideArray slides(1);
  cb::DataAccess access(env);
  const cb::Status loaded = access.LoadSettings(paths, settings, slides);
  if (loaded.ok()) {
    if (static_cast<std::int32_t>(slides.size()) - 1 != settings.NumberOfRecords) std::abort();
    // What was read must save back without failing.
    if (!access.SaveSettings(kPath, settings, slides).ok()) std::abort();
  } else if (loaded.description().empty()) {
    std::abort();
  }
  return 0;
}
