#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "forms/recorder_controls.h"
#include "platform/failure.h"
#include "platform/number_text.h"
#include "platform/services/calendar.h"
#include "platform/services/file_system.h"

namespace packetroutines {

/// Tells on the Recorder view what of a recording is on disk, and since when a part of it is not.
/// It only looks on: a recording that cannot be stored goes on as the counters tell.
class DiskReport {
 public:
  DiskReport(forms::RecorderControls& recorder, const platform::FileSystem& files,
             const platform::Calendar& calendar, const platform::NumberText& numbers)
      : recorder_(recorder), files_(files), calendar_(calendar), numbers_(numbers) {}

  /// A recording begins.
  void Begin();
  /// One more ring of a stream stands whole in the file.
  void RingStored(std::size_t stream, const std::string& path);
  /// A ring was lost. The first reason of a recording stays: what follows comes of it.
  void NotStored(const platform::Failure& reason);

 private:
  forms::RecorderControls& recorder_;
  const platform::FileSystem& files_;
  const platform::Calendar& calendar_;
  const platform::NumberText& numbers_;
  std::array<std::int64_t, 2> rings_{};
};

}  // namespace packetroutines
