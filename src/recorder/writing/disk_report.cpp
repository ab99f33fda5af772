#include "recorder/writing/disk_report.h"

#include <algorithm>

namespace packetroutines {

using platform::Failure;

namespace {

constexpr double BytesOfKilobyte = 1000;
constexpr const char* Grouped = "###,###,###,##0";

std::string NameOf(std::size_t stream) {
  return "stream " + std::to_string(stream + 1) + ": ";
}

}  // namespace

void DiskReport::Begin() {
  streams_ = {};
  sentences_.clear();
  room_.Clear();
  for (platform::Label& caption : recorder_.OnDisk) caption.Caption = std::string();
  ShowLine();
}

void DiskReport::End() {
  room_.Clear();
  ShowLine();
}

void DiskReport::RingWritten(std::size_t stream, const std::string& path) {
  if (!files_.FileExists(path)) {
    NotStored(stream, Failure(platform::failure::FileNotFound));
    return;
  }
  Stream& told = streams_[stream];
  told.Path = path;
  ++told.Rings;
  ShowRings(stream);
  if (room_.RingWritten(stream, path)) ShowLine();
  if (!told.Failing) return;
  told.Failing = false;
  told.Sentence = "stored again since " + Now() + "; " + LostRings(told) + ": " + told.Reason;
  ShowLine();
}

void DiskReport::NotStored(std::size_t stream, const Failure& reason) {
  Lose(stream, 1, reason);
}

void DiskReport::LookForFile(std::size_t stream) {
  Stream& told = streams_[stream];
  if (told.Rings == 0 || !Gone(stream)) return;
  const std::int64_t rings = told.Rings;
  told.Rings = 0;
  ShowRings(stream);
  told.Lost += rings;
  Lose(stream, 0, Failure(platform::failure::FileNotFound));
}

bool DiskReport::Gone(std::size_t stream) const {
  return AnyStored(stream) && !files_.FileExists(streams_[stream].Path);
}

void DiskReport::Add(const std::string& sentence) {
  if (std::find(sentences_.begin(), sentences_.end(), sentence) != sentences_.end()) return;
  sentences_.push_back(sentence);
  ShowLine();
}

void DiskReport::Lose(std::size_t stream, std::int64_t rings, const Failure& reason) {
  Stream& told = streams_[stream];
  if (!told.Failing) {
    told.Failing = true;
    told.Reason = reason.Text();
    told.Sentence = "not stored since " + Now() + ": " + told.Reason;
    if (told.Lost > 0) told.Sentence += "; " + LostRings(told) + " before";
    ShowLine();
  }
  told.Lost += rings;
}

void DiskReport::ShowRings(std::size_t stream) {
  const Stream& told = streams_[stream];
  std::string text;
  if (told.Rings > 0) {
    const auto kilobytes = static_cast<double>(files_.FileSize(told.Path)) / BytesOfKilobyte;
    text = NameOf(stream) + numbers_.Format(static_cast<double>(told.Rings), Grouped) +
           (told.Rings == 1 ? " whole ring, " : " whole rings, ") +
           numbers_.Format(kilobytes, Grouped) + " kB on disk";
  }
  recorder_.OnDisk[stream].Caption = text;
}

void DiskReport::ShowLine() {
  std::string line;
  const auto append = [&](const std::string& sentence) {
    if (!line.empty()) line += ' ';
    line += sentence + '.';
  };
  for (std::size_t i = 0; i < streams_.size(); ++i) {
    if (!streams_[i].Sentence.empty()) append(NameOf(i) + streams_[i].Sentence);
  }
  if (room_.Short()) append("Less than an hour of room is left on the disk of the data folder");
  for (const std::string& sentence : sentences_) append(sentence);
  recorder_.NotStored.Say(line);
}

std::string DiskReport::LostRings(const Stream& stream) const {
  return numbers_.Format(static_cast<double>(stream.Lost), Grouped) +
         (stream.Lost == 1 ? " ring lost" : " rings lost");
}

}  // namespace packetroutines
