#pragma once

namespace host {

/// What a second request does while the first one is being served.
enum class SecondRequest {
  /// It waits like the first.
  Waits,
  /// It ends the process at once.
  EndsAtOnce
};

/// The system's requests to terminate, as something to read from: a descriptor becomes readable
/// with a request, so that whoever waits for events waits for it too, and capture is stopped before
/// the program goes. One object a program.
class TerminationSignals {
 public:
  explicit TerminationSignals(SecondRequest second = SecondRequest::Waits);
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;
  ~TerminationSignals();

  /// -1 where the system has none left.
  int Descriptor() const;
  /// True where a request came since the last call.
  bool Take();
};

}  // namespace host
