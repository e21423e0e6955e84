// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The one shape of a failure in the core: the run-time error and where it
// was raised. Every core operation that can fail returns one; a window or
// the global state turns it into its three strings only where it keeps them.

#include <string>
#include <string_view>

#include "base/RuntimeError.h"

namespace cb {

class [[nodiscard]] Status {
 public:
  // Success.
  Status() = default;
  // `source` names the raiser; the status keeps its own copy of every text.
  Status(RtError error, std::string_view source) : error_(error), source_(source) {}
  // A failure raised in `source`, told in words of its own rather than the error's.
  Status(RtError error, std::string_view source, std::string_view description)
      : error_(error), source_(source), description_(description) {}
  // A failure the user is told in words alone, with no error number.
  static Status Described(std::string_view description) {
    Status s;
    s.description_ = description;
    return s;
  }

  bool ok() const { return error_ == RtError::None && description_.empty(); }
  RtError error() const { return error_; }
  std::string_view source() const { return source_; }
  // The description users see: the words of a described failure, else the error's.
  std::string_view description() const { return description_.empty() ? Description(error_) : description_; }

  // Fills number, source and description; a failure described without an
  // error fills only the description. Success leaves `errors` as it was.
  void FillErrors(ErrorArray& errors) const;

 private:
  RtError error_ = RtError::None;
  std::string source_;
  std::string description_;
};

// Fills `errors` from `s` and tells whether `s` succeeded.
bool Report(const Status& s, ErrorArray& errors);

}  // namespace cb
