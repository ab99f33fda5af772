#include "recorder/session/recording_span.h"

#include <utility>

namespace subroutines {

void RecordingSpan::Begin() {
  since_ = calendar_.Now();
  underWay_ = true;
  // What another has to say stays.
  if (line_.Caption == said_) line_.Say({});
  said_.clear();
  sleep_.Inhibit("A recording is running.");
}

bool RecordingSpan::End(EndReason reason) {
  if (!std::exchange(underWay_, false)) return false;
  sleep_.Release();
  Tell(reason);
  return true;
}

void RecordingSpan::Tell(EndReason reason) {
  // Then the line says so already, with the way out.
  if (reason == EndReason::Refused) return;
  said_ = "The recording ended at " + platform::ClockText(calendar_.Now(), since_) + ": " +
          std::string(Words(reason)) + ".";
  line_.Say(said_);
}

}  // namespace subroutines
