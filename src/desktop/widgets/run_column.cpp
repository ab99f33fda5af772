#include "desktop/widgets/run_column.h"

#include "desktop/look/look.h"
#include "desktop/widgets/keep_room.h"

namespace desktop {

namespace {

/// In pixels of the smallest window.
constexpr int RowGap = 6;

}  // namespace

RunColumn::RunColumn(QWidget* parent)
    : QWidget(parent),
      rows_(new QVBoxLayout(this)),
      button_(new RunButton(this)),
      indicator_(new RunIndicator(*button_)) {
  constexpr int Room = RunIndicator::Reach;
  rows_->setContentsMargins(Room, Room, Room, 0);
  rows_->setSpacing(RowGap);
  setFixedWidth(RowWidth + 2 * Room);
  KeepRoom(*button_);
  rows_->addWidget(button_);
}

void RunColumn::AddGroup(QLabel* heading, std::initializer_list<QWidget*> rows) {
  heading->setFont(look::BoldFont(look::TextSize));
  rows_->addSpacing(GroupGap);
  KeepRoom(*heading);
  rows_->addWidget(heading);
  for (QWidget* row : rows) {
    if (auto* choice = qobject_cast<RadioButton*>(row)) choice->BelongTo(*heading);
    AddRow(row, 0);
  }
}

void RunColumn::AddRow(QWidget* row, int gap) {
  if (gap > 0) rows_->addSpacing(gap);
  KeepRoom(*row);
  rows_->addWidget(row);
}

void RunColumn::AddStations() {
  stationHeading_ = new QLabel(this);
  for (RadioButton*& station : stations_) station = new RadioButton(this);
  AddGroup(stationHeading_, {stations_[0], stations_[1]});
}

}  // namespace desktop
