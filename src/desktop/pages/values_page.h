#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QWidget>
#include <array>

#include "desktop/binding/binder.h"
#include "desktop/widgets/card.h"
#include "desktop/widgets/quiet_line.h"
#include "desktop/widgets/reading_field.h"
#include "desktop/widgets/run_column.h"
#include "forms/setup_controls.h"
#include "forms/shared_controls.h"
#include "forms/values_controls.h"
#include "forms/window_controls.h"

namespace desktop {

/// The Values view: eight big readings in two columns where the layout rules put them, and at their
/// right what controls them.
class ValuesPage : public QWidget {
  Q_OBJECT

 public:
  /// `setup` tells whether DC values are shown.
  ValuesPage(forms::ValuesControls& values, forms::SharedControls& shared,
             forms::SetupControls& setup, forms::WindowControls& form, Binder& binder,
             QWidget* parent);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  static constexpr std::size_t Channels = 8;
  static constexpr std::size_t Rows = 4;

  void BindReadings(Binder& binder);
  void BindControls(Binder& binder);
  void OrderTabs();
  void ShowLife();
  void FollowDc(forms::SetupControls& setup);
  void Lay();
  void LayReading(std::size_t channel);

  forms::ValuesControls& values_;
  forms::SharedControls& shared_;
  std::array<ReadingField*, Channels> readings_{};
  std::array<QLabel*, Channels> captions_{};
  std::array<QLabel*, Channels> dcValues_{};
  /// Marks for the quality of the measured neutrals.
  std::array<QLabel*, 2> qualities_{};
  Card* panel_;
  RunColumn* run_;
  QCheckBox* realTime_;
  QuietLine* quiet_;
};

}  // namespace desktop
