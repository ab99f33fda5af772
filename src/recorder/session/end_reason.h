#pragma once

#include <string_view>

namespace subroutines {

/// Why a recording ended.
enum class EndReason {
  /// The user pressed STOP.
  Stop,
  OtherTab,
  /// The Recorder's own tab was chosen, or a box offered to stop.
  TabAnew,
  /// By the tab "Exit" or the window's close box.
  Exit,
  /// A signal, or the end of the user's session.
  SessionsEnd,
  DiskFull,
  RowLimit,
  NoData,
  /// Capture did not start, as its filter was refused.
  Refused,
  /// Whatever else ends the program, such as a failure.
  ProgramEnd
};

/// The reason in the user's words.
constexpr std::string_view Words(EndReason reason) {
  switch (reason) {
    case EndReason::Stop:
      return "STOP was pressed";
    case EndReason::OtherTab:
      return "another page was chosen";
    case EndReason::TabAnew:
      return "this page was entered anew";
    case EndReason::Exit:
      return "the program was left";
    case EndReason::SessionsEnd:
      return "the system ended the program";
    case EndReason::DiskFull:
      return "the disk is full";
    case EndReason::RowLimit:
      return "the worksheet is full";
    case EndReason::NoData:
      return "no data came";
    case EndReason::Refused:
      return "the packet filter condition was refused";
    case EndReason::ProgramEnd:
      break;
  }
  return "the program ended";
}

/// Who wants to know of the end of a recording, when it is there.
class EndListener {
 public:
  virtual ~EndListener() = default;
  virtual void RecordingEnded(EndReason reason) = 0;
};

}  // namespace subroutines
