#pragma once

#include <string>

#include "capture/acquisition_state.h"
#include "forms/recorder_controls.h"
#include "recorder/writing/writing.h"

namespace packetroutines {

/// The files of a recording at its RUN and at its end, in whatever format: their name, what an
/// earlier one has left open, what a file needs to be complete, and whether there is a file to read
/// back.
class SessionFiles {
 public:
  SessionFiles(forms::RecorderControls& recorder, RecordFields& record, Writing& writing)
      : recorder_(recorder), record_(record), writing_(writing) {}

  /// RUN: frees what a failure has left open, and finishes what a change of the tab has.
  void Begin();
  /// The name that files of the format that is set have at this moment; empty without a format.
  std::string NameOfNow() const;
  /// A file of this name, or of a stream under it, is there.
  bool IsTaken(const std::string& name) const;
  /// The files have this name from now on, and the view tells so; an empty one leaves the name as
  /// it is.
  void Name(const std::string& name);
  /// Takes the name for this recording alone, by making the file of its events. Where that or a
  /// file of samples is there already, of another program that records into the same folder or of
  /// the hour that a clock was set back by, it takes the next second that is free. True where the
  /// name is another one now. A folder that takes no file leaves the name as it is.
  bool Claim();
  /// STOP: gives the files their end.
  void Finish();
  /// The recording goes on in others: the same.
  void FinishPart();
  /// The recording ends with the program: the same, with nobody to tell.
  void FinishForGood();
  /// Whether what follows the recording finds the file that it reads; the view tells where not. A
  /// text file that is missing is made, as the reader would; a failure of that leaves through here.
  bool FindToRead();

 private:
  std::string PathOf(const std::string& name) const;
  /// What comes before the end of a file, in whatever format.
  void LookForFiles();

  forms::RecorderControls& recorder_;
  RecordFields& record_;
  Writing& writing_;
};

}  // namespace packetroutines
