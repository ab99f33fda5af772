#include "desktop/pages/phasor_page.h"

#include <QVBoxLayout>
#include <algorithm>

#include "desktop/binding/run_binding.h"
#include "desktop/look/look.h"
#include "desktop/look/scale.h"
#include "desktop/look/text.h"
#include "desktop/look/twips.h"
#include "desktop/widgets/announced.h"
#include "desktop/widgets/logo_view.h"
#include "platform/stream_format.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr int Gap = 14;
constexpr int HeadingTop = 8;
constexpr int ScalesPadding = 12;
constexpr int ScalesGap = 5;
constexpr int ScalesMargin = 5;
constexpr int LargestScales = 226;

}  // namespace

PhasorPage::PhasorPage(const PhasorParts& parts, Binder& binder, QWidget* parent)
    : QWidget(parent),
      parts_(parts),
      frame_(new Ground(this)),
      heading_(new QLabel(ToQt(parts.Phasor.Frame2.Caption), frame_)),
      picture_(new PicturePad(parts.Phasor.phasordiagram, frame_)),
      table_(new ValueTable(parts.Phasor.Grid1, frame_)),
      run_(new RunColumn(frame_)),
      quiet_(new QuietLine(this)),
      scalesFrame_(new Ground(frame_)),
      automatic_(new QCheckBox(scalesFrame_)) {
  frame_->setObjectName(QStringLiteral("Frame2"));
  scalesFrame_->setObjectName(QStringLiteral("Frame3"));
  heading_->setFont(look::BoldFont(look::HeadingSize));
  picture_->lower();
  picture_->setObjectName(QStringLiteral("phasordiagram"));
  Announce(*picture_, QAccessible::Graphic, QStringLiteral("Phasor diagram"));
  BindControls(binder);
  FillScales(binder);
  Follow();
}

void PhasorPage::BindControls(Binder& binder) {
  BindRun(binder, parts_.Shared,
          {parts_.Phasor.CWButton2, "CWButton2", forms::indicator::Phasor, forms::station::Phasor},
          *run_);
  binder.Bind(parts_.Phasor.Label17, run_->StationHeading(), QStringLiteral("Label17"));
  binder.Bind(parts_.Shared.QuietLine[forms::quiet_line::Phasor], *quiet_,
              ArrayName("QuietLine", forms::quiet_line::Phasor));
}

void PhasorPage::FillScales(Binder& binder) {
  auto* rows = new QVBoxLayout(scalesFrame_);
  rows->setContentsMargins(ScalesPadding, ScalesPadding, ScalesPadding, ScalesPadding);
  rows->setSpacing(ScalesGap);
  auto* heading = new QLabel(ToQt(parts_.Phasor.Frame3.Caption), scalesFrame_);
  heading->setFont(look::BoldFont(look::TextSize));
  rows->addWidget(heading);
  binder.Bind(parts_.Phasor.Check6, *automatic_, QStringLiteral("Check6"));
  rows->addWidget(automatic_);
  QWidget* last = automatic_;
  setTabOrder(&run_->Station(1), automatic_);
  for (std::size_t i = 0; i < scales_.size(); ++i) {
    auto* caption = new QLabel(ToQt(parts_.Phasor.ScaleCaptions[i].Caption), scalesFrame_);
    scales_[i] = new ChoiceBox(scalesFrame_);
    caption->setBuddy(scales_[i]);
    binder.Bind(parts_.Phasor.Combo5[i], *scales_[i], ArrayName("Combo5", i));
    rows->addWidget(caption);
    rows->addWidget(scales_[i]);
    setTabOrder(last, scales_[i]);
    last = scales_[i];
  }
}

void PhasorPage::Follow() {
  const platform::GroupBox& frame = parts_.Phasor.Frame2;
  const auto show = [this, &frame] { frame_->setVisible(frame.Visible); };
  parts_.Phasor.Frame2.Visible.Observe(show);
  show();
  const auto colours = [this] { ShowColours(); };
  parts_.Phasor.Frame2.BackColor.Observe(colours);
  parts_.Phasor.Frame3.BackColor.Observe(colours);
  ShowColours();
  parts_.Form.Window.Layouts.Observe([this] { Lay(); });
  FollowUnits();
}

void PhasorPage::FollowUnits() {
  for (std::size_t i = 0; i < platform::channels::Count; ++i) {
    platform::ComboBox& units =
        parts_.Setup.Combo4[platform::channels::IsCurrent(i) ? forms::unit_list::Current
                                                             : forms::unit_list::Voltage];
    auto& row = parts_.Phasor.Grid1.Cell[i + 1];
    const auto tell = [this, i, &units] {
      table_->TellUnit(static_cast<int>(i) + 1, ToQt(units.Text()));
    };
    // A number keeps the unit that it was reckoned in, whatever is chosen behind it.
    row[1].Observe(tell);
    units.ListIndex.Observe([tell, &row] {
      if (row[1].Get().empty()) tell();
    });
    tell();
  }
}

void PhasorPage::ShowColours() {
  const QColor ground = look::ColourOf(parts_.Phasor.Frame2.BackColor);
  frame_->SetColour(ground);
  table_->SetGround(ground);
  picture_->SetGround(ground);
  const QColor scalesGround = look::ColourOf(parts_.Phasor.Frame3.BackColor);
  scalesFrame_->SetColour(scalesGround);
  for (ChoiceBox* scale : scales_) {
    QPalette colours = scale->palette();
    colours.setColor(QPalette::Base, scalesGround);
    scale->setPalette(colours);
  }
}

void PhasorPage::resizeEvent(QResizeEvent*) {
  Lay();
}

void PhasorPage::Lay() {
  const int gap = look::Scaled(Gap);
  const QSize frame(twips::Pixels(parts_.Phasor.Frame2.Width),
                    twips::Pixels(parts_.Phasor.Frame2.Height));
  frame_->setGeometry(
      QRect(QPoint((width() - frame.width()) / 2, std::max(gap, (height() - frame.height()) / 3)),
            frame));
  const platform::Control& diagram = parts_.Phasor.phasordiagram;
  const QPoint corner(twips::Pixels(diagram.Left), twips::Pixels(diagram.Top));
  int side = twips::Pixels(diagram.Width);
  // A frame of portrait form is too narrow for the whole diagram and the controls beside it.
  if (frame.height() > frame.width()) {
    const int controls = PicturePad::RightMargin(side) + run_->sizeHint().width() + gap +
                         scalesFrame_->sizeHint().width();
    side = std::min(side, frame.width() - corner.x() - controls - 2 * gap);
  }
  heading_->adjustSize();
  // The corner of the picture is free: the circle is far from it.
  heading_->move(corner.x(), look::Scaled(HeadingTop));
  picture_->Place(corner, side);

  // Table and controls fill the other half, clear of the scale line that may reach out of the
  // picture. Its right margin is that of the picture at the left, where the columns leave it.
  const int most = frame.width() - gap;
  const int margin = std::max(gap, PicturePad::RightMargin(side));
  // A high window leaves little beside the picture, but the controls end above the scale line.
  const bool wide = corner.x() + side + margin + table_->NeededWidth() <= most;
  const int left = corner.x() + side + (wide ? margin : gap);
  const int right = std::clamp(left + table_->NeededWidth(), frame.width() - corner.x(), most);
  const int below = std::max(run_->sizeHint().height(), scalesFrame_->sizeHint().height());
  const int high = wide ? side - gap - below : 0;
  table_->Lay(QRect(left, corner.y(), right - left, high));
  LayBelow(left, table_->geometry().bottom() + gap, right);
  // Below the frame, from under the table to the logo.
  const int quietTop = frame_->geometry().bottom() + gap / 2;
  const int quietLeft = frame_->x() + left;
  const QRect logo = LogoView::PlaceOf(parts_.Shared.Picture1[forms::logo::Phasor], *this);
  quiet_->setGeometry(quietLeft, quietTop, logo.left() - gap - quietLeft, height() - quietTop);
}

void PhasorPage::LayBelow(int left, int top, int right) {
  // The ring of the run button reaches out of the edges that the controls share with the table.
  const int reach = look::Scaled(RunIndicator::Reach);
  run_->setGeometry(left - reach, top - reach, run_->minimumWidth(), run_->sizeHint().height());
  const int room = right - run_->geometry().right() - look::Scaled(ScalesMargin);
  const int width = std::min(room, look::Scaled(LargestScales));
  scalesFrame_->setGeometry(right - width, top, width, scalesFrame_->sizeHint().height());
}

}  // namespace desktop
