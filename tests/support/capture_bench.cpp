#include "support/capture_bench.h"

namespace support {

using testing::_;

CaptureBench::CaptureBench() {
  Capture.AddAdapter("Bus");
  Settings.FilterContent = {"MU01", "MU02"};
  Present.UnitFormat = "0.00";
  Core.Upper.Views = Views;
  Core.Upper.Recorder = Recorder;
  Core.Upper.Session = Recorder;
  Core.Upper.Report = Report;
  Core.Upper.Finder = Report;
  Core.Upper.Tabs = Tabs;
  Core.Load();
  Block.Rebuild(Present.BaseSamples);
  Rings.Reserve(packetroutines::RecordRings::Cells);
  Acquisition.FillAdapterList();

  const auto write = [this](const std::string& line) { Journal.push_back(line); };
  ON_CALL(Views, PlotBlock).WillByDefault([write](const char* mode) {
    write(std::string("plot ") + mode);
  });
  ON_CALL(Views, CalculateValues).WillByDefault([write] { write("calculate values"); });
  ON_CALL(Views, ClearValues).WillByDefault([write] { write("clear values"); });
  ON_CALL(Views, UpdatePhases).WillByDefault([write] { write("update phases"); });
  ON_CALL(Recorder, WriteRecordBlock).WillByDefault([write](std::int16_t stream) {
    write("write ring " + std::to_string(stream));
  });
  ON_CALL(Report, ReportAnalyse).WillByDefault([write](const packetroutines::PacketBytes&) {
    write("analyse report");
    return "MU01";
  });
  ON_CALL(Report, AddStreamToList).WillByDefault([write](const std::string& id) {
    write("add stream " + id);
  });
}

void CaptureBench::Run(const std::string& mode) {
  State.PacketLengthPending = true;
  Acquisition.SetupAdapter(262144);
  Acquisition.StartCapture(packetroutines::ModeName::Any(mode));
}

void CaptureBench::RunWithLength(const std::string& mode, const FrameBytes& first) {
  Run(mode);
  Receive(first);
  Journal.clear();
}

void CaptureBench::Receive(int count, const std::function<FrameBytes(int)>& make) {
  for (int i = 0; i < count; ++i) Receive(make(i));
}

FrameBytes PlainFrame(int count, const std::string& id, std::int32_t raw) {
  return SvFrame(id).Count(static_cast<std::uint16_t>(count)).AllRaw(raw).Bytes();
}

packetroutines::PacketBytes CellsOf(const FrameBytes& frame, std::int16_t upper) {
  packetroutines::PacketBytes cells;
  cells.Redim(upper);
  cells.Copy(frame);
  return cells;
}

packetroutines::PacketBytes CellsOf(const FrameBytes& frame) {
  return CellsOf(frame, static_cast<std::int16_t>(frame.size()));
}

}  // namespace support
