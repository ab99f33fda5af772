#pragma once

#include "platform/services/clipboard.h"

namespace desktop {

/// The clipboard of this desktop.
class QtClipboard : public platform::Clipboard {
 public:
  void Clear() override;
  void SetPicture(const platform::Picture& picture) override;
};

}  // namespace desktop
