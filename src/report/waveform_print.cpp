#include "report/waveform_print.h"

#include <algorithm>
#include <cstddef>

#include "base/failure.h"
#include "base/shown_text.h"
#include "config/program_facts.h"

namespace subroutines {

namespace {

// Millimetres.
constexpr double Left = 15;
constexpr double HeadingTop = 10;
constexpr double GraphTop = 20;
constexpr double GraphWidth = 180;
/// The graph's height comes from another width than its own: it is stretched a little.
constexpr double HeightFromWidth = 195;
constexpr double LegendLeft = 205;
constexpr double SpanTop = 30;
constexpr double LegendTop = 38;
constexpr double LegendPitch = 8;
constexpr double DashGap = 5;
constexpr double FooterTop = 180;
constexpr double LogoLeft = 250;
constexpr double LogoWidth = 30;
constexpr double LogoHeight = LogoWidth * 610 / 3200;

}  // namespace

WaveformPrint::WaveformPrint(const WaveformPrintParts& parts, const PrintParts& print)
    : parts_(parts),
      out_(print, parts.Shared.QuietLine[forms::quiet_line::Waveforms], "waveforms") {
  parts_.Scope.Command1.Click = [this] { Command1_Click(); };
  parts_.Scope.Command1.MouseDown = [this](std::int16_t button) { Command1_MouseDown(button); };
  // A run has something newer to say on the line.
  parts_.Scope.CWButton1.Value.Observe([this] {
    out_.Forget();
    out_.TakeLine(parts_.Scope.CWButton1.Value);
  });
}

void WaveformPrint::Command1_Click() {
  out_.SelectPrinter();
  parts_.Scope.CWGraph1.ScreenLook = false;
  out_.Print(platform::PageOrientation::Landscape, [this] { Page(); });
  parts_.Scope.CWGraph1.ScreenLook = true;
}

void WaveformPrint::Command1_MouseDown(std::int16_t button) {
  if (button != platform::mouse_button::Right || parts_.Clipboard == nullptr) return;
  parts_.Window.Picture5.Image = parts_.Scope.CWGraph1.Image();
  parts_.Clipboard->Clear();
  parts_.Clipboard->SetPicture(parts_.Window.Picture5.Image);
  parts_.Dialogs.Show(
      {"Success", "Actual graph is now copied to the clipboard.", platform::Icon::Information});
  parts_.Window.Picture5.Image = platform::Picture();
}

void WaveformPrint::Page() {
  PrintHeading();
  PrintGraph();
  PrintLegend();
  PrintFooter();
}

void WaveformPrint::PrintHeading() {
  platform::PrintSurface& surface = out_.Surface();
  surface.FontBold(true);
  out_.At(Left, HeadingTop);
  surface.PrintLine("Print-out of sampled values");
  surface.CurrentX(Left);
  surface.Print("Filter:\"" + platform::Escaped(parts_.Settings.FilterString) + "/" +
                platform::Escaped(parts_.Settings.FilterContent[0]) + "\"");
  surface.PrintLine(" dated " + out_.Today('.'));
}

void WaveformPrint::PrintGraph() {
  const platform::CWGraph& graph = parts_.Scope.CWGraph1;
  // A graph that was never laid out has no proportions.
  if (graph.Width == 0) throw platform::Failure(platform::failure::DivisionByZero);
  const double height = HeightFromWidth * graph.Height / graph.Width;
  out_.Surface().PaintPicture(graph.Image(), Left, GraphTop, GraphWidth, height);
}

void WaveformPrint::PrintLegend() {
  platform::PrintSurface& surface = out_.Surface();
  const platform::CWGraph& graph = parts_.Scope.CWGraph1;
  const double span = graph.XAxis.Maximum - graph.XAxis.Minimum;
  out_.At(LegendLeft, SpanTop);
  surface.PrintLine("shown samples: " + parts_.Numbers.Format(span, "0"));
  out_.At(LegendLeft, LegendTop);
  surface.FontUnderline(true);
  surface.PrintLine("Legend:");
  surface.FontUnderline(false);
  surface.FontBold(false);
  // All eight count, also those that the page does not name.
  double widest = 0;
  for (const platform::CheckBox& channel : parts_.Scope.Check2) {
    widest = std::max(widest, surface.TextWidth(channel.Caption));
  }
  double top = LegendTop;
  for (std::size_t i = 0; i < parts_.Scope.Check2.size(); ++i) {
    if (parts_.Scope.Check2[i].Value == 0) continue;
    top += LegendPitch;
    surface.ForeColor({});
    out_.At(LegendLeft, top);
    surface.PrintLine(parts_.Scope.Check2[i].Caption);
    surface.ForeColor(graph.Plots[i].LineColor);
    out_.At(LegendLeft + widest + DashGap, top);
    surface.PrintLine("------------");
  }
}

void WaveformPrint::PrintFooter() {
  platform::PrintSurface& surface = out_.Surface();
  surface.FontSize(12);
  surface.FontBold(true);
  surface.ForeColor({});
  out_.At(LegendLeft, FooterTop);
  surface.PrintLine(std::string("Vornik ") + config::ProgramVersion);
  surface.PaintPicture(parts_.Window.Picture3.Image, LogoLeft, FooterTop, LogoWidth, LogoHeight);
}

}  // namespace subroutines
