#pragma once

#include <QDialog>
#include <QLabel>
#include <QTimer>
#include <cstdint>
#include <string>

#include "platform/services/dialogs.h"

namespace desktop {

/// A message that closes by itself and counts the seconds until then.
class TimedDialog : public QDialog {
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
