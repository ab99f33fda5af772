#include "console/bus/metrics_text.h"

#include <array>
#include <charconv>
#include <utility>
#include <vector>

#include "base/hex_text.h"
#include "config/program_facts.h"
#include "console/bus/stream_json.h"

namespace console {

namespace {

/// A number as the format has it: a point, and no grouping, whatever the locale.
std::string NumberOf(double value) {
  constexpr int Digits = 9;
  std::array<char, 32> text{};
  const std::to_chars_result end = std::to_chars(text.data(), text.data() + text.size(), value,
                                                 std::chars_format::general, Digits);
  return {text.data(), end.ptr};
}

std::string NumberOf(std::uint64_t value) {
  return std::to_string(value);
}

/// A backslash, a quote and a line feed have writings of their own within a label.
std::string LabelValue(const std::string& text) {
  std::string value;
  for (const char c : text) {
    if (c == '\\' || c == '"') value += '\\';
    value += c == '\n' ? std::string("\\n") : std::string(1, c);
  }
  return value;
}

std::string LabelsOf(const StreamFigures& stream, const platform::CodePage& code) {
  const StreamIdentity& who = stream.Who();
  return ",svID=\"" + LabelValue(TextOf(who.SvId, code)) + "\",appid=\"" +
         platform::HexWordText(who.AppId) + "\",source=\"" + platform::HexAddressText(who.Source) +
         "\",destination=\"" + platform::HexAddressText(who.Destination) + "\",vlan=\"" +
         (who.Tag ? std::to_string(who.Tag->Vlan()) : std::string()) + "\"";
}

/// The text, family by family, as the format demands it.
class Families {
 public:
  Families(const BusStreams& bus, const std::string& adapter, const platform::CodePage& code)
      : bus_(bus), adapter_("adapter=\"" + LabelValue(adapter) + "\"") {
    for (const auto& stream : bus.Streams()) labels_.push_back(LabelsOf(*stream, code));
  }

  void Head(const std::string& name, const char* type, const char* help) {
    name_ = "vornik_" + name;
    Text += "# HELP " + name_ + " " + help + "\n# TYPE " + name_ + " " + type + "\n";
  }
  /// Labels beside the adapter have a comma in front.
  void Line(const std::string& labels, const std::string& value) {
    Text += name_ + "{" + adapter_ + labels + "} " + value + "\n";
  }
  /// A value of each stream.
  template <typename Value>
  void Each(const std::string& name, const char* type, const char* help, Value value) {
    if (labels_.empty()) return;
    Head(name, type, help);
    for (std::size_t i = 0; i < labels_.size(); ++i) {
      Line(labels_[i], NumberOf(value(*bus_.Streams()[i])));
    }
  }
  /// Several of each: `lines` gets a stream, and what takes a label and a value.
  template <typename Lines>
  void Several(const std::string& name, const char* help, Lines lines) {
    if (labels_.empty()) return;
    Head(name, "gauge", help);
    for (std::size_t i = 0; i < labels_.size(); ++i) {
      lines(*bus_.Streams()[i], [&](const std::string& label, double value) {
        Line(labels_[i] + "," + label, NumberOf(value));
      });
    }
  }

  std::string Text;

 private:
  const BusStreams& bus_;
  std::string adapter_;
  std::vector<std::string> labels_;
  std::string name_;
};

constexpr const char* Counter = "counter";
constexpr const char* Gauge = "gauge";

void AddTotals(Families& families) {
  using Stream = const StreamFigures&;
  families.Each("stream_frames_total", Counter, "Frames received.",
                [](Stream stream) { return stream.FramesOfAll(); });
  families.Each("stream_samples_total", Counter, "Samples received.",
                [](Stream stream) { return stream.TotalsOfAll().Samples; });
  families.Each("stream_samples_lost_total", Counter, "Samples that never came.",
                [](Stream stream) { return stream.TotalsOfAll().Missing; });
  families.Each("stream_samples_doubled_total", Counter, "Samples that came again.",
                [](Stream stream) { return stream.TotalsOfAll().Doubled; });
  families.Each("stream_samples_out_of_order_total", Counter,
                "Samples that came behind a later one.",
                [](Stream stream) { return stream.TotalsOfAll().Late; });
  families.Each("stream_restarts_total", Counter, "Times the counter began anew.",
                [](Stream stream) { return stream.TotalsOfAll().Jumped; });
  families.Each("stream_smp_synch_changes_total", Counter, "Changes of smpSynch.",
                [](Stream stream) { return stream.SynchChangesOfAll(); });
}

void AddState(Families& families) {
  using Stream = const StreamFigures&;
  families.Each("stream_up", Gauge, "1 where frames came in the last second.",
                [](Stream stream) { return std::uint64_t{stream.Frames() > 0 ? 1U : 0U}; });
  families.Each("stream_smp_synch", Gauge, "smpSynch: 0 not synchronised, 1 local, 2 global.",
                [](Stream stream) { return std::uint64_t{stream.State().SmpSynch.value_or(0)}; });
  families.Each("stream_conf_rev", Gauge, "confRev.",
                [](Stream stream) { return std::uint64_t{stream.State().ConfRev.value_or(0)}; });
  families.Each("stream_simulation", Gauge, "1 where the simulation bit is set.",
                [](Stream stream) { return std::uint64_t{stream.State().Simulated ? 1U : 0U}; });
  families.Each("stream_frames_per_second", Gauge, "Frames a second, measured.",
                [](Stream stream) { return stream.FramesASecond().value_or(0); });
  families.Each("stream_samples_per_second", Gauge, "Samples a second, measured.",
                [](Stream stream) { return stream.SamplesASecond().value_or(0); });
}

void AddGaps(Families& families) {
  families.Several("stream_arrival_gap_seconds", "Times between two frames.",
                   [](const StreamFigures& stream, const auto& line) {
                     constexpr double Microsecond = 1e-6;
                     constexpr std::uint32_t AllButOne = 999;
                     const ArrivalGaps& gaps = stream.Gaps();
                     if (gaps.Count() == 0) return;
                     const auto seconds = [](ArrivalGaps::Time time) {
                       return static_cast<double>(time.count()) * Microsecond;
                     };
                     line("bound=\"smallest\"", seconds(gaps.Smallest()));
                     line("bound=\"mean\"", gaps.Mean() * Microsecond);
                     line("bound=\"p99_9\"", seconds(gaps.Below(AllButOne)));
                     line("bound=\"greatest\"", seconds(gaps.Greatest()));
                   });
}

void AddChannels(Families& families, const std::string& name, const char* help,
                 double ChannelReading::*value) {
  families.Several(name, help, [&](const StreamFigures& stream, const auto& line) {
    const std::vector<ChannelReading> readings = stream.LatestReadings();
    for (std::size_t channel = 0; channel < readings.size(); ++channel) {
      line("channel=\"" + std::to_string(channel + 1) + "\"", readings[channel].*value);
    }
  });
}

}  // namespace

std::string MetricsText(const BusStreams& bus, const std::string& adapter, std::uint64_t dropped,
                        const platform::CodePage& code) {
  Families families(bus, adapter, code);
  families.Head("build_info", Gauge, "The program that has written this.");
  families.Line(std::string(",version=\"") + config::ProgramVersion + "\"", "1");
  families.Head("capture_frames_total", Counter, "Sampled values frames received.");
  families.Line("", NumberOf(bus.Frames()));
  families.Head("capture_faulty_frames_total", Counter, "Frames whose structure is not whole.");
  families.Line("", NumberOf(bus.Faulty()));
  families.Head("capture_dropped_frames_total", Counter, "Frames that the system has dropped.");
  families.Line("", NumberOf(dropped));
  AddTotals(families);
  AddState(families);
  AddGaps(families);
  AddChannels(families, "stream_channel_rms", "RMS value, in units of the wire.",
              &ChannelReading::Rms);
  AddChannels(families, "stream_channel_magnitude",
              "RMS value of the nominal frequency, in units of the wire.",
              &ChannelReading::Magnitude);
  AddChannels(families, "stream_channel_angle_degrees",
              "Angle at the nominal frequency, from the whole second on.", &ChannelReading::Angle);
  return std::move(families.Text);
}

}  // namespace console
