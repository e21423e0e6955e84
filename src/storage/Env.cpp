#include "storage/Env.h"

#include <algorithm>

#include "storage/FileSystem.h"
#include "storage/RandomFile.h"

namespace cb {
namespace {

class DiskEnv final : public Env {
 public:
  RtError OpenRecords(const std::string& path, std::size_t recordLength, OpenMode mode,
                      std::unique_ptr<RecordFile>& file) override {
    auto f = std::make_unique<RandomFile>();
    const RtError e = mode == OpenMode::Read ? f->OpenRead(path, recordLength) : f->Open(path, recordLength);
    if (e == RtError::None) file = std::move(f);
    return e;
  }
  std::string EntryName(const std::string& path) override { return DirEntryName(path); }
};

class MemoryFile final : public RecordFile {
 public:
  MemoryFile(std::string& bytes, std::size_t length) : bytes_(bytes), length_(length) {}

  RtError Get(long n, std::span<char> record) override {
    std::fill(record.begin(), record.end(), '\0');
    if (n < 1) return RtError::BadFileNameOrNumber;
    const std::size_t at = static_cast<std::size_t>(n - 1) * length_;
    if (at >= bytes_.size()) return RtError::None;
    const std::size_t count = std::min(record.size(), bytes_.size() - at);
    std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(at), count, record.begin());
    return RtError::None;
  }

  RtError Put(long n, std::span<const char> record) override {
    if (n < 1) return RtError::BadFileNameOrNumber;
    const std::size_t at = static_cast<std::size_t>(n - 1) * length_;
    if (bytes_.size() < at + record.size()) bytes_.resize(at + record.size(), '\0');
    std::copy(record.begin(), record.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(at));
    return RtError::None;
  }

  long long Size() override { return static_cast<long long>(bytes_.size()); }

 private:
  std::string& bytes_;
  std::size_t length_;
};

}  // namespace

Env& Env::Default() {
  static DiskEnv env;
  return env;
}

RtError MemoryEnv::OpenRecords(const std::string& path, std::size_t recordLength, OpenMode mode,
                               std::unique_ptr<RecordFile>& file) {
  auto it = files_.find(path);
  if (it == files_.end()) {
    if (mode == OpenMode::Read) return RtError::FileNotFound;
    it = files_.emplace(path, std::string()).first;
  }
  file = std::make_unique<MemoryFile>(it->second, recordLength);
  return RtError::None;
}

std::string MemoryEnv::EntryName(const std::string& path) {
  if (!files_.contains(path)) return {};
  const auto slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

}  // namespace cb
