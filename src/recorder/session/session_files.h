#pragma once

#include "recorder/writing/writing.h"

namespace packetroutines {

/// The files of a recording at its RUN and at its end, in whatever format: what an earlier one has
/// left open, what a file needs to be complete, and whether there is a file to read back.
class SessionFiles {
 public:
  explicit SessionFiles(Writing& writing) : writing_(writing) {}

  /// RUN: frees what a failure has left open, and finishes what a change of the tab has.
  void Begin();
  /// STOP: gives the files their end.
  void Finish();
  /// The recording ends with the program: the same, with nobody to tell.
  void FinishForGood();
  /// Whether what follows the recording finds the file that it reads; the view tells where not. A
  /// text file that is missing is made, as the reader would; a failure of that leaves through here.
  bool FindToRead();

 private:
  Writing& writing_;
};

}  // namespace packetroutines
