#pragma once

#include "base/trap.h"
#include "capture/consumers.h"
#include "platform/services/dialogs.h"

namespace packetroutines {

/// The box of a step that is tried again when it fails. A failure that stays would bring the box
/// back for ever; so from the second time in a row it also offers "Stop", which skips the step and
/// ends the run as a change of tab does.
class RetryBox {
 public:
  RetryBox(platform::Dialogs& dialogs, const Plugs& upper) : dialogs_(dialogs), upper_(upper) {}

  /// `attempt` is 1 where the step failed for the first time.
  platform::Verdict Show(platform::Message message, int attempt) {
    if (attempt > 1) message.BoxButtons = platform::Buttons::OkStop;
    if (dialogs_.Show(message) != platform::Answer::Stop) return platform::Verdict::RetryStep;
    upper_.Tabs->TabChange();
    return platform::Verdict::SkipStep;
  }

 private:
  platform::Dialogs& dialogs_;
  const Plugs& upper_;
};

}  // namespace packetroutines
