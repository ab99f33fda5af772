#include "desktop/pages/setup_page.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/widgets/advice_note.h"
#include "desktop/widgets/path_field.h"
#include "desktop/widgets/quiet_line.h"

namespace desktop {

namespace caption = forms::setup_caption;
namespace setup = forms::setup_field;

namespace {

// In pixels of the smallest window.
constexpr int Margin = 16;
constexpr int ShortField = 96;
constexpr int TwoLines = 36;
constexpr std::size_t NamesInGroup = 4;
constexpr const char* StationHint = "station ID, e.g. VORNIK-SIM-%1";

}  // namespace

SetupPage::SetupPage(forms::SetupControls& setup, forms::SharedControls& shared, Binder& binder,
                     QWidget* parent)
    : QWidget(parent), setup_(setup), shared_(shared), binder_(binder), sheet_(new QWidget) {
  auto* left = new QVBoxLayout;
  auto* right = new QVBoxLayout;
  for (Card* card : {NetworkCard(), StreamsCard(), StorageCard(), SpecialCard()}) {
    left->addWidget(card);
  }
  for (Card* card : {ValuesCard(), NamesCard()}) right->addWidget(card);
  right->addWidget(ProgramLine());
  auto* columns = new QHBoxLayout(sheet_);
  columns->setContentsMargins(Margin, Margin, Margin, Margin);
  columns->setSpacing(Margin);
  for (QVBoxLayout* column : {left, right}) {
    column->setSpacing(Margin);
    column->addStretch(1);
    columns->addLayout(column, 1);
  }
  auto* scroll = new QScrollArea(this);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidget(sheet_);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->addWidget(scroll);
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

QLabel* SetupPage::ProgramLine() {
  auto* line = new QLabel(sheet_);
  look::SetTextColour(*line, look::QuietText);
  binder_.Bind(setup_.Label13, *line, QStringLiteral("Label13"));
  return line;
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
  QPushButton* find = Button(setup_.Command7, QStringLiteral("Command7"), card);
  card->Grid().addWidget(find, card->Grid().rowCount(), 1, Qt::AlignLeft);
  auto* told = new QuietLine(card);
  told->setMinimumHeight(TwoLines);
  binder_.Bind(shared_.QuietLine[forms::quiet_line::Setup], *told,
               ArrayName("QuietLine", forms::quiet_line::Setup));
  card->AddWide(told);
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
  auto* offset = new QCheckBox(card);
  binder_.Bind(setup_.Check4, *offset, QStringLiteral("Check4"));
  card->AddWide(offset);
  return card;
}

Card* SetupPage::NamesCard() {
  auto* card = new Card(QStringLiteral("Channel names"), sheet_);
  card->Grid().setColumnMinimumWidth(0, 0);
  card->Grid().setColumnStretch(0, 1);
  AddNames(*card, 0, caption::FirstNames, setup::FirstName);
  AddNames(*card, 1, caption::SecondNames, setup::FirstName + NamesInGroup);
  return card;
}

void SetupPage::AddNames(Card& card, int column, std::size_t captionRow, std::size_t firstField) {
  QLabel* heading = Caption(captionRow, &card);
  heading->setWordWrap(true);
  card.Grid().addWidget(heading, 0, column);
  for (std::size_t i = 0; i < NamesInGroup; ++i) {
    TextField* field = Field(firstField + i, &card);
    field->setAccessibleName(QStringLiteral("name of channel %1").arg(firstField + i - 3));
    card.Grid().addWidget(field, static_cast<int>(i) + 1, column);
    if (i == 0) heading->setBuddy(field);
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
