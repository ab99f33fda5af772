#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/services/dialogs.h"
#include "platform/services/standing_box.h"

namespace desktop {

/// Shows the program's boxes, modal to the main window where there is one.
class QtDialogs : public platform::Dialogs {
 public:
  void SetOwner(QWidget* owner) { owner_ = owner; }

  platform::Answer Show(const platform::Message& message) override;
  void ShowTimed(const platform::TimedMessage& message) override;

  platform::StandingBox::Listener Stands;

 private:
  /// A box belongs to the modal window below it, or to the main window once that can be seen.
  QWidget* Parent() const;

  QPointer<QWidget> owner_;
};

}  // namespace desktop
