#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "support/scene.h"

/// The Waveforms view, which a sender of sines is shown on.
class ScopeScene : public testing::Test {
 protected:
  ScopeScene() {
    scene.Start();
    scene.Select(forms::tab::Waveforms);
  }

  void Run() {
    main.CWButton1.Value = true;
    scene.Receive(support::SvFrame().Bytes());
  }
  void Block(double amps, double kilovolts) {
    scene.Receive(scene.Present.BaseSamples,
                  [=](int i) { return support::SineFrame(i, amps, kilovolts); });
  }

  support::Scene scene;
  forms::Main& main = scene.Main;
};
