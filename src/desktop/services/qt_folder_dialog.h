#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/services/standing_box.h"
#include "platform/services/system_services.h"

namespace desktop {

/// The dialog that selects a folder, modal to the main window.
class QtFolderDialog : public platform::FolderDialog {
 public:
  void SetOwner(QWidget* owner) { owner_ = owner; }

  std::optional<std::string> Browse(const std::string& title, const std::string& present) override;

  platform::StandingBox::Listener Stands;

 private:
  QPointer<QWidget> owner_;
};

}  // namespace desktop
