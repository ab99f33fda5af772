#pragma once

#include "base/program.h"
#include "platform/services/dialogs.h"
#include "platform/services/event_queue.h"

namespace platform {

/// What a routine with a trap needs of the platform: the event queue that it pumps, the boxes that
/// it shows, and the end of the program.
struct Services {
  EventQueue& Events;
  platform::Dialogs& Dialogs;
  platform::Program& Program;
};

}  // namespace platform
