#pragma once

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWidget>
#include <array>
#include <vector>

#include "desktop/binding/binder.h"
#include "desktop/widgets/card.h"
#include "forms/setup_controls.h"
#include "forms/shared_controls.h"

namespace desktop {

/// The Setup view: the settings in groups, in two columns, and in three where the window is wide
/// for them. Each field takes effect at once, so there is nothing to confirm. The groups scroll
/// above the foot of the page, where the program's name stands beside its logo.
class SetupPage : public QWidget {
  Q_OBJECT

 public:
  SetupPage(forms::SetupControls& setup, forms::SharedControls& shared, Binder& binder,
            QWidget* parent);

 protected:
  void resizeEvent(QResizeEvent* event) override;

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
  void AddName();
  /// Beside the logo, wherever that stands.
  void PlaceName();
  /// A heading and the names of four channels.
  struct NameGroup {
    QLabel* Heading = nullptr;
    std::vector<TextField*> Fields;
  };
  NameGroup Names(Card& card, std::size_t captionRow, std::size_t firstField);
  /// So many of them in a row.
  void PlaceNames(int inRow);
  /// Deals the groups out to so many columns, in the order of their making.
  void Deal(std::size_t columns);
  void Spread();

  forms::SetupControls& setup_;
  forms::SharedControls& shared_;
  Binder& binder_;
  /// The content, which scrolls where a window is too low for it.
  QWidget* sheet_;
  std::array<NameGroup, 2> nameGroups_;
  std::vector<Card*> cards_;
  /// What is dealt out.
  QWidget* groups_;
  QHBoxLayout* row_;
  /// The columns in the row.
  std::vector<QVBoxLayout*> columns_;
  /// In how many columns the groups stand.
  std::size_t dealt_ = 0;
  QLabel* name_;
};

}  // namespace desktop
