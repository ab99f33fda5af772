#pragma once

#include <memory>

#include "platform/services/sleep_inhibitor.h"

namespace host {

/// What keeps this computer awake; null where there is no way to ask for it.
std::unique_ptr<platform::SleepInhibitor> NewSleepInhibitor();

}  // namespace host
