#pragma once

#include <QLabel>
#include <QTimer>
#include <cstdint>
#include <string>

#include "desktop/widgets/message_dialog.h"
#include "platform/services/dialogs.h"

namespace desktop {

/// A message that closes by itself and counts the seconds until then. Its text stands in the font
/// of the message; what stands below it steps back behind that.
class TimedDialog : public MessageDialog {
  Q_OBJECT

 public:
  TimedDialog(const platform::TimedMessage& message, QWidget* parent);

 private:
  void CountDown();
  void ShowSeconds();

  std::string line_;
  std::int32_t seconds_;
  QLabel* countdown_;
  QTimer ticks_;
};

}  // namespace desktop
