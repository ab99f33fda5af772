#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "report/report_analysis.h"
#include "support/capture_bench.h"

namespace report_tests {

namespace row = forms::report_row;

/// The analysis alone, with its rows as they stand after the form was laid out: the values hold
/// "- - - -", the stations "MU01" and "MU02" can be chosen, and the first is.
class Analysis : public ::testing::Test {
 protected:
  Analysis() {
    settings.FilterContent = {"MU01", "MU02"};
    main.Option3[6].Caption = "MU01";
    main.Option3[7].Caption = "MU02";
    main.Option3[6].Value = true;
    main.Shape3.Width = 10500;
    for (std::size_t i = 0; i < row::Count; ++i) {
      main.Label7[i].Left = 600;
      main.Label8[i].Left = 3900;
      main.Label8[i].Caption = "- - - -";
    }
  }

  /// Runs the analysis; the result is the station ID.
  std::string Analyse(const support::FrameBytes& frame) {
    std::string id;
    accepted = analysis.ReportAnalyse(support::CellsOf(frame), id);
    return id;
  }
  std::string Row(std::size_t index) const { return main.Label8[index].Caption; }
  /// Which of the rows 0 to 22 are shown.
  std::vector<bool> Shown() const {
    std::vector<bool> shown;
    for (const platform::Label& value : main.Label8) shown.push_back(value.Visible);
    return shown;
  }

  support::FakePlatform platform_;
  forms::Main main{platform_.Timers};
  config::Settings settings;
  config::RunSettings present;
  packetroutines::ReportAnalysis analysis{
      main,    main,           settings,
      present, platform_.Code, {platform_.Events, platform_.Dialogs, platform_.Runtime}};
  bool accepted = false;
};

}  // namespace report_tests
