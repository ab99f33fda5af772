#pragma once

#include <QObject>
#include <QUrl>
#include <chrono>
#include <deque>
#include <functional>

#include "platform/services/system_services.h"

namespace desktop {

/// Opens documents and links the way the user's desktop does. The desktop's opener runs beside the
/// program, and may run as long as the viewer that it has found.
class QtShellLinks : public platform::ShellLinks {
 public:
  /// The way from an event of Qt into the program.
  using Enter = std::function<void(const std::function<void()>& action)>;

  explicit QtShellLinks(Enter enter = [](const std::function<void()>& action) { action(); })
      : enter_(std::move(enter)) {}

  void Open(const std::string& target) override;
  void OpenFile(const std::string& path, Told told) override;

  /// A box stands: answers wait until it is closed.
  void Hold() { ++holds_; }
  void Release();

  /// An opener that runs longer has found a viewer; how that ends tells nothing of the opening.
  std::chrono::milliseconds TakenAfter{3000};

  /// The address of a target: the program writes links, and mail links with their subject, as plain
  /// texts.
  static QUrl Address(const std::string& target);

 private:
  void HandOver(const QString& place, const Told& told);
  void Answer(const Told& told, std::int32_t code);
  void PassAnswersOn();

  Enter enter_;
  int holds_ = 0;
  std::deque<std::function<void()>> answers_;
  /// What comes behind the end of this object reaches nobody.
  QObject life_;
};

}  // namespace desktop
