#pragma once
// The only class that touches the data files. Stateless: a new instance
// serves one call. See doc/sif-format.md for the Slide Information File.

#include <array>
#include <string>

#include "base/RuntimeError.h"
#include "storage/SlideRecord.h"

namespace cb {

class UIMainController;

class DataAccess {
 public:
  // `controller` gives the paths and takes the header's settings;
  // `slides` is the collection that is written or replaced.
  DataAccess(UIMainController& controller, SlideArray& slides) : mc_(controller), slides_(slides) {}

  // Rewrites every record of the open file at SlideInformationFilePath from a
  // scrambled copy of the slides. The file keeps its length: records behind
  // the last slide stay. On failure fills `errors` and returns false; records
  // already written stay written.
  bool SaveSettings(ErrorArray& errors);

  // Reads the file named SlideInformationFile from the installation's files
  // directory, after checking that the chosen path names it exactly. Replaces
  // the slides and the header's settings. On failure fills `errors` (only
  // errors[2] when the file is not found) and leaves the slides unchanged.
  bool LoadSettings(ErrorArray& errors);

  // The password shared by every installation of this user, in "dprpz.dat"
  // under PasswordDirectory(): one 8-byte scrambled record. A missing file
  // is created empty; an empty or blank record means no password.
  bool PutPassword(const std::string& password, ErrorArray& errors);
  bool GetPassword(std::string& password, ErrorArray& errors);

  // The four last files, "fhistlst.dat" in the application directory, one
  // line of four quoted strings. `history` uses indexes 1 to 4. A read that
  // fails leaves the entries read so far filled.
  bool GetFileHistoryList(std::array<std::string, 5>& history, ErrorArray& errors);
  bool PutFileHistoryList(const std::array<std::string, 5>& history, ErrorArray& errors);

  // Writes `text` and a line end to `fileName` (a full path), replacing it,
  // and makes the reports directory when it is missing.
  bool SaveReport(const std::string& fileName, const std::string& text, ErrorArray& errors);

  // The largest count a load or save can loop over.
  static constexpr long kMaxRecords = 32767;

 private:
  UIMainController& mc_;
  SlideArray& slides_;
};

}  // namespace cb
