// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The run-time errors the program reacts to, with the numbers and
// descriptions users see in messages and in an error array.

#include <array>
#include <string>
#include <string_view>

namespace cb {

enum class RtError {
  None = 0,
  InvalidCall = 5,
  Overflow = 6,
  OutOfMemory = 7,
  SubscriptOutOfRange = 9,
  TypeMismatch = 13,
  BadFileNameOrNumber = 52,
  FileNotFound = 53,
  DeviceIO = 57,
  DiskFull = 61,
  InputPastEnd = 62,
  PathFileAccess = 75,
  PathNotFound = 76,
  ObjectNotSet = 91,
  InvalidPicture = 481,
};

// The error's number as decimal text, e.g. "53".
std::string NumberText(RtError e);
// The platform's description, e.g. "File not found".
std::string_view Description(RtError e);

// Number, source and description of the last failure, indexes 0 to 2.
using ErrorArray = std::array<std::string, 3>;

// Fills all three strings of `errors` for a failure of `e` raised in `source`.
void FillErrors(ErrorArray& errors, RtError e, std::string_view source);

// Maps a C library errno to the error that a file operation raises.
RtError FromErrno(int err);

}  // namespace cb
