// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Writes the program's help pages into the Help directory beside the
// program. Start-up runs it on a first use; the help viewer shows the pages.

#include <string>

#include "base/RuntimeError.h"
#include "storage/Env.h"

namespace cb {

class UIHelpController {
 public:
  // `appPath` is the application directory, without a trailing "/"; the
  // pages go to appPath + "/Help/", written through `env`, and their links
  // name appPath + "/help/".
  explicit UIHelpController(std::string appPath, Env& env = Env::Default());

  // Writes help001.htm to help016.htm (there is no help013.htm), each
  // replacing an older file. A page that cannot be written does not stop the
  // others; the result is false then. The Help directory is not created.
  bool GenerateHelp();

  // The last failure of a page, RtError::None while there was none.
  RtError LastError() const { return lastError_; }
  const std::string& LastErrorDescription() const { return lastErrorDescription_; }

 private:
  bool WriteHelpFile(const std::string& fileName, const std::string& pageText);
  void WritePageFooter(std::string& pageText) const;
  void WritePageHeader(const std::string& title, std::string& pageText) const;

  std::string appPath_;
  Env& env_;
  RtError lastError_ = RtError::None;
  std::string lastErrorDescription_;
};

}  // namespace cb
