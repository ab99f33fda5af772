#pragma once

#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>
#include <array>

#include "desktop/widgets/radio_button.h"
#include "desktop/widgets/run_button.h"
#include "desktop/widgets/run_indicator.h"

namespace desktop {

/// What controls a view, one below the other and alike on all of them: the run button with its ring
/// of light, what the view adds, and the choice of the station. It has one width on all views, and
/// its rows have one left and one right edge.
class RunColumn : public QWidget {
  Q_OBJECT

 public:
  static constexpr std::size_t Stations = 2;
  // In pixels of the smallest window.
  static constexpr int GroupGap = 10;
  /// The width of the rows, without the ring that reaches out round the button.
  static constexpr int RowWidth = 176;

  explicit RunColumn(QWidget* parent);

  RunButton& Button() { return *button_; }
  RunIndicator& Indicator() { return *indicator_; }

  /// A group of rows below, with its heading.
  void AddGroup(QLabel* heading, std::initializer_list<QWidget*> rows);
  /// A row that belongs to none of them, with a gap above it.
  void AddRow(QWidget* row, int gap = GroupGap);
  /// The heading and the two choices of a station, to be bound by the view.
  void AddStations();
  QLabel& StationHeading() { return *stationHeading_; }
  RadioButton& Station(std::size_t index) { return *stations_[index]; }

 private:
  QVBoxLayout* rows_;
  RunButton* button_;
  RunIndicator* indicator_;
  QLabel* stationHeading_ = nullptr;
  std::array<RadioButton*, Stations> stations_{};
};

}  // namespace desktop
