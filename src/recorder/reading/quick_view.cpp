#include "recorder/reading/quick_view.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "platform/analysis.h"
#include "platform/stream_format.h"
#include "recorder/reading/analysis_progress.h"
#include "recorder/reading/line_count.h"
#include "recorder/reading/line_reader.h"

namespace subroutines {

using packetroutines::AnalysisPass;

namespace {

/// The ends of the two passes on the progress bar, whose beginning belongs to the log.
constexpr std::int16_t FirstPercent = 25;
constexpr std::int16_t CountedPercent = 30;
constexpr std::int16_t LastPercent = 100;

/// What the desktop answers where it could not open a file.
constexpr std::array<std::int32_t, 12> RefusedCodes = {2, 3, 5, 8, 11, 26, 27, 28, 29, 30, 31, 32};

}  // namespace

void QuickView::ViewRecording() {
  if (!packetroutines::IsRecorded(context_.State.RecordFileName)) return;
  switch (packetroutines::SequelOf(context_.Formats.Chosen())) {
    case packetroutines::Sequel::LogAndQuickView:
      ShowQuickView();
      break;
    case packetroutines::Sequel::Viewer:
      OpenViewer();
      break;
    case packetroutines::Sequel::Nothing:
      break;
  }
}

void QuickView::ShowQuickView() {
  const packetroutines::ShownProgress progress(recorder_.ProgressBar1);
  const packetroutines::ShownHourglass hourglass(context_.Services.Pointer);
  const std::int32_t lines = CountLines();
  if (lines == 0) return;
  Plot(ReadGroups(), lines);
}

std::int32_t QuickView::CountLines() {
  AnalysisPass pass(recorder_.ProgressBar1, FirstPercent, CountedPercent,
                    context_.Services.Files.FileSize(context_.Path()));
  return packetroutines::CountFileLines(context_.Services.Files, context_.Path(), pass);
}

QuickView::GroupTable QuickView::ReadGroups() {
  const std::int32_t rows = context_.Present.BaseSamples;
  if (rows == 0) throw platform::Failure(platform::failure::DivisionByZero);
  GroupTable groups;
  quickViewRows_.Rebuild(rows);
  context_.Open.CloseAll();
  const std::unique_ptr<platform::InputFile> file = context_.Services.Files.Read(context_.Path());
  AnalysisPass pass(recorder_.ProgressBar1, CountedPercent, LastPercent,
                    context_.Services.Files.FileSize(context_.Path()));
  packetroutines::LineReader reader(*file, pass);
  for (bool more = true; more;) {
    for (std::int32_t row = 0; row < rows && more; ++row) {
      quickViewRows_.ParseRecordLine(reader.Next(), row);
      more = !reader.AtEnd();
    }
    for (std::size_t channel = 0; channel < groups.size(); ++channel) {
      const auto column = quickViewRows_.Column(channel);
      groups[channel].push_back(static_cast<double>(platform::CWStat::RootMeanSquare(column)));
    }
  }
  return groups;
}

void QuickView::Plot(GroupTable groups, std::int32_t lines) {
  platform::CWGraph& graph = recorder_.CWGraph2;
  const std::int32_t rows = context_.Present.BaseSamples;
  // The last group that is at least half full is the last that shows.
  const double end = std::trunc(static_cast<double>(lines) / rows - 0.5);
  for (std::size_t channel = 0; channel < groups.size(); ++channel) {
    platform::Plot& plot = graph.Plots[channel];
    plot.Y = std::move(groups[channel]);
    plot.PointStyle = end > 0 ? std::int16_t{0} : platform::CWGraph::SampleMarker;
  }
  graph.XAxis.Caption = "x * " + context_.Services.Numbers.General(rows) + " samples; ";
  graph.XAxis.Minimum = 0;
  graph.XAxis.Maximum = end;
  graph.SecondsPerPoint = rows * platform::SecondsPerSample(context_.Settings.BaseFrequency);
  graph.YAxis.ScaleNow();
  graph.Visible = true;
}

void QuickView::OpenViewer() {
  context_.Services.Links.OpenFile(context_.Path(),
                                   [this](std::int32_t code) { TellOfViewer(code); });
}

void QuickView::TellOfViewer(std::int32_t code) {
  if (std::find(RefusedCodes.begin(), RefusedCodes.end(), code) == RefusedCodes.end()) return;
  if (context_.State.LookingForRecording) {
    // A box would keep the frames from the recording that runs by now.
    if (recorder_.NotStored.Caption.Get().empty()) {
      recorder_.NotStored.Say("The worksheet of the recording before has found no viewer.");
    }
    return;
  }
  context_.Services.Usual.Dialogs.Show(
      {"Attention",
       std::string("It was not possible to open Excel for viewing the stored data file!") +
           "Nevertheless the 'xls' file is stored properly." + platform::Crlf +
           "Please install as minimum an 'Excel' file viewer.",
       platform::Icon::Exclamation});
}

}  // namespace subroutines
