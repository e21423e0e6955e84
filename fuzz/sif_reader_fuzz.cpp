// Feeds arbitrary bytes to the Slide Information File reader: every input
// must end in a load or a filled error array, never a crash or an allocation
// from an unchecked count.
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "app/UIMainController.h"
#include "app/modGlobal.h"
#include "storage/DataAccess.h"

namespace {

std::string AppDirectory() {
  static const std::string dir = [] {
    const char* shm = "/dev/shm";
    const std::string base = std::filesystem::exists(shm) ? shm : std::filesystem::temp_directory_path().string();
    const std::string d = base + "/chattelbook-fuzz-" + std::to_string(::getpid());
    std::filesystem::create_directories(d + "/Files");
    return d;
  }();
  return dir;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string app = AppDirectory();
  const std::string path = app + "/Files/fuzz.sif";
  std::ofstream(path, std::ios::binary | std::ios::trunc).write(reinterpret_cast<const char*>(data),
                                                                static_cast<std::streamsize>(size));
  cb::MemorySettings settings;
  cb::ModGlobal g;
  cb::UIMainController mc(app, settings, g);
  mc.SetRegistryKeys(path);
  cb::ErrorArray errors;
  if (mc.LoadSettings(errors)) {
    if (static_cast<std::int32_t>(g.Slides.size()) - 1 != mc.NumberOfRecords()) std::abort();
    // What was read must save back without failing.
    if (!mc.SaveSettings(errors)) std::abort();
  } else if (errors[2].empty()) {
    std::abort();
  }
  return 0;
}
