#include "shell/recording_question.h"

#include <string>
#include <utility>

namespace formroutines {

namespace {

constexpr std::int32_t PatienceSeconds = 30;
constexpr std::int32_t CountEvery = 1000;

}  // namespace

RecordingQuestion::RecordingQuestion(forms::EndQuestion& form,
                                     subroutines::RecordingSession& session,
                                     const platform::Calendar& calendar)
    : form_(form), session_(session), calendar_(calendar) {
  form_.CountDown.Interval = CountEvery;
  form_.CountDown.Elapsed = [this] { Count(); };
  form_.Keep.Click = [this] { form_.Window.Unload(); };
  form_.End.Click = [this] { EndRecording(); };
  form_.Window.QueryUnload = [this] { Forget(); };
  session_.Listener = static_cast<subroutines::EndListener&>(*this);
}

bool RecordingQuestion::Allows(std::function<void()> choice) {
  if (!session_.Running()) return true;
  if (form_.Window.Loaded) return false;
  choice_ = std::move(choice);
  Ask();
  return false;
}

void RecordingQuestion::Ask() {
  form_.Question.Caption = "A recording is running since " +
                           platform::ClockText(session_.Since(), calendar_.Now()) + ". End it?";
  seconds_ = PatienceSeconds;
  ShowRemaining();
  form_.CountDown.Enabled = true;
  form_.Window.Visible = true;
}

void RecordingQuestion::Count() {
  --seconds_;
  if (seconds_ > 0) {
    ShowRemaining();
  } else {
    form_.Window.Unload();
  }
}

void RecordingQuestion::ShowRemaining() {
  form_.Remaining.Caption = "Without an answer it is kept; " + std::to_string(seconds_) +
                            (seconds_ == 1 ? " second left." : " seconds left.");
}

void RecordingQuestion::EndRecording() {
  const std::function<void()> choice = std::move(choice_);
  // It may be about to end by itself, in a pump of which this answer came.
  const bool running = session_.Running();
  form_.Window.Unload();
  if (running && choice) choice();
}

void RecordingQuestion::Forget() {
  form_.CountDown.Enabled = false;
  choice_ = nullptr;
}

}  // namespace formroutines
