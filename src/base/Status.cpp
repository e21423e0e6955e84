// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Status.h"

#include <string>

namespace cb {

void Status::FillErrors(ErrorArray& errors) const {
  if (error_ != RtError::None) cb::FillErrors(errors, error_, source_);
  if (!description_.empty()) errors[2] = description_;
}

bool Report(const Status& s, ErrorArray& errors) {
  s.FillErrors(errors);
  return s.ok();
}

}  // namespace cb
