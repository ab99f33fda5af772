#include "support/scene.h"

#include <cmath>
#include <numbers>

namespace support {

Scene::Scene() {
  Capture.AddAdapter("Bus");
}

Scene::~Scene() = default;

void Scene::Start() {
  App.Load();
  Main.TabStrip1.SelectedTab = forms::tab::Values;
  Main.Text1[12].Text = "MU01";
  Journal.clear();
}

void Scene::RunValues() {
  Main.CWButton4.Value = true;
  Receive(SvFrame().Bytes());
}

void Scene::Receive(int count, const std::function<FrameBytes(int)>& make) {
  for (int i = 0; i < count; ++i) Receive(make(i));
}

void Scene::ReceiveBlock(const std::function<FrameBytes(int)>& make) {
  Receive(Present.BaseSamples, make);
  Elapse(std::chrono::milliseconds(100));
}

FrameBytes SineFrame(int i, double amps, double kilovolts, const std::string& id) {
  const double wave = std::numbers::sqrt2 * std::sin(2 * std::numbers::pi * (i % 80) / 80.0);
  SvFrame frame(id);
  frame.Count(static_cast<std::uint16_t>(i % 4000));
  for (std::size_t channel = 0; channel < 4; ++channel) {
    frame.Raw(channel, static_cast<std::int32_t>(std::lround(amps * 1000 * wave)));
    frame.Raw(channel + 4, static_cast<std::int32_t>(std::lround(kilovolts * 100000 * wave)));
  }
  return frame.Bytes();
}

}  // namespace support
