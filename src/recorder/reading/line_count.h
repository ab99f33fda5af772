#pragma once

#include <cstdint>
#include <string>

#include "platform/services/file_system.h"
#include "recorder/reading/analysis_progress.h"

namespace packetroutines {

/// The carriage returns of a file. A file that does not exist is made, with nothing in it. Failure
/// 6 where they are more than a 32-bit integer holds.
std::int32_t CountFileLines(platform::FileSystem& files, const std::string& path,
                            AnalysisPass& pass);

}  // namespace packetroutines
