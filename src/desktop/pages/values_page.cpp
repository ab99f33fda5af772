#include "desktop/pages/values_page.h"

#include <QPainter>
#include <algorithm>

#include "desktop/look/look.h"
#include "desktop/look/twips.h"
#include "desktop/widgets/tab_bar.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr double DcSize = 11;
constexpr double CaptionGap = 5;
constexpr double PanelLeft = 752;
constexpr double PanelWidth = 226;
constexpr double PanelPadding = 22;
constexpr double ButtonHeight = 78;
constexpr double LineHeight = 32;

QRect Rounded(double left, double top, double width, double height) {
  return QRectF(left, top, width, height).toRect();
}

/// The place of a control on the page, which begins below the row of tabs.
QRect Place(const platform::Control& control) {
  return {twips::Pixels(control.Left), twips::Pixels(control.Top) - TabBar::Height,
          twips::Pixels(control.Width), twips::Pixels(control.Height)};
}

QFont Scaled(double pixels, double ratioX, double ratioY) {
  return look::TextFont(static_cast<int>(pixels * look::TextRatio(ratioX, ratioY)));
}

}  // namespace

ValuesPage::ValuesPage(forms::ValuesControls& values, forms::SharedControls& shared, Binder& binder,
                       QWidget* parent)
    : QWidget(parent),
      values_(values),
      shared_(shared),
      indicator_(new RunIndicator(this)),
      run_(new RunButton(this)),
      stationHeading_(new QLabel(this)),
      realTime_(new QCheckBox(this)),
      quiet_(new QuietLine(this)) {
  BindReadings(binder);
  BindControls(binder);
  OrderTabs();
  Follow();
}

void ValuesPage::BindReadings(Binder& binder) {
  for (std::size_t i = 0; i < Channels; ++i) {
    readings_[i] = new ReadingField(i < Rows ? look::CurrentMark : look::VoltageMark, this);
    captions_[i] = new QLabel(this);
    captions_[i]->setBuddy(readings_[i]);
    captions_[i]->setWordWrap(true);
    captions_[i]->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    dcValues_[i] = new QLabel(readings_[i]);
    dcValues_[i]->setAttribute(Qt::WA_TransparentForMouseEvents);
    look::SetTextColour(*dcValues_[i], look::QuietText);
    binder.Bind(values_.Label5[i], *readings_[i], ArrayName("Label5", i));
    binder.Bind(values_.Label6[i], *captions_[i], ArrayName("Label6", i), Ampersand::Letter);
    binder.Bind(values_.Label12[i + Channels], *dcValues_[i], ArrayName("Label12", i + Channels));
  }
  for (std::size_t i = 0; i < qualities_.size(); ++i) {
    qualities_[i] = new QLabel(this);
    binder.Bind(values_.Label12[i], *qualities_[i], ArrayName("Label12", i));
  }
}

void ValuesPage::BindControls(Binder& binder) {
  binder.Bind(shared_.Shape12[forms::indicator::Values], *indicator_, ArrayName("Shape12", 0));
  binder.Bind(values_.CWButton4, *run_, QStringLiteral("CWButton4"));
  binder.Bind(values_.Label16, *stationHeading_, QStringLiteral("Label16"));
  for (std::size_t i = 0; i < stations_.size(); ++i) {
    stations_[i] = new RadioButton(this);
    binder.Bind(shared_.Option3[i], *stations_[i], ArrayName("Option3", i), Ampersand::Letter);
  }
  binder.Bind(values_.Check5, *realTime_, QStringLiteral("Check5"));
  binder.Bind(shared_.QuietLine[forms::quiet_line::Values], *quiet_,
              ArrayName("QuietLine", forms::quiet_line::Values));
}

void ValuesPage::OrderTabs() {
  // What is used most comes first; the readings follow in the order of the channels.
  QWidget* last = run_;
  for (QWidget* next : {static_cast<QWidget*>(stations_[0]), static_cast<QWidget*>(stations_[1]),
                        static_cast<QWidget*>(realTime_)}) {
    setTabOrder(last, next);
    last = next;
  }
  for (ReadingField* reading : readings_) {
    setTabOrder(last, reading);
    last = reading;
  }
}

void ValuesPage::Follow() {
  const auto lay = [this] { Lay(); };
  for (std::size_t i = 0; i < Channels; ++i) {
    // The font's size is the last that the layout rules give to a reading.
    values_.Label5[i].FontSize.Observe(lay);
    values_.Label12[i + Channels].Top.Observe(lay);
  }
}

void ValuesPage::resizeEvent(QResizeEvent*) {
  Lay();
}

void ValuesPage::Lay() {
  const double ratioX = window()->width() / look::DesignWidth;
  const double ratioY = window()->height() / look::DesignHeight;
  for (std::size_t i = 0; i < Channels; ++i) LayReading(i, ratioX, ratioY);
  LayControls(ratioX, ratioY);
  update();
}

void ValuesPage::LayReading(std::size_t channel, double ratioX, double ratioY) {
  const platform::Label& title = values_.Label6[channel];
  const platform::Label& value = values_.Label5[channel];
  const QRect field = Place(value);
  captions_[channel]->setFont(Scaled(look::TextSize, ratioX, ratioY));
  captions_[channel]->setGeometry(
      Place(title).adjusted(0, 0, 0, -static_cast<int>(CaptionGap * ratioY)));
  readings_[channel]->setGeometry(field);
  readings_[channel]->SetDigitSize(twips::PointPixels(static_cast<double>(value.FontSize)));
  const platform::Label& dc = values_.Label12[channel + Channels];
  const int inset = twips::Pixels(dc.Left - value.Left);
  dcValues_[channel]->setFont(look::TextFont(static_cast<int>(DcSize * ratioY)));
  dcValues_[channel]->setGeometry(Rounded(inset, twips::Pixels(dc.Top - value.Top),
                                          field.width() - 2 * inset, DcSize * 1.3 * ratioY));
  if (channel % Rows == Rows - 1) {
    qualities_[channel / Rows]->setGeometry(Rounded(field.left(),
                                                    field.bottom() + CaptionGap * ratioY,
                                                    field.width(), LineHeight * ratioY / 2));
  }
}

void ValuesPage::LayControls(double ratioX, double ratioY) {
  const double textRatio = look::TextRatio(ratioX, ratioY);
  const double top = Place(values_.Label5[0]).top();
  const double left = PanelLeft * ratioX;
  const double width = PanelWidth * ratioX;
  const double padding = PanelPadding * textRatio;
  const double inner = width - 2 * padding;
  const double line = LineHeight * textRatio;
  double y = top + padding;
  run_->setGeometry(Rounded(left + padding, y, inner, ButtonHeight * textRatio));
  indicator_->CentreOn(*run_);
  y += ButtonHeight * textRatio + padding * 1.3;
  QFont heading = Scaled(look::TextSize, ratioX, ratioY);
  heading.setBold(true);
  stationHeading_->setFont(heading);
  stationHeading_->setGeometry(Rounded(left + padding, y, inner, line));
  for (RadioButton* station : stations_) {
    y += line;
    station->setFont(Scaled(look::TextSize, ratioX, ratioY));
    station->setGeometry(Rounded(left + padding, y, inner, line));
  }
  y += line + padding * 0.8;
  realTime_->setFont(Scaled(look::TextSize, ratioX, ratioY));
  realTime_->setGeometry(Rounded(left + padding, y, inner, line));
  panel_ = QRectF(left, top, width, y + line + padding * 0.8 - top);
  quiet_->setFont(Scaled(look::TextSize, ratioX, ratioY));
  const double below = panel_.bottom() + padding / 2;
  quiet_->setGeometry(
      Rounded(left + padding, below, inner, Place(shared_.Picture1[4]).top() - below));
}

void ValuesPage::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(look::Edge, 1));
  painter.setBrush(look::Card);
  painter.drawRoundedRect(panel_, look::Corner + 2, look::Corner + 2);
}

}  // namespace desktop
