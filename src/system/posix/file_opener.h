#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/loop/alarm.h"
#include "platform/loop/holdable.h"
#include "platform/services/system_services.h"
#include "system/posix/child_process.h"

namespace host {

/// Opens files in the viewers of the user's desktop. The desktop's opener runs beside the program,
/// and may run as long as the viewer that it has found.
class FileOpener : public platform::Holdable {
 public:
  using Told = platform::ShellLinks::Told;
  /// The way from an event of the outside into the program.
  using Enter = std::function<void(const std::function<void()>& action)>;

  /// `alarm` is for this object alone.
  FileOpener(platform::Alarm& alarm, Enter enter);
  FileOpener(const FileOpener&) = delete;
  FileOpener& operator=(const FileOpener&) = delete;
  /// What comes behind the end of this object reaches nobody.
  ~FileOpener();

  /// As `platform::ShellLinks` tells it.
  void OpenFile(const std::string& path, const Told& told);

  /// A box stands: answers wait until it is closed.
  void Hold() override { ++holds_; }
  void Release() override;

  /// An opener that runs longer has found a viewer; how that ends tells nothing of the opening.
  std::chrono::milliseconds TakenAfter{3000};

 private:
  struct Opening {
    ChildProcess Opener;
    Told Answer;
    std::chrono::steady_clock::time_point Begun;
  };

  void Look();
  void LookAgain();
  void PassAnswersOn();

  platform::Alarm& alarm_;
  Enter enter_;
  int holds_ = 0;
  std::vector<Opening> openings_;
  std::deque<std::function<void()>> answers_;
};

}  // namespace host
