#include "recorder/reading/record_analysis.h"

namespace packetroutines {

RecordAnalysis::RecordAnalysis(const RecordedFile& file, const PacketBytes& frame,
                               forms::RecorderControls& recorder, const AnalysisServices& services)
    : file_(file),
      links_(services.Links),
      log_(file, frame, recorder.ProgressBar1, services),
      view_(file, recorder, services) {
  recorder.Command9.Click = [this] { links_.Open(file_.LogPath()); };
  for (platform::Label& line : recorder.Label10) {
    line.DblClick = [this] { OpenTextFile(); };
  }
}

void RecordAnalysis::OpenTextFile() {
  if (file_.RecordFileName.ends_with(TextExtension)) links_.Open(file_.Path());
}

}  // namespace packetroutines
