#pragma once

#include <QUrl>
#include <functional>
#include <memory>

#include "platform/loop/holdable.h"
#include "platform/services/system_services.h"

namespace desktop {

/// Opens documents and links the way the user's desktop does.
class QtShellLinks : public platform::ShellLinks, public platform::Holdable {
 public:
  /// The way from an event of the outside into the program.
  using Enter = std::function<void(const std::function<void()>& action)>;

  explicit QtShellLinks(Enter enter);
  QtShellLinks(const QtShellLinks&) = delete;
  QtShellLinks& operator=(const QtShellLinks&) = delete;
  ~QtShellLinks() override;

  void Open(const std::string& target) override;
  void OpenFile(const std::string& path, Told told) override;

  /// A box stands: answers wait until it is closed.
  void Hold() override;
  void Release() override;

  /// The address of a target: the program writes links, and mail links with their subject, as plain
  /// texts.
  static QUrl Address(const std::string& target);

 private:
  class Opener;
  std::unique_ptr<Opener> opener_;
};

}  // namespace desktop
