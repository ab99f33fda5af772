// What must hold behind an input.

#include <chrono>
#include <cmath>
#include <string>
#include <string_view>

#include "fuzz/demand.h"
#include "fuzz/packet/player.h"

namespace fuzz {

using std::chrono_literals::operator""s;

namespace {

constexpr std::size_t RingSamples = 4000;
constexpr std::size_t FieldsALine = 10;

/// Whole rings of lines, each with all its fields and, where they are counted, its number in front.
void JudgeText(std::string_view text, bool counted) {
  std::size_t lines = 0;
  while (!text.empty()) {
    const std::size_t end = text.find("\r\n");
    Demand(end != std::string_view::npos, "a recording ends with a whole line");
    const std::string_view line = text.substr(0, end);
    std::size_t fields = 1;
    for (const char sign : line) fields += sign == ';' ? 1U : 0U;
    Demand(fields == FieldsALine, "a line has all its fields");
    Demand(!counted || line.substr(0, line.find(';')) == std::to_string(lines),
           "line " + std::to_string(lines) + " begins with its number: " + std::string(line));
    ++lines;
    text.remove_prefix(end + 2);
  }
  Demand(lines % RingSamples == 0, "a recording is whole rings");
}

}  // namespace

void Player::Rest() {
  over_ = true;
  tally_.NoteAct();
  scene_.Capture.StartFailure.reset();
  scene_.Capture.StopFailure.reset();
  scene_.Main.TabStrip1.SelectedTab = forms::tab::Info;
  scene_.Elapse(1s);
  scene_.Journal.clear();
  scene_.Elapse(61s);
  JudgeRest();
}

void Player::JudgeRest() {
  const packetroutines::AcquisitionState& state = scene_.State;
  for (const std::string& line : scene_.Journal) {
    Demand(line != "start" && !line.starts_with("box") && !line.starts_with("timed box"),
           "at rest: " + line);
  }
  Demand(!state.CaptureRunning && !scene_.Capture.Running, "capture rests");
  for (const packetroutines::Mode& mode : packetroutines::Modes) {
    Demand(!(state.*mode.Flag), "no mode is on at rest");
  }
  for (const platform::Shape& lamp : scene_.Main.Shape12) {
    Demand(!lamp.Visible, "no lamp is on at rest");
  }
  Demand(!scene_.Main.Timer1.Enabled && !scene_.Main.Timer2.Enabled && !scene_.Main.Timer3.Enabled,
         "no timer of a run is on at rest");
  for (const double value : state.RmsValues) Demand(std::isfinite(value), "a value is a number");
  const support::FrameBytes late = support::SvFrame("MU01").Bytes();
  tally_.Deliver({late, late.size()});
  scene_.App.CloseFiles();
}

void Player::JudgeRecordings() {
  if (diskFailed_) return;
  for (const auto& [path, content] : scene_.Files.Stored) {
    const bool samples = path.ends_with(".txt") && path.find("SV record") != std::string::npos;
    // The numbers of the second stream follow its blocks, and those of two rings overlap.
    const bool counted = path.find("2_SV record") == std::string::npos;
    if (samples && path.find("log") == std::string::npos) JudgeText(content, counted);
  }
}

}  // namespace fuzz
