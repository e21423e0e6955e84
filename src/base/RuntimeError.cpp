// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/RuntimeError.h"

#include <cerrno>

namespace cb {
namespace {

struct ErrorRow {
  RtError error;
  std::string_view description;
};

constexpr std::array<ErrorRow, 15> kErrors{{
    {RtError::None, ""},
    {RtError::InvalidCall, "Invalid procedure call or argument"},
    {RtError::Overflow, "Overflow"},
    {RtError::OutOfMemory, "Out of memory"},
    {RtError::SubscriptOutOfRange, "Subscript out of range"},
    {RtError::TypeMismatch, "Type mismatch"},
    {RtError::BadFileNameOrNumber, "Bad file name or number"},
    {RtError::FileNotFound, "File not found"},
    {RtError::DeviceIO, "Device I/O error"},
    {RtError::DiskFull, "Disk full"},
    {RtError::InputPastEnd, "Input past end of file"},
    {RtError::PathFileAccess, "Path/File access error"},
    {RtError::PathNotFound, "Path not found"},
    {RtError::ObjectNotSet, "Object variable or With block variable not set"},
    {RtError::InvalidPicture, "Invalid picture"},
}};

}  // namespace

std::string NumberText(RtError e) { return std::to_string(static_cast<int>(e)); }

std::string_view Description(RtError e) {
  for (const auto& row : kErrors)
    if (row.error == e) return row.description;
  return "Application-defined or object-defined error";
}

void FillErrors(ErrorArray& errors, RtError e, std::string_view source) {
  errors[0] = NumberText(e);
  errors[1] = std::string(source);
  errors[2] = std::string(Description(e));
}

RtError FromErrno(int err) {
  switch (err) {
    case ENOENT: return RtError::FileNotFound;
    case ENOTDIR: return RtError::PathNotFound;
    case ENOSPC:
    case EDQUOT: return RtError::DiskFull;
    case EIO: return RtError::DeviceIO;
    case ENAMETOOLONG: return RtError::BadFileNameOrNumber;
    case ENOMEM: return RtError::OutOfMemory;
    default: return RtError::PathFileAccess;  // EACCES, EISDIR, EROFS, EPERM, ...
  }
}

}  // namespace cb
