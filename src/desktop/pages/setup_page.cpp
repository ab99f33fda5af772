#include "desktop/pages/setup_page.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/look/text.h"
#include "desktop/widgets/advice_note.h"
#include "desktop/widgets/logo_view.h"
#include "desktop/widgets/path_field.h"
#include "desktop/widgets/quiet_line.h"

namespace desktop {

namespace caption = forms::setup_caption;
namespace setup = forms::setup_field;

namespace {

// In pixels of the smallest window.
constexpr int ShortField = 96;
constexpr int TwoLines = 36;
constexpr int FindGap = 6;
/// From here on a third column is as wide as its captions and fields.
constexpr double WideForThree = 1500;
/// Room at the foot of the page for the logo.
constexpr int FootHeight = 56;
constexpr int NameGap = 14;
/// A high window spreads the groups by so much, so that they do not hang at its top.
constexpr double MostSpread = 1.45;
constexpr std::size_t NamesInGroup = 4;
constexpr int NamesInRow = 2;
constexpr const char* StationHint = "station ID, e.g. VORNIK-SIM-%1";

/// How many of the groups stand in each column.
const std::vector<std::size_t>& Shares(std::size_t columns) {
  static const std::vector<std::size_t> two = {4, 2};
  static const std::vector<std::size_t> three = {3, 2, 1};
  return columns == three.size() ? three : two;
}

}  // namespace

SetupPage::SetupPage(forms::SetupControls& setup, forms::SharedControls& shared, Binder& binder,
                     QWidget* parent)
    : QWidget(parent),
      setup_(setup),
      shared_(shared),
      binder_(binder),
      sheet_(new QWidget),
      cards_{NetworkCard(), StreamsCard(), StorageCard(), SpecialCard(), ValuesCard(), NamesCard()},
      groups_(new QWidget(sheet_)),
      row_(new QHBoxLayout(groups_)),
      name_(new QLabel(this)) {
  row_->setContentsMargins(0, 0, 0, 0);
  row_->setSpacing(look::PageMargin);
  for (std::size_t i = 0; i < Shares(3).size(); ++i) {
    columns_.push_back(new QVBoxLayout);
    columns_.back()->setSpacing(look::PageMargin);
    row_->addLayout(columns_.back());
  }
  auto* rows = new QVBoxLayout(sheet_);
  rows->setContentsMargins(look::PageMargin, look::PageMargin, look::PageMargin, 0);
  rows->addWidget(groups_, 3);
  rows->addStretch(1);
  auto* scroll = new QScrollArea(this);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidget(sheet_);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, FootHeight);
  all->addWidget(scroll);
  AddName();
  Deal(2);
}

void SetupPage::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Deal(width() >= WideForThree * look::Scale() ? 3 : 2);
  Spread();
  PlaceName();
}

void SetupPage::Spread() {
  for (QVBoxLayout* column : columns_) {
    for (int i = 0; i < column->count(); ++i) {
      column->setStretch(i, column->itemAt(i)->sizeHint().height());
    }
  }
  groups_->setMaximumHeight(static_cast<int>(groups_->sizeHint().height() * MostSpread));
}

void SetupPage::Deal(std::size_t columns) {
  if (columns == dealt_) return;
  dealt_ = columns;
  const std::vector<std::size_t>& shares = Shares(columns);
  auto card = cards_.begin();
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const std::size_t share = i < shares.size() ? shares[i] : 0;
    // A layout takes a widget away from the one that held it.
    for (std::size_t k = 0; k < share; ++k) columns_[i]->addWidget(*card++);
    row_->setStretch(static_cast<int>(i), share > 0 ? 1 : 0);
  }
  // A column of their own holds them one below the other.
  PlaceNames(columns == 3 ? 1 : NamesInRow);
}

QLabel* SetupPage::Caption(std::size_t row, QWidget* parent) {
  auto* label = new QLabel(parent);
  binder_.Bind(setup_.Label2[row], *label, ArrayName("Label2", row));
  return label;
}

TextField* SetupPage::Field(std::size_t index, QWidget* parent, const QString& hint) {
  auto* field = new TextField(parent);
  field->setPlaceholderText(hint);
  return Bound(index, field);
}

TextField* SetupPage::Bound(std::size_t index, TextField* field) {
  binder_.Bind(setup_.Text1[index], *field, ArrayName("Text1", index));
  return field;
}

ChoiceBox* SetupPage::List(platform::ComboBox& control, const QString& name, QWidget* parent) {
  auto* list = new ChoiceBox(parent);
  binder_.Bind(control, *list, name);
  return list;
}

QPushButton* SetupPage::Button(platform::CommandButton& control, const QString& name,
                               QWidget* parent) {
  auto* button = new QPushButton(parent);
  binder_.Bind(control, *button, name);
  return button;
}

void SetupPage::AddName() {
  look::SetTextColour(*name_, look::QuietText);
  binder_.Bind(setup_.Label13, *name_, QStringLiteral("Label13"));
  platform::PictureBox& logo = shared_.Picture1[forms::logo::Setup];
  for (platform::Property<std::int32_t>* place : {&logo.Left, &logo.Top}) {
    place->Observe([this] { PlaceName(); });
  }
}

void SetupPage::PlaceName() {
  const QRect logo = LogoView::PlaceOf(shared_.Picture1[forms::logo::Setup], *this);
  const QSize words = name_->sizeHint();
  name_->setGeometry(QRect(QPoint(logo.left() - look::Scaled(NameGap) - words.width(),
                                  logo.center().y() - words.height() / 2),
                           words));
}

Card* SetupPage::NetworkCard() {
  auto* card = new Card(QStringLiteral("Network"), sheet_);
  card->AddRow(Caption(caption::Adapter, card),
               List(setup_.Combo1, QStringLiteral("Combo1"), card));
  auto* advice = new AdviceNote(card);
  advice->setObjectName(QStringLiteral("CaptureAdvice"));
  const auto show = [this, advice] { advice->SetAdvice(ToQt(setup_.CaptureAdvice.Caption)); };
  setup_.CaptureAdvice.Caption.Observe(show);
  show();
  card->AddWide(advice);
  card->AddRow(Caption(caption::FilterCondition, card),
               Field(setup::FilterCondition, card, QStringLiteral("e.g. and vlan 7")));
  return card;
}

Card* SetupPage::StreamsCard() {
  auto* card = new Card(QStringLiteral("Streams"), sheet_);
  card->AddRow(Caption(caption::Content1, card),
               Field(setup::Content1, card, QString::fromLatin1(StationHint).arg(1)));
  card->AddRow(Caption(caption::Content2, card),
               Field(setup::Content2, card, QString::fromLatin1(StationHint).arg(2)));
  auto* search = new QWidget(card);
  auto* row = new QHBoxLayout(search);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(Button(setup_.Command7, QStringLiteral("Command7"), search));
  row->addSpacing(FindGap);
  auto* told = new QuietLine(search);
  told->setFixedHeight(TwoLines);
  QSizePolicy policy = told->sizePolicy();
  policy.setVerticalPolicy(QSizePolicy::Fixed);
  told->setSizePolicy(policy);
  told->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  binder_.Bind(shared_.QuietLine[forms::quiet_line::Setup], *told,
               ArrayName("QuietLine", forms::quiet_line::Setup));
  row->addWidget(told, 1);
  card->AddWide(search);
  return card;
}

Card* SetupPage::StorageCard() {
  auto* card = new Card(QStringLiteral("Storage and printing"), sheet_);
  TextField* path = Bound(setup::StoragePath, new PathField(card));
  card->AddRow(Caption(caption::StoragePath, card), path,
               Button(setup_.Command3, QStringLiteral("Command3"), card));
  card->AddRow(Caption(caption::Printer, card),
               List(setup_.Combo2, QStringLiteral("Combo2"), card));
  return card;
}

Card* SetupPage::ValuesCard() {
  auto* card = new Card(QStringLiteral("Measured values"), sheet_);
  card->AddRow(Caption(caption::Decimals, card),
               List(setup_.Combo3, QStringLiteral("Combo3"), card));
  TextField* interval = Field(setup::Interval, card);
  TextField* frequency = Field(setup::BaseFrequency, card);
  for (TextField* field : {interval, frequency}) field->setMaximumWidth(ShortField);
  ChoiceBox* current = List(setup_.Combo4[0], ArrayName("Combo4", 0), card);
  ChoiceBox* voltage = List(setup_.Combo4[1], ArrayName("Combo4", 1), card);
  for (ChoiceBox* unit : {current, voltage}) unit->setMaximumWidth(ShortField);
  card->AddRow(Caption(caption::Interval, card), interval, Caption(caption::IntervalUnit, card));
  card->AddRow(Caption(caption::Frequency, card), frequency, Caption(caption::FrequencyUnit, card));
  card->AddRow(Caption(caption::CurrentUnit, card), current);
  card->AddRow(Caption(caption::VoltageUnit, card), voltage);
  // So that the fields begin where those of the other groups do.
  card->Grid().setColumnStretch(2, 1);
  auto* offset = new QCheckBox(card);
  binder_.Bind(setup_.Check4, *offset, QStringLiteral("Check4"));
  card->AddWide(offset);
  return card;
}

Card* SetupPage::NamesCard() {
  auto* card = new Card(QStringLiteral("Channel names"), sheet_);
  card->Grid().setColumnMinimumWidth(0, 0);
  for (int column = 0; column < NamesInRow; ++column) card->Grid().setColumnStretch(column, 1);
  nameGroups_[0] = Names(*card, caption::FirstNames, setup::FirstName);
  nameGroups_[1] = Names(*card, caption::SecondNames, setup::FirstName + NamesInGroup);
  return card;
}

SetupPage::NameGroup SetupPage::Names(Card& card, std::size_t captionRow, std::size_t firstField) {
  NameGroup group{Caption(captionRow, &card), {}};
  for (std::size_t i = 0; i < NamesInGroup; ++i) {
    TextField* field = Field(firstField + i, &card);
    field->setAccessibleName(QStringLiteral("name of channel %1").arg(firstField + i - 3));
    group.Fields.push_back(field);
  }
  group.Heading->setBuddy(group.Fields.front());
  return group;
}

void SetupPage::PlaceNames(int inRow) {
  QGridLayout& grid = cards_.back()->Grid();
  const int span = NamesInRow / inRow;
  int row = 0;
  for (const NameGroup& group : nameGroups_) {
    grid.addWidget(group.Heading, row++, 0, 1, NamesInRow);
    for (std::size_t i = 0; i < group.Fields.size(); ++i) {
      const int at = static_cast<int>(i);
      grid.addWidget(group.Fields[i], row + at / inRow, at % inRow, 1, span, Qt::AlignVCenter);
    }
    row += static_cast<int>(NamesInGroup);
  }
}

Card* SetupPage::SpecialCard() {
  auto* card = new Card(ToQt(setup_.Frame5.Caption), sheet_);
  binder_.Bind(setup_.Frame5, *card, QStringLiteral("Frame5"));
  TextField* samplings = Field(setup::Samplings, card);
  samplings->setMaximumWidth(ShortField);
  card->AddRow(Caption(caption::Samplings, card), samplings);
  QLabel* note = Caption(caption::SamplingsNote, card);
  note->setWordWrap(true);
  look::SetTextColour(*note, look::QuietText);
  card->AddWide(note);
  return card;
}

}  // namespace desktop
