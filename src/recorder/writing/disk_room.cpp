#include "recorder/writing/disk_room.h"

namespace packetroutines {

namespace {

/// Of the rings of one stream, a minute of 50 Hz.
constexpr std::size_t MostMarks = 61;
constexpr double Minute = 60;
constexpr double Hour = 3600;
constexpr double Megabyte = 1e6;
constexpr double Gigabyte = 1e9;
constexpr double FewHours = 10;

}  // namespace

void DiskRoom::Clear() {
  sizes_ = {};
  written_ = 0;
  marks_.clear();
  since_ = {};
  short_ = false;
  line_.Caption = std::string();
}

bool DiskRoom::RingWritten(std::size_t stream, const std::string& path) {
  Count(stream, path);
  const std::optional<std::int64_t> room = files_.FreeSpace(path);
  const std::optional<double> seconds = room ? Lasts(*room) : std::nullopt;
  line_.Caption = room ? Text(*room, seconds) : std::string();
  const bool wasShort = short_;
  short_ = seconds && *seconds < Hour;
  return short_ != wasShort;
}

void DiskRoom::Count(std::size_t stream, const std::string& path) {
  const std::int64_t size = files_.FileSize(path);
  // One that is shorter than before is another file of that name.
  const std::int64_t before = size < sizes_[stream] ? 0 : sizes_[stream];
  sizes_[stream] = size;
  written_ += size - before;
  if (marks_.empty() || since_[stream]) SetMark(stream);
  since_[stream] = true;
}

void DiskRoom::SetMark(std::size_t stream) {
  marks_.push_back({time_.Now(), written_});
  if (marks_.size() > MostMarks) marks_.erase(marks_.begin());
  since_ = {};
  since_[stream] = true;
}

std::optional<double> DiskRoom::Lasts(std::int64_t room) const {
  if (marks_.size() < 2) return std::nullopt;
  const std::chrono::duration<double> time = marks_.back().At - marks_.front().At;
  const auto bytes = static_cast<double>(marks_.back().Written - marks_.front().Written);
  if (time.count() <= 0 || bytes <= 0) return std::nullopt;
  return static_cast<double>(room) / (bytes / time.count());
}

std::string DiskRoom::Text(std::int64_t room, std::optional<double> seconds) const {
  const auto bytes = static_cast<double>(room);
  std::string text =
      "free: " + (bytes < Gigabyte ? numbers_.Format(bytes / Megabyte, "##0") + " MB"
                                   : numbers_.Format(bytes / Gigabyte, "###,###,##0.0") + " GB");
  if (!seconds) return text;
  if (*seconds < Hour)
    return text + ", enough for " + numbers_.Format(*seconds / Minute, "#0") + " min";
  const double hours = *seconds / Hour;
  return text + ", enough for " + numbers_.Format(hours, hours < FewHours ? "0.0" : "###,###,##0") +
         " h";
}

}  // namespace packetroutines
