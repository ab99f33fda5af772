#include "report/report_view.h"

#include <array>
#include <string_view>

#include "base/trap.h"
#include "platform/rich_line.h"
#include "platform/rich_row.h"

namespace subroutines {

namespace row = forms::report_row;

namespace {

constexpr platform::Rgb ButtonColour{237, 246, 254};
/// What a row reads until a frame has come.
constexpr const char* EmptyValue = "- - - -";
constexpr std::string_view EmptyLine = "Verdana|10|normal| ";
constexpr std::string_view DumpLine = "Courier New|10|normal| ";

constexpr std::array<std::string_view, row::Count> Template = {
    "Verdana|10|fett|Used filter string:",
    "Verdana|10|fett|Destination adress:",
    "Verdana|10|fett|Source adress:",
    "Verdana|10|normal|Ethertype:",
    "Verdana|10|fett|AppID:",
    "Verdana|10|normal|ASDU:",
    "Verdana|10|normal|ASDU 1:",
    "Verdana|10|fett|ID:",
    "Verdana|10|normal|Sample Count:",
    "Verdana|10|fett|Sample Sync:",
    EmptyLine,
    EmptyLine,
    "Verdana|10|normalunderline|Complete packet:",
    DumpLine,
    DumpLine,
    DumpLine,
    DumpLine,
    DumpLine,
    DumpLine,
    DumpLine,
    DumpLine,
    DumpLine,
    DumpLine};

}  // namespace

ReportView::ReportView(const ReportParts& parts, platform::EventQueue& events,
                       platform::Program& program)
    : parts_(parts),
      line_(parts.Shared.QuietLine[forms::quiet_line::Report]),
      events_(events),
      program_(program),
      wish_(parts.Code),
      structure_(parts.Report, parts.Code, parts.Calendar) {
  parts_.Report.Command2.ValueChanged = [this] { Command2_ValueChanged(); };
}

void ReportView::Load() {
  forms::ReportControls& report = parts_.Report;
  report.Command2.BackColor = ButtonColour;
  report.Command4.Enabled = false;
  for (platform::Label& title : report.Label7) title.Caption = std::string();
  for (platform::Label& value : report.Label8) value.Caption = std::string();
  report.Label8[row::Filter].Caption = EmptyValue;
  structure_.Load();
}

void ReportView::Show(const platform::Routine& run) {
  parts_.Report.Command2.Visible = true;
  parts_.Report.Command4.Visible = true;
  run([&] { parts_.Stations.Show(forms::station::Report); }, [&] { ReportLayout(); },
      [&] { parts_.Shared.Picture1[forms::logo::Report].Visible = true; });
}

void ReportView::Hide() {
  parts_.Report.Command2.Visible = false;
  parts_.Report.Command4.Visible = false;
  parts_.Stations.Hide(forms::station::Report);
  parts_.Shared.Picture1[forms::logo::Report].Visible = false;
}

void ReportView::ReportLayout() {
  Rest();
  if (layoutDone_) return;
  const auto skip = [](const platform::Failure&) { return platform::Verdict::SkipStep; };
  const auto show = [this](bool visible) {
    for (platform::Label& title : parts_.Report.Label7) title.Visible = visible;
    for (platform::Label& value : parts_.Report.Label8) value.Visible = visible;
  };
  show(false);
  std::int32_t place = 0;
  for (std::size_t i = 0; i < Template.size(); ++i) {
    if (!platform::TakesPlace(Template[i])) continue;
    platform::RunSteps(
        program_, skip, [&] { LayRow(i, place); }, [&] { events_.Pump(); });
    ++place;
  }
  show(true);
  layoutDone_ = true;
}

void ReportView::LayRow(std::size_t row, std::int32_t place) {
  const auto under = [row, place](platform::Label& label, const platform::Label& first) {
    label.Left = first.Left.Get();
    label.Width = first.Width.Get();
    label.Top = first.Top + place * platform::RowPitch;
    label.FontName = platform::RichFont(Template[row]);
  };
  platform::Label& title = parts_.Report.Label7[row];
  platform::Label& value = parts_.Report.Label8[row];
  under(title, parts_.Report.Label7[0]);
  under(value, parts_.Report.Label8[0]);
  title.FontSize = platform::RichSize(Template[row]);
  title.FontBold = platform::RichBold(Template[row]);
  title.FontUnderline = platform::RichUnderline(Template[row]);
  title.Caption = platform::RichText(Template[row]);
  value.Caption = Template[row].ends_with(' ') ? "" : EmptyValue;
}

void ReportView::Rest() {
  running_ = false;
  line_.Say(HeadOfOther());
  // A run that got no frame has left its button pressed.
  parts_.Report.Command2.Value = false;
}

void ReportView::Command2_ValueChanged() {
  if (!parts_.Report.Command2.Value) return;
  line_.Say(HeadOfOther());
  running_ = true;
  parts_.Report.Command2.Visible = false;
  parts_.Capture.BeginRun("Report", wish_.For(AskedStation()));
}

void ReportView::ReportEnded() {
  // Whoever ends a run without a frame gives the button back, but does not show it.
  if (!running_ || parts_.Report.Command2.Visible) return;
  running_ = false;
  const std::string other = HeadOfOther();
  line_.Say("There is no report. RUN comes back when this page is entered anew." +
            (other.empty() ? "" : " " + other));
}

std::string ReportView::ReportAnalyse(const packetroutines::PacketBytes& bytes) {
  std::string id;
  const bool shown = parts_.Analysis.ReportAnalyse(bytes, id);
  refusal_.clear();
  finderMet_.reset();
  if (!shown) {
    // The stream finder has frames read too.
    if (parts_.State.LookingForID) {
      finderMet_ = id;
    } else {
      refusal_ = WhyRefused(id, bytes);
    }
  }
  line_.Say(HeadOfOther());
  running_ = false;
  return id;
}

void ReportView::FrameReported(const platform::CapturedFrame& frame) {
  structure_.Show(frame, parts_.Analysis.Searched(), refusal_);
}

std::string ReportView::HeadOfOther() const {
  if (!finderMet_) return refusal_;
  // No station is chosen during a search; the one that RUN asks for is chosen behind it.
  const std::string& chosen = parts_.Analysis.ChosenStation();
  return "'Find streams' met \"" + *finderMet_ + "\" last, and the rows of its head are hidden. " +
         (packetroutines::IsStation(chosen)
              ? "RUN asks for \"" + chosen + "\"."
              : "The station chosen here has no content filter: see 'Packet content filter' under "
                "'Setup'.");
}

std::string ReportView::AskedStation() const {
  const auto& stations = parts_.Shared.Option3;
  const std::string& chosen = parts_.Analysis.ChosenStation();
  if (packetroutines::IsStation(chosen)) return chosen;
  // Where only one station is known, it is the one.
  const std::string& first = stations[forms::station::Report].Caption;
  return packetroutines::IsStation(first) ? first
                                          : stations[forms::station::Report + 1].Caption.Get();
}

std::string ReportView::WhyRefused(const std::string& id,
                                   const packetroutines::PacketBytes& bytes) {
  const std::string& chosen = parts_.Analysis.ChosenStation();
  const std::string came = "The frame that came was sent by \"" + id + "\"";
  if (!packetroutines::IsStation(chosen)) {
    return came +
           ". The station chosen here has no content filter: choose the other one, or see "
           "'Packet content filter' under 'Setup'.";
  }
  if (id.find(chosen) != std::string::npos) {
    return came + ", which is more than \"" + chosen +
           "\". Of two streams a report needs the whole ID: see 'Packet content filter' under "
           "'Setup'.";
  }
  if (wish_.Holds(bytes.Text(), chosen)) {
    return "The frame that came holds \"" + chosen + "\", but the ID that is read from it is \"" +
           id + "\". Of two streams a report needs the ID.";
  }
  return came + " and not by \"" + chosen + "\". RUN asks again.";
}

}  // namespace subroutines
