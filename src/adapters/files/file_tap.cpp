#include "adapters/files/file_tap.h"

namespace adapters {

using std::chrono::microseconds;

FileTap::FileTap(const std::filesystem::path& file, const platform::Clock& clock,
                 platform::TapPace pace)
    : file_(file),
      reader_(file),
      clock_(clock),
      fast_(pace == platform::TapPace::AsFastAsRead),
      due_(clock.Now()) {
  Fetch();
}

void FileTap::Fetch() {
  handed_ = false;
  waiting_ = reader_.Next();
  if (waiting_ && !fast_) due_ += pace_.GapBefore(waiting_->Time);
}

std::optional<platform::CapturedFrame> FileTap::Next() {
  // The bytes of a frame stand until the next one is fetched.
  if (handed_) Fetch();
  if (!waiting_ || (!fast_ && due_ > clock_.Now())) return std::nullopt;
  handed_ = true;
  now_ = std::chrono::duration_cast<microseconds>(waiting_->Time);
  platform::CapturedFrame frame = waiting_->Frame;
  frame.Arrived = now_;
  return frame;
}

std::string FileTap::Trouble() const {
  if (reader_.Damage().empty()) return {};
  return "The capture file " + file_.string() + " is damaged behind frame " +
         std::to_string(reader_.FramesRead()) + ": " + reader_.Damage() + ".";
}

}  // namespace adapters
