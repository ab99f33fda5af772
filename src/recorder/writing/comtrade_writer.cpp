#include "recorder/writing/comtrade_writer.h"

#include <algorithm>
#include <array>

#include "config/program_facts.h"
#include "platform/services/dialogs.h"

namespace packetroutines {

using platform::Crlf;

namespace {

constexpr const char* ConfigExtension = ".cfg";
constexpr const char* DataExtension = ".dat";
/// Counted blocks by which the first ring is known. They are so many with blocks of 400 samples.
constexpr std::int32_t FirstRingBlocks = 9;
/// Lines by which the numbers are set back, so that those of the first ring start at 0.
constexpr std::int64_t SetBack = 3600;
/// Samples of a counted block, whatever the block's size is.
constexpr std::int64_t SamplesOfBlock = 400;
/// Samples of a period.
constexpr double SamplesPerPeriod = 80;
/// A line's time, in units of a millisecond.
constexpr double SamplePeriod = 0.25;

/// What stands behind the names in a channel's line: phase, component, unit, factor, offset, skew,
/// least and greatest value, primary and secondary.
constexpr std::array<const char*, 8> ChannelTails = {
    ",Ar,Current1,A,1,0,0,0,0,500000,1,1,P",   ",Ar,Current2,A,1,0,0,0,0,500000,1,1,P",
    ",Ar,Current3,A,1,0,0,0,0,500000,1,1,P",   ",Ar,CurrentN,A,1,0,0,0,0,500000,1,1,P",
    ",Ar,Voltage1,kV,1000,0,0,0,0,1000,1,1,P", ",Ar,Voltage2,kV,1000,0,0,0,0,1000,1,1,P",
    ",Ar,Voltage3,kV,1000,0,0,0,0,1000,1,1,P", ",Ar,VoltageN,kV,1000,0,0,0,0,1000,1,1,P"};

/// How the two streams differ: a letter in front of the channel's index, and the form of the
/// values, of which the empty one is the general form.
struct StreamForm {
  const char* IndexLetter;
  const char* Values;
};
constexpr std::array<StreamForm, 2> Forms = {{{"", "0.000"}, {"A", ""}}};

/// "dd/mm/yyyy,hh:mm:ss.000000"
std::string TimeText(const platform::LocalTime& moment) {
  std::string text = platform::DottedText(moment);
  std::replace(text.begin(), text.end(), '.', '/');
  std::replace(text.begin(), text.end(), ' ', ',');
  return text + ".000000";
}

}  // namespace

std::string ComtradeWriter::PathOf(const std::string& prefix, const std::string& extension) const {
  const std::string& name = context_.State.RecordFileName;
  const std::size_t base = name.size() - std::min(name.size(), std::string(DataExtension).size());
  return RecordPath(context_.Files, context_.Settings, prefix + name.substr(0, base) + extension);
}

std::string ComtradeWriter::ConfigPath() const {
  return PathOf("", ConfigExtension);
}

void ComtradeWriter::Write(std::size_t stream) {
  if (context_.State.BlockCount == FirstRingBlocks) BeginConfig(stream);
  context_.Open.OpenToAppend(TextFile, RecordPath(context_, stream));
  lines_.clear();
  const std::int64_t first =
      std::int64_t{context_.Present.BaseSamples} * context_.State.BlockCount - SetBack;
  for (std::int16_t i = 0; i < RecordRings::Cells; ++i) AppendLine(stream, first + i, i);
  WriteFile(lines_);
}

void ComtradeWriter::WriteFile(const std::string& lines) {
  context_.Open.Write(TextFile, lines);
  context_.Open.Close(TextFile);
}

void ComtradeWriter::BeginConfig(std::size_t stream) {
  const std::string& station = context_.Settings.FilterContent[0];
  context_.Open.OpenAnew(TextFile, PathOf(RecordPrefix(stream, context_.Present), ConfigExtension));
  std::string text = station + "," + config::ProgramName + " " + config::ProgramVersion + ",1999" +
                     Crlf + "8,8A,0D" + Crlf;
  for (std::size_t k = 0; k < ChannelTails.size(); ++k) {
    text += Forms[stream].IndexLetter + std::to_string(k + 1) + "," + station + ":" +
            context_.Settings.ChannelName[k] + ChannelTails[k] + Crlf;
  }
  text += context_.Numbers.General(context_.Settings.BaseFrequency) + Crlf + "1" + Crlf;
  WriteFile(context_.Code.FromUtf8(text));
}

void ComtradeWriter::AppendLine(std::size_t stream, std::int64_t number, std::int16_t cell) {
  platform::NumberText::AppendGeneral(lines_, number);
  lines_ += ',';
  const auto append = [&](double value, const char* form) {
    const std::size_t begin = lines_.size();
    context_.Numbers.AppendFormat(lines_, value, form);
    DotDecimal(lines_, begin);
  };
  append(static_cast<double>(number) * SamplePeriod, "");
  for (const auto& channel : context_.Rings.RecordChannel) {
    lines_ += ',';
    append(channel(cell), Forms[stream].Values);
  }
  lines_ += Crlf;
}

void ComtradeWriter::FinishComtradeConfig() {
  std::string date = RecordDate(context_.State.RecordFileName, DataExtension);
  std::replace(date.begin(), date.end(), '-', ':');
  const std::string time = TimeText(platform::ToLocalTime(date));
  context_.Open.OpenToAppend(TextFile, ConfigPath());
  WriteFile(context_.Numbers.General(SamplesPerPeriod * context_.Settings.BaseFrequency) + "," +
            platform::NumberText::General(context_.State.BlockCount * SamplesOfBlock) + Crlf +
            time + Crlf + time + Crlf + "ASCII" + Crlf + "1000" + Crlf);
}

}  // namespace packetroutines
