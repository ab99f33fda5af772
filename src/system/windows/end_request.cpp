#include "system/end_request.h"

#include <windows.h>

namespace host {

namespace {

/// Set from the first request on. The system's handler has no other place to learn of it.
HANDLE came = nullptr;

bool Waits() {
  return WaitForSingleObject(came, 0) == WAIT_TIMEOUT;
}

/// The system calls it on a thread of its own.
BOOL WINAPI OnRequest(DWORD kind) {
  const bool first = Waits();
  SetEvent(came);
  if (kind == CTRL_C_EVENT || kind == CTRL_BREAK_EVENT) return first ? TRUE : FALSE;
  // A closed window or the end of the user's session ends the process behind the return. The system
  // has less patience than this.
  constexpr DWORD Patience = 60'000;
  Sleep(Patience);
  return TRUE;
}

class ConsoleEnd : public EndRequest {
 public:
  ConsoleEnd() {
    came = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    SetConsoleCtrlHandler(OnRequest, TRUE);
  }
  ConsoleEnd(const ConsoleEnd&) = delete;
  ConsoleEnd& operator=(const ConsoleEnd&) = delete;
  ~ConsoleEnd() override {
    SetConsoleCtrlHandler(OnRequest, FALSE);
    CloseHandle(came);
  }

  bool Came() override { return !Waits(); }
  void Await(std::chrono::nanoseconds time) override {
    const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(time).count();
    WaitForSingleObject(came, static_cast<DWORD>(milliseconds));
  }
};

}  // namespace

std::unique_ptr<EndRequest> NewEndRequest() {
  return std::make_unique<ConsoleEnd>();
}

}  // namespace host
