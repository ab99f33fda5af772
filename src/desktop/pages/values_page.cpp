#include "desktop/pages/values_page.h"

#include <vector>

#include "desktop/binding/run_binding.h"
#include "desktop/look/look.h"
#include "desktop/look/places.h"
#include "desktop/look/scale.h"
#include "desktop/look/twips.h"
#include "desktop/widgets/logo_view.h"
#include "desktop/widgets/tab_order.h"

namespace desktop {

namespace {

// In pixels of the smallest window.
constexpr int DcSize = 11;
constexpr int CaptionGap = 5;
constexpr int PanelRight = 978;
constexpr int PanelWidth = 226;
constexpr int PanelGap = 12;
constexpr int QualityHeight = 16;

}  // namespace

ValuesPage::ValuesPage(forms::ValuesControls& values, forms::SharedControls& shared,
                       forms::SetupControls& setup, forms::WindowControls& form, Binder& binder,
                       QWidget* parent)
    : QWidget(parent),
      values_(values),
      shared_(shared),
      panel_(new Card(QString(), this)),
      run_(new RunColumn(panel_)),
      realTime_(new QCheckBox(run_)),
      quiet_(new QuietLine(this)) {
  BindReadings(binder);
  BindControls(binder);
  OrderTabs();
  FollowDc(setup);
  form.Window.Layouts.Observe([this] { Lay(); });
  values_.LiveReading.Observe([this] { ShowLife(); });
}

void ValuesPage::ShowLife() {
  using Life = ReadingField::Life;
  const std::optional<std::size_t>& live = values_.LiveReading;
  for (std::size_t i = 0; i < Channels; ++i) {
    readings_[i]->SetLife(!live ? Life::Usual : *live == i ? Life::Live : Life::Resting);
  }
}

void ValuesPage::FollowDc(forms::SetupControls& setup) {
  for (std::size_t i = 0; i < Channels; ++i) {
    platform::Label& dc = values_.Label12[i + forms::small_label::FirstDc];
    const auto follow = [this, i, &setup, &dc] {
      // A value that still stands keeps its room until the next block takes it away.
      readings_[i]->SetRoomAbove(setup.Check4.Value != 0 || !dc.Caption.Get().empty());
    };
    setup.Check4.Value.Observe(follow);
    dc.Caption.Observe(follow);
    follow();
  }
}

void ValuesPage::BindReadings(Binder& binder) {
  for (std::size_t i = 0; i < Channels; ++i) {
    readings_[i] = new ReadingField(i < Rows ? look::CurrentMark : look::VoltageMark, this);
    captions_[i] = new QLabel(this);
    captions_[i]->setBuddy(readings_[i]);
    captions_[i]->setWordWrap(true);
    captions_[i]->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    dcValues_[i] = new QLabel(readings_[i]);
    dcValues_[i]->setFont(look::TextFont(DcSize));
    dcValues_[i]->setAttribute(Qt::WA_TransparentForMouseEvents);
    look::SetTextColour(*dcValues_[i], look::QuietText);
    binder.Bind(values_.Label5[i], *readings_[i], ArrayName("Label5", i));
    binder.Bind(values_.Label6[i], *captions_[i], ArrayName("Label6", i), Wording::Foreign);
    binder.Bind(values_.Label12[i + Channels], *dcValues_[i], ArrayName("Label12", i + Channels));
  }
  for (std::size_t i = 0; i < qualities_.size(); ++i) {
    qualities_[i] = new QLabel(this);
    binder.Bind(values_.Label12[i], *qualities_[i], ArrayName("Label12", i));
  }
}

void ValuesPage::BindControls(Binder& binder) {
  BindRun(binder, shared_,
          {values_.CWButton4, "CWButton4", forms::indicator::Values, forms::station::Values},
          *run_);
  run_->AddRow(realTime_);
  panel_->AddWide(run_);
  binder.Bind(values_.Label16, run_->StationHeading(), QStringLiteral("Label16"));
  binder.Bind(values_.Check5, *realTime_, QStringLiteral("Check5"));
  binder.Bind(shared_.QuietLine[forms::quiet_line::Values], *quiet_,
              ArrayName("QuietLine", forms::quiet_line::Values));
}

void ValuesPage::OrderTabs() {
  // As the eye goes: both columns of readings, then what controls them.
  std::vector<QWidget*> order(readings_.begin(), readings_.end());
  for (QWidget* control : std::initializer_list<QWidget*>{&run_->Button(), &run_->Station(0),
                                                          &run_->Station(1), realTime_}) {
    order.push_back(control);
  }
  LeadTabs(order);
}

void ValuesPage::resizeEvent(QResizeEvent*) {
  Lay();
}

void ValuesPage::Lay() {
  for (std::size_t i = 0; i < Channels; ++i) LayReading(i);
  const int width = look::Scaled(PanelWidth);
  const int left = static_cast<int>(PanelRight * window()->width() / look::DesignWidth) - width;
  panel_->setGeometry(left, readings_[0]->y(), width, panel_->sizeHint().height());
  const int below = panel_->geometry().bottom() + look::Scaled(PanelGap);
  const QRect logo = LogoView::PlaceOf(shared_.Picture1[forms::logo::Values], *this);
  quiet_->setGeometry(left, below, width, logo.top() - below);
}

void ValuesPage::LayReading(std::size_t channel) {
  const platform::Label& value = values_.Label5[channel];
  const QRect field = PlaceOnPage(value, *this);
  captions_[channel]->setGeometry(
      PlaceOnPage(values_.Label6[channel], *this).adjusted(0, 0, 0, -look::Scaled(CaptionGap)));
  readings_[channel]->setGeometry(field);
  readings_[channel]->SetDigitSize(twips::PointPixels(static_cast<double>(value.FontSize)));
  const QRect dc = PlaceOnPage(values_.Label12[channel + forms::small_label::FirstDc], *this);
  const QPoint inset = dc.topLeft() - field.topLeft();
  QLabel& label = *dcValues_[channel];
  label.setGeometry(
      QRect(inset, QSize(field.width() - 2 * inset.x(), label.fontMetrics().height())));
  if (channel % Rows == Rows - 1) {
    qualities_[channel / Rows]->setGeometry(field.left(), field.bottom() + look::Scaled(CaptionGap),
                                            field.width(), look::Scaled(QualityHeight));
  }
}

}  // namespace desktop
