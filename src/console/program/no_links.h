#pragma once

#include "platform/services/system_services.h"

namespace console {

/// Nothing is opened for a user who sees nothing of it.
class NoLinks : public platform::ShellLinks {
 public:
  void Open(const std::string&) override {}
  void OpenFile(const std::string&, Told) override {}
};

}  // namespace console
