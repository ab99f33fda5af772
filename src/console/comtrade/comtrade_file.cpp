#include "console/comtrade/comtrade_file.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "base/failure.h"
#include "platform/services/dialogs.h"

namespace console {

namespace {

using platform::Crlf;

/// So much is written at once.
constexpr std::size_t PieceSize = std::size_t{256} * 1024;

std::string SectionLine(const std::string& what) {
  return "--- file type: " + what + " ---" + Crlf;
}

/// Binary samples tell their length, since any of their bytes may look like a line's end.
std::string DataLine(const ComtradeHead& head, const SampleRows& rows) {
  const auto bytes = [&] {
    return ": " + std::to_string(rows.BinaryBytes(head.Samples, head.Channels.size()));
  };
  switch (head.Form) {
    case ComtradeForm::Ascii:
      return SectionLine("DAT ASCII");
    case ComtradeForm::Binary:
      return SectionLine("DAT BINARY" + bytes());
    case ComtradeForm::Binary32:
      return SectionLine("DAT BINARY32" + bytes());
    default:
      return SectionLine("DAT FLOAT32" + bytes());
  }
}

}  // namespace

std::vector<std::string> ComtradeFile::PathsOf(ComtradeFiles kind, const std::string& path) {
  if (kind == ComtradeFiles::Single) return {path + ".cff"};
  return {path + ".cfg", path + ".dat"};
}

ComtradeFile::ComtradeFile(platform::FileSystem& files, ComtradeHead head, ComtradeFiles kind,
                           const std::string& path)
    : files_(files),
      head_(std::move(head)),
      kind_(kind),
      headPath_(PathsOf(kind, path).front()),
      dataPath_(PathsOf(kind, path).back()),
      rows_(head_.Form),
      allMissing_(head_.Channels.size(), std::numeric_limits<double>::quiet_NaN()) {
  head_.Samples = SampleRows::MostSamples;
  room_ = HeadText().size();
  head_.Samples = 0;
  data_ = files_.Create(headPath_);
  data_->Write(HeadText());
  // The samples of a single file follow its head.
  if (kind == ComtradeFiles::Pair) data_ = files_.Create(dataPath_);
}

std::string ComtradeFile::HeadText() const {
  std::string configuration = ConfigurationText(head_);
  if (kind_ == ComtradeFiles::Pair) return configuration;
  const std::string before = SectionLine("CFG") + configuration + SectionLine("INF") +
                             SectionLine("HDR") + "Written by " + ComtradeDevice();
  const std::string behind = Crlf + DataLine(head_, rows_);
  const std::size_t length = before.size() + behind.size();
  return before + std::string(std::max(room_, length) - length, ' ') + behind;
}

void ComtradeFile::Add(std::span<const double> stored) {
  if (failed_) return;
  rows_.Append(waiting_, head_.Samples + 1, stored);
  ++head_.Samples;
  if (waiting_.size() >= PieceSize) WriteWaiting();
}

void ComtradeFile::AddMissing(std::int64_t samples) {
  for (std::int64_t i = 0; i < samples; ++i) Add(allMissing_);
}

std::int64_t ComtradeFile::WholeSamples() const {
  if (head_.Form == ComtradeForm::Ascii) return written_;
  const auto before = static_cast<std::int64_t>(kind_ == ComtradeFiles::Single ? room_ : 0);
  const std::int64_t row = rows_.BinaryBytes(1, head_.Channels.size());
  return std::clamp((files_.FileSize(dataPath_) - before) / row, written_, head_.Samples);
}

void ComtradeFile::WriteWaiting() {
  try {
    data_->Write(waiting_);
  } catch (const platform::Failure&) {
    failed_ = true;
    waiting_.clear();
    head_.Samples = WholeSamples();
    throw;
  }
  waiting_.clear();
  written_ = head_.Samples;
}

void ComtradeFile::WriteHead() {
  const std::unique_ptr<platform::OutputFile> head = files_.Amend(headPath_);
  head->Write(HeadText());
  head->Close();
}

void ComtradeFile::Store() {
  if (!failed_) WriteWaiting();
  WriteHead();
}

void ComtradeFile::Finish() {
  Store();
  data_->Close();
}

}  // namespace console
