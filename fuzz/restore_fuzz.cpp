// SPDX-License-Identifier: GPL-3.0-or-later
// Feeds arbitrary bytes to the manifest parser, and the same bytes, gzipped
// as a backup is, as the tar stream of an archive to the restore's check:
// every input must end in a result or a failure told in UTF-8 words, never a
// crash; a manifest that reads must write back to the same, and a plan must
// hold just what its manifest names.
#include <archive.h>
#include <archive_entry.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/Utf8Locale.h"
#include "pack/Backup.h"
#include "pack/Manifest.h"

namespace {

using namespace cb::pack;

void Require(bool holds) {
  if (!holds) std::abort();
}

void Manifests(std::string_view text) {
  std::string message;
  const auto m = ParseManifest(text, message);
  if (!m) return Require(!message.empty() && IsUtf8(message));
  const auto back = ParseManifest(ManifestText(*m, "fuzz.sif"), message);
  Require(back && back->hashes == m->hashes && back->order == m->order && back->missing == m->missing);
}

// `bytes` as one gzip stream, as the backup writes its tar.
std::string Gzipped(const std::uint8_t* bytes, std::size_t size) {
  std::string out(size + size / 8 + 4096, '\0');
  std::size_t used = 0;
  archive* a = archive_write_new();
  archive_write_add_filter_gzip(a);
  archive_write_set_format_raw(a);
  archive_write_set_bytes_in_last_block(a, 1);
  archive_write_open_memory(a, out.data(), out.size(), &used);
  archive_entry* e = archive_entry_new();
  archive_entry_set_filetype(e, AE_IFREG);
  archive_write_header(a, e);
  archive_write_data(a, bytes, size);
  archive_entry_free(e);
  Require(archive_write_close(a) == ARCHIVE_OK);
  archive_write_free(a);
  out.resize(used);
  return out;
}

// The archive lives in memory, reached by a path as the restore wants one.
void Archives(const std::uint8_t* bytes, std::size_t size) {
  static const int fd = memfd_create("archive", 0);
  static const std::string path = "/proc/self/fd/" + std::to_string(fd);
  const std::string gz = Gzipped(bytes, size);
  Require(ftruncate(fd, 0) == 0 && pwrite(fd, gz.data(), gz.size(), 0) == static_cast<ssize_t>(gz.size()));
  RestorePlan plan;
  const cb::Status s = PlanRestore(path, "/nonexistent/app", Unwatched, plan);
  if (!s.ok()) return Require(!s.description().empty() && IsUtf8(s.description()));
  Require(plan.entries.size() == plan.manifest.order.size() && plan.existing.empty());
  for (const auto& e : plan.entries) Require(IsBackupName(e.name) && plan.manifest.hashes.at(e.name) == e.hash);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  cb::UseUtf8CharacterType();  // as the program and chattelbook-sif run
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Manifests(std::string_view(reinterpret_cast<const char*>(data), size));
  Archives(data, size);
  return 0;
}
