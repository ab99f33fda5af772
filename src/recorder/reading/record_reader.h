#pragma once

#include "recorder/reading/gap_search.h"

namespace packetroutines {

/// What follows a recording: the log of a text file, and a look at what was recorded.
class RecordReader {
 public:
  virtual ~RecordReader() = default;
  /// Writes the log; `nothingToRead` becomes True where there was no data to read.
  virtual void BuildRecordLog(bool& nothingToRead) = 0;
  virtual void ViewRecording() = 0;
  /// Writes the log of a recording whose samples were followed while they were stored.
  virtual void WriteLog(const GapSearch& followed) = 0;
};

}  // namespace packetroutines
