#pragma once

#include <string>
#include <string_view>

#include "base/local_time.h"
#include "config/settings.h"
#include "platform/services/file_system.h"
#include "recorder/writing/record_files.h"

namespace packetroutines {

/// The extension of a text recording.
inline constexpr std::string_view TextExtension =
    RecordFormats[forms::record_format::Text].Extension;

/// The recording that is looked at: which settings it was made with, and where it lies. The names
/// are those of one stream; the files of two streams bear prefixes, and nothing here finds them.
struct RecordedFile {
  const config::Settings& Settings;
  const config::RunSettings& Present;
  /// The bare name, or what stands in its place before the first recording.
  const std::string& RecordFileName;
  platform::FileSystem& Files;
  /// Another recording runs by now.
  const bool& Recording;

  std::string Path() const { return PathOf(RecordFileName); }
  std::string LogPath() const { return PathOf("Errorlog " + RecordFileName); }
  /// Something was recorded already.
  bool Exists() const {
    return !RecordFileName.empty() && RecordFileName.find("after 'RUN'") == std::string::npos;
  }

 private:
  std::string PathOf(const std::string& name) const { return RecordPath(Files, Settings, name); }
};

/// The moment that stands before `extension` in the name of a recording, as in
/// "SV record 09.03.2024 14-05-07.txt". Failure 5 where the name has no room for it, failure 13
/// where it is no date.
platform::LocalTime StartTimeOf(std::string_view recordFileName, std::string_view extension);

}  // namespace packetroutines
