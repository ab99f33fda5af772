#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/scene.h"

namespace report_tests {

/// The whole program with a page that keeps what was printed on it; the day is the 9th of March.
class PrintScene : public ::testing::Test {
 protected:
  PrintScene() { scene.Start(); }

  const support::PrintedText& Text(std::size_t i) const { return scene.Surface.Texts.at(i); }
  /// The printed text of these words; one far off the page where there is none.
  support::PrintedText Find(const std::string& words) const {
    for (const support::PrintedText& text : scene.Surface.Texts) {
      if (text.Text == words) return text;
    }
    return {-1000, -1000, {}, {}, 0, false, false, {}};
  }
  std::string Line(std::size_t view) const { return main.QuietLine[view].Caption; }
  std::string PrinterPanel() const { return main.StatusBar1.Panels[1].Text; }
  std::string PrinterTip() const { return main.StatusBar1.Panels[1].ToolTipText; }

  support::Scene scene;
  forms::Main& main = scene.Main;
};

}  // namespace report_tests
