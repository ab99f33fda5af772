#include "console/bus/alarms.h"

#include "console/bus/stream_json.h"

namespace console {

namespace {

std::string Words(const StreamFigures& stream, AlarmKind kind) {
  switch (kind) {
    case AlarmKind::Loss: {
      const std::uint64_t missing = stream.Totals().Missing;
      if (missing == 0) return {};
      return "has lost " + std::to_string(missing) + (missing == 1 ? " sample" : " samples");
    }
    case AlarmKind::Synch:
      if (stream.SynchChanges() > 0) return "has another smpSynch";
      return stream.Frames() > 0 && stream.State().SmpSynch == 0 ? "is not synchronised" : "";
    default:
      return stream.Frames() == 0 ? "is silent" : "";
  }
}

}  // namespace

std::optional<std::string> AlarmOf(const StreamFigures& stream,
                                   const std::vector<AlarmKind>& watched,
                                   const platform::CodePage& code) {
  for (const AlarmKind kind : watched) {
    const std::string words = Words(stream, kind);
    if (!words.empty()) return "the stream " + TextOf(stream.Who().SvId, code) + " " + words;
  }
  return std::nullopt;
}

}  // namespace console
