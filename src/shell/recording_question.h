#pragma once

#include <cstdint>
#include <functional>

#include "forms/end_question.h"
#include "platform/services/calendar.h"
#include "recorder/session/recording_session.h"

namespace formroutines {

/// Asks before the user's choice of a tab, or of the way out, ends a recording. Frames, rings and
/// timers go on below the question; without an answer the recording is kept, and where it ends by
/// itself meanwhile the question goes and nothing of the choice happens.
class RecordingQuestion : private subroutines::EndListener {
 public:
  RecordingQuestion(forms::EndQuestion& form, subroutines::RecordingSession& session,
                    const platform::Calendar& calendar);

  /// Whether what was chosen may happen at once. Where it would end a recording the user is asked
  /// first, and `choice` is made when the answer is to end it. A question that stands already is
  /// about its own choice alone.
  bool Allows(std::function<void()> choice);

 private:
  void Ask();
  void Count();
  void ShowRemaining();
  void EndRecording();
  void Forget();
  void RecordingEnded(subroutines::EndReason) override { form_.Window.Unload(); }

  forms::EndQuestion& form_;
  subroutines::RecordingSession& session_;
  const platform::Calendar& calendar_;
  std::function<void()> choice_;
  std::int32_t seconds_ = 0;
};

}  // namespace formroutines
