#include "desktop/pages/recorder_page.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/widgets/elided_label.h"
#include "desktop/widgets/keep_room.h"
#include "desktop/widgets/quiet_line.h"
#include "desktop/widgets/run_column.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr int Margin = 16;
constexpr int PanelWidth = 226;
constexpr int ShortField = 96;
constexpr int BarHeight = 8;
constexpr int LegendGap = 2;
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
    : QWidget(parent), recorder_(recorder), shared_(shared), values_(values), binder_(binder) {
  auto* all = new QGridLayout(this);
  all->setContentsMargins(Margin, Margin, Margin, 0);
  all->setSpacing(Margin);
  all->addWidget(RecordingCard(), 0, 0);
  all->addWidget(RunPanel(), 0, 1);
  all->addWidget(TriggerCard(), 1, 0);
  all->addWidget(PauseCard(), 1, 1);
  auto* graph = new GraphView(recorder.CWGraph2, guard, this);
  graph->setObjectName(QStringLiteral("CWGraph2"));
  graph->setAccessibleName(QStringLiteral("Quick view of the recording"));
  QWidget* legend = Legend();
  const auto show = [&recorder, graph, legend] {
    for (QWidget* part : std::initializer_list<QWidget*>{graph, legend})
      part->setVisible(recorder.CWGraph2.Visible);
  };
  recorder.CWGraph2.Visible.Observe(show);
  show();
  KeepRoom(*graph);
  all->addWidget(graph, 2, 0);
  // It is higher than the graph in the smallest window, and there is room above it.
  all->addWidget(legend, 1, 1, 2, 1, Qt::AlignBottom);
  all->addWidget(Foot(), 3, 0, 1, 2);
  all->setColumnStretch(0, 1);
  all->setColumnMinimumWidth(1, PanelWidth);
  all->setRowStretch(2, 1);
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
  auto* heading = new ClickLabel(card);
  MakeHeading(*heading);
  binder_.Bind(recorder_.Label10[forms::record_line::Heading], *heading, ArrayName("Label10", 0));
  card->AddWide(heading);
  for (std::size_t i = 0; i < recorder_.Option2.size(); ++i) {
    auto* format = new RadioButton(card);
    binder_.Bind(recorder_.Option2[i], *format, ArrayName("Option2", i));
    card->AddWide(format);
  }
  card->Grid().setRowMinimumHeight(card->Grid().rowCount(), Margin / 2);
  for (const std::size_t path : {1U, 4U}) {
    auto* label = new ElidedLabel(card);
    KeepRoom(*label);
    binder_.Bind(recorder_.Label10[path], *label, ArrayName("Label10", path), Wording::Foreign);
    card->AddWide(label);
  }
  card->AddWide(Progress(card));
  auto* analysis = new QProgressBar(card);
  analysis->setFixedHeight(BarHeight);
  analysis->setAccessibleName(QStringLiteral("Progress of the analysis"));
  binder_.Bind(recorder_.ProgressBar1, *analysis, QStringLiteral("ProgressBar1"));
  // It is painted where no layout is made anew.
  KeepRoom(*analysis);
  card->AddWide(analysis);
  card->AddWide(OnDisk(card));
  auto* notStored = new QuietLine(card);
  notStored->setMinimumHeight(NotStoredHeight);
  binder_.Bind(recorder_.NotStored, *notStored, QStringLiteral("NotStored"));
  card->AddWide(notStored);
  return card;
}

QWidget* RecorderPage::Progress(QWidget* parent) {
  auto* line = new QWidget(parent);
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins(0, Margin / 2, 0, 0);
  auto* heading = new ClickLabel(line);
  auto* counter = new ClickLabel(line);
  // So a screen reader tells what is counted.
  heading->setBuddy(counter);
  binder_.Bind(recorder_.Label10[2], *heading, ArrayName("Label10", 2));
  binder_.Bind(recorder_.Label10[3], *counter, ArrayName("Label10", 3));
  for (QLabel* part : {heading, counter}) row->addWidget(part);
  row->addStretch(1);
  return line;
}

QWidget* RecorderPage::OnDisk(Card* card) {
  auto* area = new QWidget(card);
  auto* grid = new QGridLayout(area);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setVerticalSpacing(card->Grid().verticalSpacing());
  for (std::size_t i = 0; i < recorder_.OnDisk.size(); ++i) {
    auto* stored = new QLabel(area);
    binder_.Bind(recorder_.OnDisk[i], *stored, ArrayName("OnDisk", i));
    grid->addWidget(stored, static_cast<int>(i), 0);
  }
  // Beside the first stream, where the words of both have the most room.
  auto* room = new QLabel(area);
  binder_.Bind(recorder_.Room, *room, QStringLiteral("Room"));
  grid->addWidget(room, 0, 1, Qt::AlignRight);
  grid->setColumnStretch(0, 1);
  return area;
}

QWidget* RecorderPage::RunPanel() {
  auto* panel = new Card(QString(), this);
  auto* run = new RunColumn(panel);
  binder_.Bind(recorder_.CWButton3, run->Button(), QStringLiteral("CWButton3"));
  // No lamp tells of this view's capture.
  run->Indicator().hide();
  panel->AddWide(run);
  auto* quiet = new QuietLine(panel);
  binder_.Bind(shared_.QuietLine[forms::quiet_line::Recorder], *quiet,
               ArrayName("QuietLine", forms::quiet_line::Recorder));
  panel->AddWide(quiet);
  panel->Grid().setRowStretch(panel->Grid().rowCount() - 1, 1);
  return panel;
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
  grid.addWidget(Caption(6, card, current), 0, 1);
  grid.addWidget(Caption(5, card, voltage), 0, 2);
  grid.addWidget(Caption(22, card, current), 1, 0);
  grid.addWidget(current, 1, 1);
  grid.addWidget(voltage, 1, 2);
  grid.addWidget(Caption(9, card), 1, 3);
  grid.addWidget(Caption(24, card, before), 2, 0);
  grid.addWidget(before, 2, 1);
  grid.addWidget(after, 2, 2);
  grid.addWidget(Caption(23, card), 2, 3);
  grid.setColumnStretch(1, 0);
  grid.setColumnStretch(3, 1);
  return card;
}

Card* RecorderPage::PauseCard() {
  auto* card = new Card(QString(), this);
  binder_.Bind(recorder_.Frame4, *card, QStringLiteral("Frame4"));
  card->Grid().setColumnMinimumWidth(0, 0);
  for (std::size_t i = 0; i < recorder_.Option1.size(); ++i) {
    auto* kind = new RadioButton(card);
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

QWidget* RecorderPage::Legend() {
  auto* legend = new QWidget(this);
  legend->setObjectName(QStringLiteral("Legend"));
  auto* column = new QVBoxLayout(legend);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(LegendGap);
  for (std::size_t i = 0; i < recorder_.CWGraph2.Plots.size(); ++i) {
    auto* name = new CurveName(legend);
    platform::Label& words = values_.Label6[i];
    platform::Plot& curve = recorder_.CWGraph2.Plots[i];
    const auto tell = [name, &words] { name->setText(ToQt(words.Caption)); };
    const auto colour = [name, &curve] { name->SetColour(look::ColourOf(curve.LineColor)); };
    words.Caption.Observe(tell);
    curve.LineColor.Observe(colour);
    tell();
    colour();
    column->addWidget(name);
  }
  return legend;
}

QWidget* RecorderPage::Foot() {
  auto* foot = new QWidget(this);
  foot->setFixedHeight(FootHeight);
  auto* row = new QHBoxLayout(foot);
  row->setContentsMargins(0, 0, 0, Margin);
  auto* log = new QPushButton(foot);
  binder_.Bind(recorder_.Command9, *log, QStringLiteral("Command9"));
  KeepRoom(*log);
  row->addWidget(log);
  auto* check = new QPushButton(foot);
  binder_.Bind(recorder_.CheckRecording, *check, QStringLiteral("CheckRecording"));
  row->addWidget(check);
  row->addSpacing(Margin / 2);
  auto* line = new QuietLine(foot);
  line->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  binder_.Bind(recorder_.CheckLine, *line, QStringLiteral("CheckLine"));
  row->addWidget(line, 1);
  row->addSpacing(LogoWidth);
  return foot;
}

}  // namespace desktop
