#include "adapters/place_capture.h"

#include "adapters/capture_files.h"
#include "adapters/files/capture_file_reader.h"

namespace adapters {

namespace {

template <typename Source>
std::unique_ptr<Source> Prepared(std::unique_ptr<Source> source) {
  source->Prepare({});
  return source;
}

std::optional<FileClock> OwnClock(const std::filesystem::path& file, platform::TapPace pace) {
  if (pace != platform::TapPace::AsFastAsRead) return std::nullopt;
  const std::optional<RecordedFrame> first = CaptureFileReader(file).Next();
  return FileClock(first ? first->Time : std::chrono::nanoseconds(0));
}

std::unique_ptr<FileSource> PlayedOnce(const std::filesystem::path& file,
                                       const platform::Clock& clock, FileSource*& seen) {
  auto source = Prepared(std::make_unique<FileSource>(file, clock, FilePlay::Once));
  seen = source.get();
  return source;
}

}  // namespace

OneSourceLayer::Entries OneSourceLayer::NewEntries() {
  Entries entries;
  if (source_ == nullptr) return entries;
  entries.push_back(std::make_unique<SourceAdapter>(title_, true, std::move(source_), clock_));
  return entries;
}

LiveCapture::LiveCapture(std::string title, std::unique_ptr<FrameSource> source,
                         const platform::Clock& clock)
    : clock_(clock), layer_(std::move(title), Prepared(std::move(source)), clock) {}

FileCapture::FileCapture(const std::filesystem::path& file, const platform::Clock& clock,
                         platform::TapPace pace)
    : own_(OwnClock(file, pace)),
      time_(own_ ? static_cast<const platform::Clock&>(*own_) : clock),
      layer_(FileTitle(file, true), PlayedOnce(file, time_, source_), time_) {}

bool FileCapture::Pass(std::chrono::nanoseconds time) {
  if (own_) own_->Pass(time);
  return own_.has_value();
}

}  // namespace adapters
