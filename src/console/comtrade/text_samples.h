#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/controls/progress_bar.h"
#include "platform/services/file_system.h"
#include "platform/stream_format.h"
#include "recorder/reading/line_reader.h"

namespace console {

/// Reads the samples of a text recording line by line: the line's number, the sender's counter and
/// eight values, with a semicolon between them.
///
/// Unlike a quick view it takes no line for what it is not: one that is no sample is a failure that
/// names its place. A last line without an end was cut, and is left out.
class TextSamples {
 public:
  static constexpr std::size_t Channels = platform::channels::Count;

  TextSamples(platform::FileSystem& files, const std::string& path);

  /// Goes on to the next sample; False behind the last one.
  bool Next();
  /// The present sample: the sender's counter, and the values in the units of the recording.
  std::int64_t Counter() const { return counter_; }
  std::span<const double, Channels> Values() const { return values_; }

  /// Samples so far.
  std::int64_t Lines() const { return lines_; }
  /// Behind the last sample stands a part of another one.
  bool Cut() const { return cut_; }

  /// A failure that names the present line: "line 17: ...".
  [[noreturn]] void Refuse(const std::string& why) const;

 private:
  void Parse(std::string_view line);

  std::unique_ptr<platform::InputFile> file_;
  platform::ProgressBar nobodySees_;
  packetroutines::AnalysisPass pass_;
  packetroutines::LineReader reader_;
  std::int64_t lines_ = 0;
  std::int64_t counter_ = 0;
  std::array<double, Channels> values_{};
  bool cut_ = false;
};

}  // namespace console
