#include "recorder/reading/record_analysis.h"

#include "recorder/writing/text_format.h"

namespace packetroutines {

RecordAnalysis::RecordAnalysis(const ReadingContext& context, const PacketBytes& frame,
                               forms::RecorderControls& recorder)
    : context_(context), log_(context, frame, recorder.ProgressBar1), view_(context, recorder) {
  recorder.Command9.Click = [this] { context_.Services.Links.Open(context_.LogPath()); };
  for (platform::Label& line : recorder.Label10) {
    line.DblClick = [this] { OpenTextFile(); };
  }
}

void RecordAnalysis::OpenTextFile() {
  if (!context_.State.RecordFileName.ends_with(TextFacts.Extension)) return;
  context_.Services.Links.Open(context_.Path());
}

}  // namespace packetroutines
