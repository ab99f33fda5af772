#pragma once

#include <chrono>
#include <string>

namespace console {

/// A moment since 1970 began in Greenwich as ISO 8601 writes it, in Greenwich's time and to the
/// microsecond: "2026-11-22T12:34:56.123456Z".
std::string IsoTime(std::chrono::microseconds moment);

}  // namespace console
