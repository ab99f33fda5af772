#include "recorder_bench.h"

#include <algorithm>

namespace recorder_tests {

RecorderBench::RecorderBench(platform::FileSystem* files)
    : Disk(files == nullptr ? Files : *files) {
  Settings.StoragePath = "c:\\StoredData";
  Settings.FileFormat = "TXT";
  Settings.ChannelName = {"IA", "IB", "IC", "IN", "UA", "UB", "UC", "UN"};
  Settings.BaseFrequency = 50;
  Session.Reader = Reader;
  // The list of adapters is filled by now, which saves the choice.
  Store.Written.clear();
  State.RecordFileName = Started + ".txt";
}

void RecorderBench::Run(const std::string& format) {
  Settings.FileFormat = format;
  Session.ShowFileFormat();
  Main.CWButton3.Value = true;
  Receive(support::PlainFrame(0));
  Journal.clear();
}

int RecorderBench::Times(const std::string& entry) const {
  return static_cast<int>(std::count(Journal.begin(), Journal.end(), entry));
}

void RecorderBench::LoseFolder() {
  Files.Folders.clear();
  Files.Stored.clear();
}

void RecorderBench::TakeBoth() {
  Present.StreamCount = 2;
}

void RecorderBench::Fill(std::size_t stream, int first) {
  for (std::int16_t i = 0; i < 4000; ++i) {
    const int count = (first + i) % 4000;
    if (stream == 0) {
      Rings.RecordCount(i) = count;
    } else {
      Rings.RecordCount2(i) = static_cast<std::int16_t>(count);
    }
    auto& channels = stream == 0 ? Rings.RecordChannel : Rings.RecordChannel2;
    for (std::size_t k = 0; k < 8; ++k) channels[k](i) = ValueAt(stream, k, i);
  }
}

void RecorderBench::WriteRing(std::int16_t stream, std::int32_t blocks) {
  (stream == 0 ? State.BlockCount : State.BlockCount2) = blocks;
  Writing.Samples.WriteRecordBlock(stream);
}

void RecorderBench::Frames(int count, const std::string& id, int first) {
  for (int i = 0; i < count; ++i) Receive(support::PlainFrame((first + i) % 4000, id));
}

std::string RecorderBench::Content(const std::string& name) const {
  const auto file = Files.Stored.find(Path(name));
  return file == Files.Stored.end() ? "missing" : file->second;
}

std::vector<std::string> RecorderBench::Names() const {
  std::vector<std::string> names;
  for (const auto& [path, content] : Files.Stored) {
    if (!support::IsEventsFile(path)) names.push_back(path.substr(Path("").size()));
  }
  return names;
}

double ValueAt(std::size_t stream, std::size_t channel, int cell) {
  return (static_cast<double>(stream) * 8000 + static_cast<double>(channel) * 1000 + cell) * 0.25 -
         1234.5;
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t begin = 0;
  while (begin < text.size()) {
    const std::size_t end = std::min(text.find("\r\n", begin), text.size());
    lines.push_back(text.substr(begin, end - begin));
    begin = end + 2;
  }
  return lines;
}

}  // namespace recorder_tests
