// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A plain-text listing of a Slide Information File for the terminal.

#include <string>

#include "pack/SifFile.h"

namespace cb::sif {

// The file's settings, then each slide with the labels its template's editor
// gives the fields; blank fields are left out. UTF-8.
std::string ShowText(const std::string& path, const pack::SifDocument& doc);

}  // namespace cb::sif
