#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include "desktop/binding/binder.h"
#include "desktop/widgets/card.h"
#include "forms/setup_controls.h"
#include "forms/shared_controls.h"

namespace desktop {

/// The Setup view: the settings in groups, in two columns. Each field takes effect at once, so
/// there is nothing to confirm.
class SetupPage : public QWidget {
  Q_OBJECT

 public:
  SetupPage(forms::SetupControls& setup, forms::SharedControls& shared, Binder& binder,
            QWidget* parent);

 private:
  QLabel* Caption(std::size_t row, QWidget* parent);
  TextField* Field(std::size_t index, QWidget* parent, const QString& hint = QString());
  TextField* Bound(std::size_t index, TextField* field);
  ChoiceBox* List(platform::ComboBox& control, const QString& name, QWidget* parent);

  Card* NetworkCard();
  Card* StreamsCard();
  Card* StorageCard();
  Card* ValuesCard();
  Card* NamesCard();
  Card* SpecialCard();
  QPushButton* Button(platform::CommandButton& control, const QString& name, QWidget* parent);
  QLabel* ProgramLine();
  void AddNames(Card& card, int column, std::size_t captionRow, std::size_t firstField);

  forms::SetupControls& setup_;
  forms::SharedControls& shared_;
  Binder& binder_;
  /// The content, which scrolls where a window is too low for it.
  QWidget* sheet_;
};

}  // namespace desktop
