#pragma once

#include "forms/debug_window.h"
#include "forms/end_question.h"
#include "forms/id_look.h"
#include "forms/main_form.h"
#include "forms/revision_history.h"
#include "platform/controls/timer.h"

namespace forms {

/// The windows of the program.
struct Windows {
  explicit Windows(platform::TimerCount& timers)
      : Main(timers), IDlook(timers), EndQuestion(timers) {}

  forms::Main Main;
  forms::IDlook IDlook;
  forms::Revisionhistory Revisionhistory;
  forms::DebugWindow DebugWindow;
  forms::EndQuestion EndQuestion;
};

}  // namespace forms
