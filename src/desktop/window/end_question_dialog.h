#pragma once

#include "desktop/binding/binder.h"
#include "desktop/widgets/message_dialog.h"
#include "forms/end_question.h"
#include "platform/loop/guard.h"

namespace desktop {

/// The window that asks before a recording is ended. It is built when it opens first. It stands in
/// front of the main window and holds up nothing: nobody waits for it to close, so the recording
/// goes on as without it.
class EndQuestionDialog : public MessageDialog {
  Q_OBJECT

 public:
  EndQuestionDialog(forms::EndQuestion& question, Binder& binder, platform::Guard& guard,
                    QWidget* parent);

  void reject() override;

 private:
  void Follow();

  forms::EndQuestion& question_;
  Binder& binder_;
  platform::Guard& guard_;
  QPushButton* keep_;
};

}  // namespace desktop
