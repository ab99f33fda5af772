#include "desktop/pages/phasor_page.h"

#include <QFrame>
#include <algorithm>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/look/twips.h"

namespace desktop {

namespace {

constexpr int Gap = 20;
constexpr int TableRow = 30;
constexpr int Line = 32;
constexpr int ButtonWidth = 168;
constexpr int ButtonHeight = 64;
constexpr int LargestTable = 1000;
constexpr int ScalesPadding = 12;

using twips::Pixels;

}  // namespace

PhasorPage::PhasorPage(forms::PhasorControls& phasor, forms::ValuesControls& values,
                       forms::SharedControls& shared, Binder& binder, PicturePad& picture,
                       QWidget* parent)
    : QWidget(parent),
      phasor_(phasor),
      values_(values),
      shared_(shared),
      frame_(new QFrame(this)),
      heading_(new QLabel(frame_)),
      picture_(picture),
      table_(new ValueTable(phasor.Grid1, frame_)),
      indicator_(new RunIndicator(frame_)),
      run_(new RunButton(frame_)),
      stationHeading_(new QLabel(frame_)),
      quiet_(new QuietLine(this)),
      scalesFrame_(new QFrame(frame_)),
      scalesHeading_(new QLabel(scalesFrame_)),
      automatic_(new QCheckBox(scalesFrame_)) {
  frame_->setObjectName(QStringLiteral("Frame2"));
  scalesFrame_->setObjectName(QStringLiteral("Frame3"));
  picture_.setParent(frame_);
  picture_.lower();
  picture_.setObjectName(QStringLiteral("phasordiagram"));
  picture_.setAccessibleName(QStringLiteral("Phasor diagram"));
  BindControls(binder);
  Follow();
}

void PhasorPage::BindControls(Binder& binder) {
  heading_->setText(ToQt(phasor_.Frame2.Caption));
  binder.Bind(shared_.Shape12[forms::indicator::Phasor], *indicator_, ArrayName("Shape12", 1));
  binder.Bind(phasor_.CWButton2, *run_, QStringLiteral("CWButton2"));
  binder.Bind(phasor_.Label17, *stationHeading_, QStringLiteral("Label17"));
  for (std::size_t i = 0; i < stations_.size(); ++i) {
    stations_[i] = new RadioButton(frame_);
    binder.Bind(shared_.Option3[i + forms::station::Phasor], *stations_[i],
                ArrayName("Option3", i + 4), Ampersand::Letter);
  }
  binder.Bind(shared_.QuietLine[forms::quiet_line::Phasor], *quiet_,
              ArrayName("QuietLine", forms::quiet_line::Phasor));
  scalesHeading_->setText(ToQt(phasor_.Frame3.Caption));
  binder.Bind(phasor_.Check6, *automatic_, QStringLiteral("Check6"));
  for (std::size_t i = 0; i < scales_.size(); ++i) {
    scaleCaptions_[i] = new QLabel(ToQt(phasor_.ScaleCaptions[i].Caption), scalesFrame_);
    scales_[i] = new ChoiceBox(scalesFrame_);
    scaleCaptions_[i]->setBuddy(scales_[i]);
    binder.Bind(phasor_.Combo5[i], *scales_[i], ArrayName("Combo5", i));
  }
  setTabOrder(run_, stations_[0]);
  setTabOrder(stations_[0], stations_[1]);
  setTabOrder(stations_[1], automatic_);
  setTabOrder(automatic_, scales_[0]);
  setTabOrder(scales_[0], scales_[1]);
}

void PhasorPage::Follow() {
  phasor_.Frame2.Visible.Observe([this] { frame_->setVisible(phasor_.Frame2.Visible); });
  frame_->setVisible(phasor_.Frame2.Visible);
  const auto colours = [this] { ShowColours(); };
  phasor_.Frame2.BackColor.Observe(colours);
  phasor_.Frame3.BackColor.Observe(colours);
  ShowColours();
  const auto lay = [this] { Lay(); };
  phasor_.Frame2.Height.Observe(lay);
  phasor_.phasordiagram.Top.Observe(lay);
  for (std::size_t i = 0; i < values_.Label6.size(); ++i) {
    const auto describe = [this, i] {
      table_->DescribeMagnitude(static_cast<int>(i) + 1, ToQt(values_.Label6[i].Caption));
    };
    values_.Label6[i].Caption.Observe(describe);
    describe();
  }
}

void PhasorPage::ShowColours() {
  const auto show = [](QFrame& frame, const platform::GroupBox& control) {
    const QColor ground = look::ColourOf(control.BackColor);
    frame.setStyleSheet(QStringLiteral("#%1 { background: %2; border: 1px solid %3; "
                                       "border-radius: 7px; }")
                            .arg(frame.objectName(), ground.name(), look::Edge.name()));
    return ground;
  };
  table_->SetGround(show(*frame_, phasor_.Frame2));
  const QColor ground = show(*scalesFrame_, phasor_.Frame3);
  for (ChoiceBox* scale : scales_) {
    QPalette colours = scale->palette();
    colours.setColor(QPalette::Base, ground);
    scale->setPalette(colours);
  }
}

void PhasorPage::resizeEvent(QResizeEvent*) {
  Lay();
}

void PhasorPage::Lay() {
  const double textRatio = look::TextRatio(*this);
  const auto scaled = [textRatio](int pixels) { return static_cast<int>(pixels * textRatio); };
  const int frameWidth = Pixels(phasor_.Frame2.Width);
  const int frameHeight = Pixels(phasor_.Frame2.Height);
  frame_->setGeometry((width() - frameWidth) / 2, std::max(Gap, (height() - frameHeight) / 3),
                      frameWidth, frameHeight);
  const int side = Pixels(phasor_.phasordiagram.Width);
  const int left = Pixels(phasor_.phasordiagram.Left);
  const int top = Pixels(phasor_.phasordiagram.Top);
  QFont bold = look::BoldFont(scaled(look::HeadingSize));
  heading_->setFont(bold);
  heading_->adjustSize();
  // The corner of the picture is free: the circle is far from it.
  heading_->move(left, Gap / 2);
  picture_.Place(QPoint(left, top), side);

  const int tableLeft = left + side + Gap;
  const int tableWidth = std::min(frameWidth - tableLeft - Gap, LargestTable);
  const QRect table(tableLeft, top, tableWidth, scaled(TableRow) * ValueTable::Rows);
  table_->Lay(table, textRatio);

  // Below the table, clear of the scale line that may reach under it.
  const int controlsLeft = tableLeft + PicturePad::RightMargin(side);
  int y = table.bottom() + scaled(Gap) + RunIndicator::Reach;
  const int half = (table.right() - controlsLeft) / 2;
  run_->setGeometry(controlsLeft, y, std::min(scaled(ButtonWidth), half - Gap / 2),
                    scaled(ButtonHeight));
  indicator_->CentreOn(*run_);
  LayScales(QPoint(controlsLeft + half + Gap / 2, y - RunIndicator::Reach), half - Gap / 2,
            textRatio);
  y += scaled(ButtonHeight) + scaled(Gap);
  bold.setPixelSize(scaled(look::TextSize));
  stationHeading_->setFont(bold);
  stationHeading_->setGeometry(controlsLeft, y, half, scaled(Line));
  for (RadioButton* station : stations_) {
    y += scaled(Line);
    station->setFont(look::TextFont(scaled(look::TextSize)));
    station->setGeometry(controlsLeft, y, half - Gap / 2, scaled(Line));
  }
  quiet_->setFont(look::TextFont(scaled(look::TextSize)));
  // Below the frame, from under the table to the logo.
  const int quietTop = frame_->geometry().bottom() + Gap / 2;
  const int quietLeft = frame_->x() + tableLeft;
  quiet_->setGeometry(quietLeft, quietTop, Pixels(shared_.Picture1[5].Left) - Gap - quietLeft,
                      height() - quietTop);
}

void PhasorPage::LayScales(QPoint corner, int width, double textRatio) {
  const int line = static_cast<int>(Line * textRatio);
  const int padding = static_cast<int>(ScalesPadding * textRatio);
  const int inner = std::min(width - 2 * padding, line * 5);
  QFont font = look::TextFont(static_cast<int>(look::TextSize * textRatio));
  int y = padding / 2;
  for (QWidget* widget :
       {static_cast<QWidget*>(scalesHeading_), static_cast<QWidget*>(automatic_),
        static_cast<QWidget*>(scaleCaptions_[0]), static_cast<QWidget*>(scales_[0]),
        static_cast<QWidget*>(scaleCaptions_[1]), static_cast<QWidget*>(scales_[1])}) {
    font.setBold(widget == scalesHeading_);
    widget->setFont(font);
    widget->setGeometry(padding, y, inner, line - 2);
    y += line;
  }
  scalesFrame_->setGeometry(QRect(corner, QSize(inner + 2 * padding, y + padding)));
}

}  // namespace desktop
