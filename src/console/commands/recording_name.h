#pragma once

#include <optional>
#include <string>

#include "base/local_time.h"
#include "platform/services/file_system.h"

namespace console {

/// The name of a recording's file, and the folder that it lies in.
struct RecordingName {
  /// With the separator at its end; empty where the path names none.
  std::string Folder;
  std::string Name;

  /// The name without ".txt".
  std::string Base() const;
  /// The moment of RUN; nothing where the name does not tell it.
  std::optional<platform::LocalTime> Start() const;
  /// The name is that of a recording's second stream.
  bool OfSecondStream() const;
};

RecordingName NameOf(const platform::FileSystem& files, const std::string& path);

}  // namespace console
