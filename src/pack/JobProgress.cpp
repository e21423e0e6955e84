// SPDX-License-Identifier: GPL-3.0-or-later
#include "pack/JobProgress.h"

namespace cb::pack {

std::string StepText(const JobStep& step) {
  std::string text = std::string(step.unit) + " " + std::to_string(step.index);
  if (step.count > 0) text += " of " + std::to_string(step.count);
  return text;
}

}  // namespace cb::pack
