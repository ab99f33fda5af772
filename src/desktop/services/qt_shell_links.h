#pragma once

#include <QUrl>

#include "platform/services/system_services.h"

namespace desktop {

/// Opens documents and links the way the user's desktop does.
class QtShellLinks : public platform::ShellLinks {
 public:
  void Open(const std::string& target) override;
  /// Waits a few seconds for the desktop's word on a viewer; one that still runs then has taken the
  /// file.
  std::int32_t OpenFile(const std::string& path) override;

  /// The address of a target: the program writes links, and mail links with their subject, as plain
  /// texts.
  static QUrl Address(const std::string& target);
};

}  // namespace desktop
