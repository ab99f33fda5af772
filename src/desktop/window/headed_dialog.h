#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QSize>
#include <QVBoxLayout>

#include "platform/controls/tab_strip.h"
#include "platform/controls/window.h"
#include "platform/loop/guard.h"

namespace desktop {

/// A window of the program that opens in front of the main one: its title in the colours of the
/// strip of tabs, below it what it shows, and at the foot the button that closes it. Whatever
/// closes it unloads the form behind it.
class HeadedDialog : public QDialog {
  Q_OBJECT

 public:
  /// `usual` is the size that it opens with, in pixels of the smallest window.
  HeadedDialog(platform::Window& window, const platform::TabStrip& strip, platform::Guard& guard,
               QSize usual, QWidget* parent);

  void reject() override;

 protected:
  /// Where the contents stand, one below the other.
  QVBoxLayout& Body() { return *body_; }
  /// The button at the foot, once all contents are there.
  QPushButton* AddCloseButton();

  void paintEvent(QPaintEvent* event) override;

 private:
  platform::Window& window_;
  const platform::TabStrip& strip_;
  platform::Guard& guard_;
  QLabel* heading_;
  QVBoxLayout* body_;
};

}  // namespace desktop
