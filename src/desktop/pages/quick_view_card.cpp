#include "desktop/pages/quick_view_card.h"

#include <QVBoxLayout>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/widgets/announced.h"
#include "desktop/widgets/curve_name.h"
#include "desktop/widgets/keep_room.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr int LegendWidth = 210;
constexpr int LegendGap = 2;
constexpr int HeadingGap = 8;

}  // namespace

QuickViewCard::QuickViewCard(forms::RecorderControls& recorder, forms::ValuesControls& values,
                             platform::Guard& guard, QWidget* parent)
    : Card(QString(), parent), graph_(recorder.CWGraph2) {
  auto* heading = new QLabel(QStringLiteral("Quick view"), this);
  heading->setFont(look::BoldFont(look::HeadingSize));
  auto* graph = new GraphView(graph_, guard, this);
  graph->setObjectName(QStringLiteral("CWGraph2"));
  Announce(*graph, QAccessible::Chart, QStringLiteral("Quick view of the recording"));
  QWidget* legend = Legend(values);
  QLabel* hint = Hint();
  const auto show = [this, graph, legend, hint] {
    for (QWidget* part : std::initializer_list<QWidget*>{graph, legend})
      part->setVisible(graph_.Visible);
    hint->setVisible(!graph_.Visible);
  };
  graph_.Visible.Observe(show);
  show();
  for (QWidget* part : std::initializer_list<QWidget*>{graph, legend}) KeepRoom(*part);
  auto* view = new QVBoxLayout;
  view->setSpacing(HeadingGap);
  view->addWidget(heading);
  view->addWidget(graph, 1);
  Grid().setColumnMinimumWidth(0, 0);
  Grid().setColumnStretch(0, 1);
  Grid().setColumnStretch(1, 0);
  Grid().addLayout(view, 0, 0);
  // Beside the heading too: the graph has no more height than the names need.
  Grid().addWidget(legend, 0, 1, Qt::AlignTop);
  Grid().addWidget(hint, 0, 0, 1, 2, Qt::AlignCenter);
}

QWidget* QuickViewCard::Legend(forms::ValuesControls& values) {
  auto* legend = new QWidget(this);
  legend->setObjectName(QStringLiteral("Legend"));
  legend->setFixedWidth(LegendWidth);
  auto* column = new QVBoxLayout(legend);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(LegendGap);
  for (std::size_t i = 0; i < graph_.Plots.size(); ++i) {
    auto* name = new CurveName(legend);
    platform::Label& words = values.Label6[i];
    platform::Plot& curve = graph_.Plots[i];
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

QLabel* QuickViewCard::Hint() {
  auto* hint =
      new QLabel(QStringLiteral("A recording in text format is shown here after STOP."), this);
  hint->setObjectName(QStringLiteral("QuickViewHint"));
  hint->setAlignment(Qt::AlignCenter);
  look::SetTextColour(*hint, look::QuietText);
  return hint;
}

}  // namespace desktop
