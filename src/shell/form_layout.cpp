#include "shell/form_layout.h"

#include <algorithm>
#include <cmath>

#include "base/failure.h"
#include "base/trap.h"
#include "capture/modes.h"
#include "platform/stream_format.h"

namespace formroutines {

using platform::Failure;
using platform::Verdict;

namespace {

constexpr std::int32_t ValuesTop = 1665;
constexpr std::int32_t ValuesPitch = 2190;
constexpr std::int32_t TitleHeight = 615;
constexpr double RowGap = 360;

std::int32_t Twips(double value) {
  return static_cast<std::int32_t>(std::lround(value));
}

void Place(platform::Control& control, double left, double top) {
  control.Left = Twips(left);
  control.Top = Twips(top);
}

}  // namespace

FormLayout::FormLayout(forms::Main& main, const packetroutines::RunFields& state,
                       TabController& tabs, const Views& views, platform::Program& program)
    : main_(main), state_(state), tabs_(tabs), views_(views), program_(program) {
  main_.Window.Resize = [this] { FormResize(); };
}

void FormLayout::FormResize() {
  const auto trap = [](const Failure& failure) {
    const bool sizing = failure.Number() == platform::failure::WindowSizing ||
                        failure.Number() == platform::failure::WindowMoving;
    return sizing ? Verdict::SkipStep : Verdict::LeaveRoutine;
  };
  std::int16_t tab = 0;
  bool changeTab = false;
  platform::RunSteps(
      program_, trap, [&] { KeepMinimumWidth(); }, [&] { KeepMinimumHeight(); },
      [&] {
        ratioX_ = static_cast<double>(main_.Window.Width) / platform::MinimumWidth;
        ratioY_ = static_cast<double>(main_.Window.Height) / platform::MinimumHeight;
        tab = main_.TabStrip1.SelectedTab;
        main_.TabStrip1.Visible = false;
        main_.TabStrip1.Width = main_.Window.Width.Get();
        main_.TabStrip1.Height = main_.Window.Height.Get();
        changeTab = !RunActive();
        if (changeTab) tabs_.PassFirstTab();
      },
      [&] {
        PlaceValues();
        PlaceScope();
        PlaceLogos();
        PlacePhasor();
        PlaceInfo();
      },
      [&] {
        if (changeTab) tabs_.ReturnToTab(tab);
      },
      [&] { main_.Window.Layouts = main_.Window.Layouts + 1; },
      [&] { main_.TabStrip1.Visible = true; });
}

void FormLayout::KeepMinimumWidth() {
  if (main_.Window.Width < platform::MinimumWidth) main_.Window.Width = platform::MinimumWidth;
}

void FormLayout::KeepMinimumHeight() {
  if (main_.Window.Height < platform::MinimumHeight) main_.Window.Height = platform::MinimumHeight;
}

bool FormLayout::RunActive() const {
  // Between two blocks of a live view, and while a recording is started or finished, capture rests,
  // but the run goes on; a tab change would end it.
  return state_.CaptureRunning ||
         std::any_of(views_.begin(), views_.end(),
                     [](const packetroutines::View* view) { return view->InHand(); }) ||
         packetroutines::AnyModeSet(state_, [this](const packetroutines::Mode& mode) {
           return !packetroutines::IsLiveView(mode) || mode.RunButton(main_.Buttons()).Value;
         });
}

void FormLayout::PlaceValues() {
  for (std::size_t i = 0; i < main_.Label5.size(); ++i) {
    const double left = ratioX_ * (platform::channels::IsCurrent(i) ? 1200 : 6480);
    const double top =
        ratioY_ * (ValuesTop + ValuesPitch * static_cast<double>(i % platform::channels::OfAKind));
    Place(main_.Label6[i], left, top);
    main_.Label6[i].Width = Twips(ratioX_ * 4095);
    main_.Label6[i].Height = Twips(ratioY_ * TitleHeight);
    Place(main_.Label5[i], left, top + ratioY_ * TitleHeight);
    main_.Label5[i].Width = Twips(ratioX_ * 4095);
    main_.Label5[i].Height = Twips(ratioY_ * 975);
    main_.Label5[i].FontSize = static_cast<float>(ratioY_ * 36);
    Place(main_.Label12[i + forms::small_label::FirstDc], main_.Label5[i].Left + 50.0,
          main_.Label5[i].Top + 50.0);
  }
}

void FormLayout::PlaceScope() {
  const std::int32_t height = main_.TabStrip1.Height - 1400 - main_.StatusBar1.Height.Get();
  Place(main_.Frame1, main_.TabStrip1.Width - 300 - main_.Frame1.Width, 800);
  main_.Frame1.Height = height;
  Place(main_.CWGraph1, 0, 800);
  main_.CWGraph1.Width = main_.Frame1.Left.Get();
  main_.CWGraph1.Height = height;
  platform::PictureBox& logo = main_.Picture1[forms::logo::Waveforms];
  Place(logo, (main_.Frame1.Width - logo.Width) / 2.0, height - 200 - logo.Height);
}

void FormLayout::PlaceLogos() {
  for (std::size_t i = 1; i < main_.Picture1.size(); ++i) {
    platform::PictureBox& logo = main_.Picture1[i];
    Place(logo, main_.TabStrip1.Width - 500 - logo.Width, main_.TabStrip1.Height - 1250);
  }
}

void FormLayout::PlacePhasor() {
  main_.Frame2.Width = Twips(0.85 * main_.TabStrip1.Width);
  main_.Frame2.Height = Twips(0.7 * main_.TabStrip1.Height);
  const std::int32_t side = Twips(0.8 * main_.Frame2.Height);
  main_.phasordiagram.Width = side;
  main_.phasordiagram.Height = side;
  Place(main_.phasordiagram, 0.05 * main_.Frame2.Height, 0.05 * main_.Frame2.Height);
  for (packetroutines::View* view : views_) view->Resized();
}

void FormLayout::PlaceInfo() {
  const double right = 0.97 * main_.TabStrip1.Width;
  const double top = main_.TabStrip1.Height - 1.5 * main_.Picture4.Height;
  Place(main_.Picture4, right - main_.Picture4.Width, top);
  const double row = std::max<double>(RowGap, main_.Label4.Height);
  Place(main_.Label3[forms::side_caption::Support],
        right - main_.Label3[forms::side_caption::Support].Width, top - 2 * row);
  Place(main_.Label4, right - main_.Label4.Width, top - row);
}

}  // namespace formroutines
