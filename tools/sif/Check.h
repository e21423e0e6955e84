// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What a load of a Slide Information File would meet, found in its bytes.

#include <optional>
#include <string>
#include <vector>

namespace cb::sif {

// Appends one line to `findings` for each fault a load would meet: a slide
// count beyond the records, above 32767 or no number; a template outside 1
// to 3; NUL bytes in the used fields; a length that cuts the last record
// short; and, with `galleryDir`, each picture that is not in that directory.
// False, with `message` filled, only when the file cannot be read.
bool CheckSif(const std::string& path, const std::optional<std::string>& galleryDir,
              std::vector<std::string>& findings, std::string& message);

}  // namespace cb::sif
