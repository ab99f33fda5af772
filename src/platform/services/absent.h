#pragma once

#include "platform/services/mouse_pointer.h"
#include "platform/services/print_surface.h"
#include "platform/services/sleep_inhibitor.h"
#include "platform/services/system_services.h"

namespace platform {

/// The service that a face brings, or what stands for one that it does not have: a dialog that
/// nobody answers, no printers and a paper that takes nothing, a pointer that is not there, a
/// computer that sleeps when it likes.
FolderDialog& OrNone(FolderDialog* given);
Printers& OrNone(Printers* given);
PrintSurface& OrNone(PrintSurface* given);
MousePointer& OrNone(MousePointer* given);
SleepInhibitor& OrNone(SleepInhibitor* given);

}  // namespace platform
