#pragma once

namespace packetroutines {

/// What follows a recording: the log of a text file, and a look at what was recorded.
class RecordReader {
 public:
  virtual ~RecordReader() = default;
  /// Writes the log; `nothingToRead` becomes True where there was no data to read.
  virtual void BuildRecordLog(bool& nothingToRead) = 0;
  virtual void ViewRecording() = 0;
};

}  // namespace packetroutines
