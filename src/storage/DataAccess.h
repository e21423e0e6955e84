#pragma once
// The only class that touches the data files. Stateless: a new instance
// serves one call. See doc/sif-format.md for the Slide Information File.

#include "app/RuntimeError.h"
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

  // The largest count a load or save can loop over.
  static constexpr long kMaxRecords = 32767;

 private:
  UIMainController& mc_;
  SlideArray& slides_;
};

}  // namespace cb
