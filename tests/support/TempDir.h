// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A fresh directory for one test, removed afterwards, and small file helpers.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace cb::testing {

class TempDir {
 public:
  TempDir() {
    std::random_device rd;
    path_ =
        std::filesystem::temp_directory_path() / ("chattelbook-test-" + std::to_string(rd()) + std::to_string(rd()));
    std::filesystem::create_directories(path_);
  }
  ~TempDir() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
  }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  // The directory without a trailing "/", as the platform reports an application directory.
  std::string str() const { return path_.string(); }
  std::string operator/(const std::string& rel) const { return (path_ / rel).string(); }

 private:
  std::filesystem::path path_;
};

inline std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline void WriteFile(const std::string& path, const std::string& bytes) {
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  std::ofstream(path, std::ios::binary) << bytes;
}

// The bytes of a fixture written as hexadecimal text; whitespace is ignored.
inline std::string ReadHex(const std::string& path) {
  std::string hex, bytes;
  for (char c : ReadFile(path))
    if (!std::isspace(static_cast<unsigned char>(c))) hex += c;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
    bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
  return bytes;
}

}  // namespace cb::testing
