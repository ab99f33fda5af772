#include "desktop/pages/recorder_page.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/look/look.h"
#include "desktop/pages/quick_view_card.h"
#include "desktop/widgets/counter_label.h"
#include "desktop/widgets/elided_label.h"
#include "desktop/widgets/keep_room.h"
#include "desktop/widgets/quiet_line.h"
#include "desktop/widgets/run_column.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr int PanelWidth = 226;
constexpr int ShortField = 80;
constexpr int BarHeight = 8;
constexpr int PathWidth = 640;
/// A line that says nothing is as high as one that does.
constexpr int LineHeight = 17;
constexpr int LineGap = 4;
constexpr int GroupGap = 8;
/// Between what belongs to one pair of trigger fields and the next.
constexpr int PairGap = 24;
/// Two rows of text.
constexpr int NotStoredHeight = 34;
/// Room at the foot of the page for the logo.
constexpr int FootHeight = 52;
/// The same beside what stands there.
constexpr int LogoWidth = 200;

void MakeHeading(QLabel& label) {
  label.setFont(look::BoldFont(look::HeadingSize));
}

}  // namespace

RecorderPage::RecorderPage(forms::RecorderControls& recorder, forms::SharedControls& shared,
                           forms::ValuesControls& values, Binder& binder, platform::Guard& guard,
                           QWidget* parent)
    : QWidget(parent), recorder_(recorder), shared_(shared), binder_(binder) {
  auto* all = new QGridLayout(this);
  all->setContentsMargins(look::PageMargin, look::PageMargin, look::PageMargin, 0);
  all->setSpacing(look::PageMargin);
  all->addWidget(RecordingCard(), 0, 0);
  all->addLayout(RunSide(), 0, 1);
  all->addWidget(TriggerCard(), 1, 0, 1, 2);
  all->addWidget(PauseCard(), 2, 0, 1, 2);
  all->addWidget(new QuickViewCard(recorder, values, guard, this), 3, 0, 1, 2);
  all->addWidget(Foot(), 4, 0, 1, 2);
  all->setColumnStretch(0, 1);
  all->setColumnMinimumWidth(1, PanelWidth);
  all->setRowStretch(3, 1);
}

ClickLabel* RecorderPage::Caption(std::size_t row, QWidget* parent, QWidget* field) {
  auto* label = new ClickLabel(parent);
  label->setBuddy(field);
  binder_.Bind(shared_.Label3[row], *label, ArrayName("Label3", row));
  return label;
}

TextField* RecorderPage::Field(std::size_t index, QWidget* parent, const QString& accessibleName) {
  auto* field = new TextField(parent);
  field->setMaximumWidth(ShortField);
  field->setAccessibleName(accessibleName);
  binder_.Bind(recorder_.Text3[index], *field, ArrayName("Text3", index));
  return field;
}

Card* RecorderPage::RecordingCard() {
  auto* card = new Card(QString(), this);
  card->AddWide(Formats(card));
  card->AddWide(Files(card));
  card->AddWide(Told(card));
  return card;
}

QWidget* RecorderPage::Formats(QWidget* parent) {
  auto* formats = new QWidget(parent);
  auto* rows = new QVBoxLayout(formats);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(LineGap);
  auto* heading = new ClickLabel(formats);
  MakeHeading(*heading);
  binder_.Bind(recorder_.Label10[forms::record_line::Heading], *heading, ArrayName("Label10", 0));
  // What the disk still takes stands beside its name, where no other text needs the room.
  auto* room = new QLabel(formats);
  room->setFixedHeight(LineHeight);
  room->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  room->setAccessibleDescription(QStringLiteral("room on the disk"));
  binder_.Bind(recorder_.Room, *room, QStringLiteral("Room"));
  auto* first = new QHBoxLayout;
  first->addWidget(heading);
  first->addWidget(room, 1);
  rows->addLayout(first);
  for (std::size_t i = 0; i < recorder_.Option2.size(); ++i) {
    auto* format = new RadioButton(formats);
    format->BelongTo(*heading);
    binder_.Bind(recorder_.Option2[i], *format, ArrayName("Option2", i));
    rows->addWidget(format);
  }
  return formats;
}

QWidget* RecorderPage::Files(QWidget* parent) {
  auto* files = new QWidget(parent);
  auto* grid = new QGridLayout(files);
  grid->setContentsMargins(0, GroupGap, 0, 0);
  grid->setVerticalSpacing(LineGap);
  int row = 0;
  for (const std::size_t path : {forms::record_line::FirstPath, forms::record_line::SecondPath}) {
    auto* label = new ElidedLabel(files);
    label->setAccessibleDescription(QStringLiteral("file of stream %1").arg(row + 1));
    label->setMaximumWidth(PathWidth);
    KeepRoom(*label);
    binder_.Bind(recorder_.Label10[path], *label, ArrayName("Label10", path), Wording::Foreign);
    grid->addWidget(label, row++, 0);
  }
  auto* log = new QPushButton(files);
  binder_.Bind(recorder_.Command9, *log, QStringLiteral("Command9"));
  KeepRoom(*log);
  auto* folder = new QPushButton(files);
  binder_.Bind(recorder_.OpenFolder, *folder, QStringLiteral("OpenFolder"));
  grid->addWidget(log, 0, 1, row, 1);
  grid->addWidget(folder, 0, 2, row, 1);
  // The paths take what they can use, and the buttons stay beside them in a wide window.
  grid->setColumnStretch(0, 100);
  grid->setColumnStretch(3, 1);
  return files;
}

QWidget* RecorderPage::Told(QWidget* parent) {
  auto* told = new QWidget(parent);
  auto* lines = new QVBoxLayout(told);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->setSpacing(LineGap);
  lines->addLayout(Progress(told));
  auto* analysis = new QProgressBar(told);
  analysis->setFixedHeight(BarHeight);
  analysis->setAccessibleName(QStringLiteral("Progress of the analysis"));
  binder_.Bind(recorder_.ProgressBar1, *analysis, QStringLiteral("ProgressBar1"));
  // It is painted where no layout is made anew.
  KeepRoom(*analysis);
  lines->addWidget(analysis);
  for (std::size_t i = 0; i < recorder_.OnDisk.size(); ++i) {
    auto* stored = new QLabel(told);
    stored->setFixedHeight(LineHeight);
    stored->setAccessibleDescription(QStringLiteral("stored of stream %1").arg(i + 1));
    binder_.Bind(recorder_.OnDisk[i], *stored, ArrayName("OnDisk", i));
    lines->addWidget(stored);
  }
  auto* notStored = new QuietLine(told);
  notStored->setMinimumHeight(NotStoredHeight);
  notStored->setAccessibleDescription(QStringLiteral("what was not stored"));
  binder_.Bind(recorder_.NotStored, *notStored, QStringLiteral("NotStored"));
  lines->addWidget(notStored);
  return told;
}

QLayout* RecorderPage::Progress(QWidget* parent) {
  auto* row = new QHBoxLayout;
  row->setSpacing(LineGap);
  auto* heading = new ClickLabel(parent);
  auto* counter = new CounterLabel(parent);
  // So a screen reader tells what is counted.
  heading->setBuddy(counter);
  binder_.Bind(recorder_.Label10[2], *heading, ArrayName("Label10", 2));
  binder_.Bind(recorder_.Label10[3], *counter, ArrayName("Label10", 3));
  for (QLabel* part : std::initializer_list<QLabel*>{heading, counter}) row->addWidget(part);
  row->addStretch(1);
  return row;
}

QLayout* RecorderPage::RunSide() {
  auto* side = new QVBoxLayout;
  side->setSpacing(GroupGap);
  side->addWidget(RunCard());
  // Below the card, which is as high as its button: there is room for a long reason.
  auto* quiet = new QuietLine(this);
  quiet->setAccessibleDescription(QStringLiteral("state of the recording"));
  binder_.Bind(shared_.QuietLine[forms::quiet_line::Recorder], *quiet,
               ArrayName("QuietLine", forms::quiet_line::Recorder));
  side->addWidget(quiet, 1);
  return side;
}

Card* RecorderPage::RunCard() {
  auto* card = new Card(QString(), this);
  auto* run = new RunColumn(card);
  binder_.Bind(recorder_.CWButton3, run->Button(), QStringLiteral("CWButton3"));
  // No lamp tells of this view's capture.
  run->Indicator().hide();
  card->Grid().addWidget(run, card->Grid().rowCount(), 0, 1, 3, Qt::AlignHCenter);
  // In the place of the button, which is hidden as long as this line speaks.
  auto* waits = new QuietLine(card);
  waits->setAccessibleDescription(QStringLiteral("what STOP waits for"));
  binder_.Bind(recorder_.StopWaits, *waits, QStringLiteral("StopWaits"));
  waits->setAttribute(Qt::WA_TransparentForMouseEvents);
  waits->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  card->Grid().addWidget(waits, card->Grid().rowCount() - 1, 0, 1, 3);
  return card;
}

Card* RecorderPage::TriggerCard() {
  auto* card = new Card(QString(), this);
  binder_.Bind(recorder_.Shape9, *card, QStringLiteral("Shape9"));
  KeepRoom(*card);
  TextField* current = Field(2, card, QStringLiteral("overflow value of the currents"));
  TextField* voltage = Field(3, card, QStringLiteral("overflow value of the voltages"));
  TextField* before = Field(4, card, QStringLiteral("seconds before the trigger"));
  TextField* after = Field(5, card, QStringLiteral("seconds after the trigger"));
  QGridLayout& grid = card->Grid();
  grid.setColumnMinimumWidth(0, 0);
  grid.setColumnStretch(1, 0);
  grid.addWidget(Caption(6, card, current), 0, 1);
  grid.addWidget(Caption(5, card, voltage), 0, 2);
  grid.addWidget(StoredOnly(card), 0, 3, 1, 7);
  const std::initializer_list<QWidget*> row = {Caption(22, card, current), current, voltage,
                                               Caption(9, card)};
  const std::initializer_list<QWidget*> times = {Caption(24, card, before), before, after,
                                                 Caption(23, card)};
  int column = 0;
  for (QWidget* part : row) grid.addWidget(part, 1, column++);
  grid.setColumnMinimumWidth(column++, PairGap);
  for (QWidget* part : times) grid.addWidget(part, 1, column++);
  grid.setColumnStretch(column, 1);
  return card;
}

QLabel* RecorderPage::StoredOnly(QWidget* parent) {
  auto* note = new QLabel(
      QStringLiteral("Stored only: a recording starts at RUN, whatever stands here."), parent);
  note->setObjectName(QStringLiteral("StoredOnly"));
  look::SetTextColour(*note, look::QuietText);
  return note;
}

Card* RecorderPage::PauseCard() {
  auto* card = new Card(QString(), this);
  binder_.Bind(recorder_.Frame4, *card, QStringLiteral("Frame4"));
  card->Grid().setColumnMinimumWidth(0, 0);
  for (std::size_t i = 0; i < recorder_.Option1.size(); ++i) {
    auto* kind = new RadioButton(card);
    kind->BelongTo(QStringLiteral("start of a recording"));
    binder_.Bind(recorder_.Option1[i], *kind, ArrayName("Option1", i));
    card->AddWide(kind);
  }
  TextField* pause = Field(8, card, QStringLiteral("seconds pause after trigger event"));
  ClickLabel* caption = Caption(28, card, pause);
  caption->setWordWrap(true);
  card->AddWide(caption);
  card->AddWide(pause);
  return card;
}

QWidget* RecorderPage::Foot() {
  auto* foot = new QWidget(this);
  foot->setFixedHeight(FootHeight);
  auto* row = new QHBoxLayout(foot);
  row->setContentsMargins(0, 0, 0, look::PageMargin);
  auto* check = new QPushButton(foot);
  binder_.Bind(recorder_.CheckRecording, *check, QStringLiteral("CheckRecording"));
  row->addWidget(check);
  row->addSpacing(GroupGap);
  auto* line = new QuietLine(foot);
  line->setAccessibleDescription(QStringLiteral("recordings without a log"));
  line->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  binder_.Bind(recorder_.CheckLine, *line, QStringLiteral("CheckLine"));
  row->addWidget(line, 1);
  row->addSpacing(LogoWidth);
  return foot;
}

}  // namespace desktop
