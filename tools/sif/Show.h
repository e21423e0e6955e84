// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A plain-text listing of a Slide Information File for the terminal.

#include <string>

#include "find/SlideQuery.h"
#include "pack/SifFile.h"

namespace cb::sif {

// The file's settings, then each slide with the labels its template's editor
// gives the fields; blank fields are left out. UTF-8. A query that is not
// empty keeps to the slides it matches, each under its record number, with
// their count after the settings.
std::string ShowText(const std::string& path, const pack::SifDocument& doc, const SlideQuery& query = {});

}  // namespace cb::sif
