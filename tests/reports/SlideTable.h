#pragma once
// Inventories written as small text tables, one slide a line:
//   PictureFile|SlideText|Category|Location|Serial|Value
// Blanks inside the bars are kept, so keys with padding can be written.
// Lines that are empty or start with "#" are skipped; Make, Model and Spare
// are blank.

#include <fstream>
#include <sstream>
#include <string>

#include "model/SlideRecord.h"

namespace cb::testing {

inline SlideArray ParseSlideTable(const std::string& text) {
  constexpr Field kColumns[] = {Field::PictureFile, Field::SlideText, Field::Category,
                                Field::Location,    Field::Serial,    Field::Value};
  SlideArray slides(1);
  std::istringstream in(text);
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty() || line[0] == '#') continue;
    SlideRecord r;
    for (Field f : {Field::Spare, Field::Make, Field::Model}) r.Set(f, "");
    std::size_t start = 0;
    for (Field f : kColumns) {
      const auto bar = line.find('|', start);
      r.Set(f, line.substr(start, bar == std::string::npos ? std::string::npos : bar - start));
      start = bar == std::string::npos ? line.size() : bar + 1;
    }
    slides.push_back(r);
  }
  return slides;
}

}  // namespace cb::testing
