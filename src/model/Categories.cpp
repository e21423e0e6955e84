// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Categories.h"

#include <unordered_set>

#include "base/Text.h"

namespace cb {
namespace {

std::int32_t DistinctValues(const SlideArray& slides, Field field, KeyList& list) {
  if (list.empty()) list.emplace_back();
  std::unordered_set<std::string> seen;
  for (std::size_t j = 1; j < list.size(); ++j) seen.insert(Trim(list[j]));
  std::int32_t added = 0;
  for (std::size_t i = 1; i < slides.size(); ++i) {
    std::string t = Trim(slides[i].Get(field));
    if (t.empty() || !seen.insert(t).second) continue;
    list.push_back(std::move(t));
    ++added;
  }
  return added;
}

}  // namespace

std::int32_t GetCategories(const SlideArray& slides, KeyList& list) {
  return DistinctValues(slides, Field::Category, list);
}

std::int32_t GetLocations(const SlideArray& slides, KeyList& list) {
  return DistinctValues(slides, Field::Location, list);
}

}  // namespace cb
