// Whatever bytes come as a frame, the report tells of them what a plain second reading does, and
// its field by the structure tells nothing that a page cannot show.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/demand.h"
#include "fuzz/script.h"
#include "report/analysis_bench.h"
#include "report/frame_structure.h"
#include "report/naive_report.h"
#include "report/seen_streams.h"
#include "support/fake_calendar.h"

namespace {

using fuzz::Demand;
namespace row = report_tests::row;

class Bench : public report_tests::Analysis {
 public:
  Bench() { structure_.Load(); }

  void Read(const support::FrameBytes& frame, std::size_t length) {
    main.Label8[row::Synchronisation].Caption = Unchanged;
    const std::string id = Analyse(frame);
    Demand(platform_.Dialogs.Shown.empty(), "a report shows no box");
    Compare(report_tests::NaiveReport(frame), id);
    structure_.Show({frame, length, {}}, analysis.Searched(), length % 7 == 0 ? id : std::string());
    for (const unsigned char sign : main.Structure.Text.Get()) {
      Demand(sign >= 0x20 || sign == '\n' || sign == '\t', "a text that is shown has no controls");
    }
    JudgeDump(frame.size());
  }

 private:
  static constexpr const char* Unchanged = "as it was";

  void TestBody() override {}

  void Compare(const report_tests::NaiveReport& naive, const std::string& id) {
    Demand(id == platform_.Code.ToUtf8(naive.Id), "the station is the one that a search finds");
    Demand(Row(row::Sequence) == naive.Sequence, "so is the length of the sequence");
    Demand(Row(row::FirstAsdu) == naive.FirstAsdu, "so is the length of the first ASDU");
    Demand(Row(row::SampleCount) == naive.SampleCount, "so is the counter");
    static const std::string texts[] = {"value=0; not synchronized by an external clock",
                                        "value=1; synchronized by a local area clock",
                                        "value=2; synchronized by a global area clock"};
    const std::string told = naive.Synch < 3 ? texts[naive.Synch] : Unchanged;
    Demand(Row(row::Synchronisation) == told, "so is the synchronisation");
    for (std::size_t line = 0; line < naive.Dump.size(); ++line) {
      Demand(Row(row::FirstDump + line).starts_with(naive.Dump[line]), "so are the bytes");
    }
  }

  /// Each byte of the frame stands in the dump as two digits, sixteen a line.
  void JudgeDump(std::size_t bytes) {
    std::size_t lines = 0;
    const std::string& dump = main.StructureDump.Text.Get();
    for (const char sign : dump) lines += sign == '\n' ? 1U : 0U;
    if (!dump.empty() && dump.back() != '\n') ++lines;
    Demand(lines == (bytes + 15) / 16, "the dump has a line for sixteen bytes");
  }

  support::FakeCalendar calendar_;
  subroutines::FrameStructure structure_{main, platform_.Code, calendar_};
};

/// The text of all IDs, spelled out.
void CompareSeen(fuzz::Script& script) {
  packetroutines::SeenStreams seen;
  std::string text;
  while (!script.Ended()) {
    std::string id;
    for (std::size_t length = script.Below(6); id.size() < length;) id += "AB  C"[script.Below(5)];
    Demand(seen.Holds(id) == (text.find(id) != std::string::npos), "an ID was met or was not");
    seen.Append(id);
    text += ' ' + id;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Bench bench;
  fuzz::Script script({data, size});
  const std::uint8_t kind = script.Byte();
  if (kind == 0xFF) {
    CompareSeen(script);
    return 0;
  }
  const std::string rest = script.Rest();
  bench.Read({rest.begin(), rest.end()}, rest.size() + kind / 8);
  return 0;
}
