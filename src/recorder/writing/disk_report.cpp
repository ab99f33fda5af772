#include "recorder/writing/disk_report.h"

#include <algorithm>

namespace packetroutines {

using platform::Failure;

namespace {

constexpr double BytesOfKilobyte = 1000;
constexpr const char* Grouped = "###,###,###,##0";
/// From one look at what is on its way to the next, in ms.
constexpr std::int32_t LookInterval = 250;
/// The number of a request where what is written counts as stored.
constexpr std::uint64_t StoredAtOnce = 0;

std::string NameOf(std::size_t stream) {
  return "stream " + std::to_string(stream + 1) + ": ";
}

/// What became of a request.
enum class Fate { Waits, Stored, Doubtful };

Fate FateOf(std::uint64_t request, const platform::DiskState& state) {
  if (request == StoredAtOnce) return Fate::Stored;
  if (request <= state.Failed) return Fate::Doubtful;
  return request <= state.Synced ? Fate::Stored : Fate::Waits;
}

}  // namespace

DiskReport::DiskReport(forms::RecorderControls& recorder, const RecorderServices& services)
    : recorder_(recorder),
      services_(services),
      room_(recorder.Room, services.Files, services.Numbers, services.Timers),
      look_(services.Timers) {
  look_.Interval = LookInterval;
  look_.Elapsed = [this] { Look(); };
}

void DiskReport::Begin() {
  for (const Stream& before : streams_) {
    if (!before.OnTheWay.empty()) others_.push_back(before.OnTheWay.back());
  }
  streams_ = {};
  sentences_.clear();
  anyTrouble_ = false;
  room_.Clear();
  for (platform::Label& caption : recorder_.OnDisk) caption.Caption = std::string();
  ShowLine();
}

void DiskReport::End() {
  room_.Clear();
  ShowLine();
}

void DiskReport::RingWritten(std::size_t stream, const std::string& path) {
  if (!services_.Files.FileExists(path)) {
    NotStored(stream, Failure(platform::failure::FileNotFound));
    return;
  }
  Settle(stream);
  Stream& told = streams_[stream];
  const std::size_t before = told.OnTheWay.size();
  const std::int64_t size = services_.Files.FileSize(path);
  told.OnTheWay.push_back({path, Ask(path), size - told.Size});
  told.Path = path;
  told.Size = size;
  ++told.Rings;
  ++told.Written;
  Settle(stream);
  // The ring itself is hardly ever there already, and is late only where the next one finds it.
  ShowRings(stream, std::min(before, told.OnTheWay.size()));
  look_.Enabled = AnyOnTheWay();
  if (room_.RingWritten(stream, path)) ShowLine();
  if (!told.Failing) return;
  told.Failing = false;
  told.Sentence =
      "stored again since " + Now() + "; " + RingsText(told.Lost) + " lost: " + told.Reason;
  ShowLine();
}

void DiskReport::AlsoWritten(const std::string& path) {
  others_.push_back({path, Ask(path)});
  SettleOthers();
  look_.Enabled = AnyOnTheWay();
}

void DiskReport::NotStored(std::size_t stream, const Failure& reason) {
  Lose(stream, 1, reason);
}

void DiskReport::LookForFile(std::size_t stream) {
  Stream& told = streams_[stream];
  if (told.Rings == 0 || !Gone(stream)) return;
  told.Lost += told.Rings;
  ++told.FilesGone;
  Forget(told);
  ShowRings(stream, 0);
  Lose(stream, 0, Failure(platform::failure::FileNotFound));
}

bool DiskReport::Gone(std::size_t stream) const {
  return AnyStored(stream) && !services_.Files.FileExists(streams_[stream].Path);
}

bool DiskReport::AnyLost() const {
  return std::any_of(streams_.begin(), streams_.end(),
                     [](const Stream& each) { return each.Lost > 0 || each.Doubtful > 0; });
}

void DiskReport::Add(const std::string& sentence) {
  if (std::find(sentences_.begin(), sentences_.end(), sentence) != sentences_.end()) return;
  sentences_.push_back(sentence);
  ShowLine();
}

void DiskReport::AddTrouble(const std::string& sentence) {
  NoteTrouble();
  Add(sentence);
}

void DiskReport::Lose(std::size_t stream, std::int64_t rings, const Failure& reason) {
  Stream& told = streams_[stream];
  if (!told.Failing) {
    told.Failing = true;
    told.Reason = reason.Text();
    told.Refused = reason.Number() == platform::failure::PermissionDenied;
    told.Sentence = "not stored since " + Now() + ": " + told.Reason;
    if (told.Lost > 0) told.Sentence += "; " + RingsText(told.Lost) + " lost before";
    ShowLine();
  }
  told.Lost += rings;
}

void DiskReport::Forget(Stream& stream) {
  stream.Size = 0;
  stream.Rings = 0;
  stream.Stored = 0;
  stream.StoredBytes = 0;
  stream.OnTheWay.clear();
  stream.Doubtful = 0;
  stream.Doubt.clear();
}

std::uint64_t DiskReport::Ask(const std::string& path) {
  return services_.Sync != nullptr ? services_.Sync->Sync(path) : StoredAtOnce;
}

platform::DiskState DiskReport::StateOf(const std::string& path) const {
  return services_.Sync != nullptr ? services_.Sync->StateOf(path) : platform::DiskState{};
}

void DiskReport::Settle(std::size_t stream) {
  Stream& told = streams_[stream];
  const platform::DiskState state = StateOf(told.Path);
  const std::int64_t doubtful = std::count_if(
      told.OnTheWay.begin(), told.OnTheWay.end(),
      [&](const Waiting& ring) { return FateOf(ring.Request, state) == Fate::Doubtful; });
  for (Waiting& ring : told.OnTheWay) {
    AskAnew(ring, state);
    if (FateOf(ring.Request, state) != Fate::Stored) continue;
    ++told.Stored;
    told.StoredBytes += ring.Bytes;
  }
  std::erase_if(told.OnTheWay,
                [&](const Waiting& ring) { return FateOf(ring.Request, state) != Fate::Waits; });
  if (doubtful > 0) TakeDoubt(stream, doubtful, Failure(state.Failure));
}

void DiskReport::AskAnew(Waiting& written, const platform::DiskState& state) {
  const bool unreached =
      FateOf(written.Request, state) == Fate::Waits && written.Request <= state.Unreached;
  if (unreached) written.Request = Ask(written.Path);
}

void DiskReport::TakeDoubt(std::size_t stream, std::int64_t rings, const Failure& reason) {
  Stream& told = streams_[stream];
  if (told.Doubt.empty()) told.Doubt = " since " + Now() + ": " + reason.Text();
  told.Doubtful += rings;
  ShowLine();
}

void DiskReport::SettleOthers() {
  for (Waiting& written : others_) {
    const platform::DiskState state = StateOf(written.Path);
    if (FateOf(written.Request, state) == Fate::Doubtful) {
      const std::size_t name = written.Path.rfind(services_.Files.Separator()) + 1;
      Add(written.Path.substr(name) + " may be lost: " + Failure(state.Failure).Text());
    }
    AskAnew(written, state);
  }
  std::erase_if(others_, [this](const Waiting& written) {
    return FateOf(written.Request, StateOf(written.Path)) != Fate::Waits ||
           !services_.Files.FileExists(written.Path);
  });
}

void DiskReport::Look() {
  for (std::size_t stream = 0; stream < streams_.size(); ++stream) {
    if (streams_[stream].OnTheWay.empty()) continue;
    Settle(stream);
    // Of a file that is gone the next ring tells; where there is none, nothing is written.
    ShowRings(stream, Gone(stream) ? 0 : streams_[stream].OnTheWay.size());
  }
  SettleOthers();
  look_.Enabled = AnyOnTheWay();
}

bool DiskReport::AnyOnTheWay() const {
  return !others_.empty() || std::any_of(streams_.begin(), streams_.end(),
                                         [](const Stream& each) { return !each.OnTheWay.empty(); });
}

void DiskReport::ShowRings(std::size_t stream, std::size_t told) {
  const Stream& rings = streams_[stream];
  std::string text;
  if (rings.Stored > 0) {
    const auto kilobytes = static_cast<double>(rings.StoredBytes) / BytesOfKilobyte;
    text = RingsText(rings.Stored, "whole ") + ", " + services_.Numbers.Format(kilobytes, Grouped) +
           " kB on disk";
  }
  if (told > 0) {
    const auto waiting = static_cast<std::int64_t>(told);
    const std::string count = services_.Numbers.Format(static_cast<double>(told), Grouped);
    text += text.empty() ? RingsText(waiting, "whole ") : ", " + count + " more";
    text += " being written to the disk";
  }
  recorder_.OnDisk[stream].Caption = text.empty() ? text : NameOf(stream) + text;
}

void DiskReport::ShowLine() {
  std::string line;
  const auto append = [&](const std::string& sentence) {
    if (!line.empty()) line += ' ';
    line += sentence + '.';
  };
  for (std::size_t i = 0; i < streams_.size(); ++i) {
    const Stream& told = streams_[i];
    if (!told.Sentence.empty()) append(NameOf(i) + told.Sentence);
    if (!told.Doubt.empty())
      append(NameOf(i) + RingsText(told.Doubtful) + " may be lost" + told.Doubt);
  }
  if (room_.Short()) append("Less than an hour of room is left on the disk of the data folder");
  for (const std::string& sentence : sentences_) append(sentence);
  recorder_.NotStored.Say(line);
}

std::string DiskReport::RingsText(std::int64_t rings, const char* kind) const {
  return services_.Numbers.Format(static_cast<double>(rings), Grouped) + ' ' + kind +
         (rings == 1 ? "ring" : "rings");
}

}  // namespace packetroutines
