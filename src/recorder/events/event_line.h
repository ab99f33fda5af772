#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/services/calendar.h"

namespace packetroutines {

/// What happened to a recording.
struct RecordEvent {
  /// By the computer's clock, since 1970 began in Greenwich.
  std::chrono::microseconds At{0};
  /// 0 or 1; nothing where both are meant.
  std::optional<std::size_t> Stream = std::nullopt;
  /// The 1-based line of the stream's file at which it happened.
  std::optional<std::int64_t> Line = std::nullopt;
  std::string What;
  /// How many samples or frames.
  std::optional<std::uint64_t> Count = std::nullopt;
  std::string Figures = {};
};

/// The names of the columns, as the first line of an events file.
std::string EventHeading();

/// The event as a line: date and local time to the millisecond, stream, line, event, count,
/// figures, with a semicolon between. A field that holds one is put in quotes (RFC 4180).
std::string EventLine(const RecordEvent& event, const platform::Calendar& calendar);

}  // namespace packetroutines
