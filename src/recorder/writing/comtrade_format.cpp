#include "recorder/writing/comtrade_format.h"

#include <algorithm>
#include <array>

#include "base/trap.h"
#include "config/program_facts.h"
#include "platform/services/dialogs.h"
#include "platform/stream_format.h"
#include "recorder/writing/sample_lines.h"

namespace packetroutines {

using platform::Crlf;
using platform::Failure;
namespace failure = platform::failure;

namespace {

constexpr const char* ConfigExtension = ".cfg";
/// A line's time, in units of a millisecond.
constexpr double SamplePeriod = 1000.0 / platform::SamplesASecond;

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

/// Why the configuration of a recording could not be ended.
std::string ReasonOf(const Failure& met) {
  const bool noDate =
      met.Number() == failure::TypeMismatch || met.Number() == failure::InvalidProcedureCall;
  return noDate ? "Its name holds no date and time of a start." : met.Text() + ".";
}

}  // namespace

std::string ComtradeFormat::ConfigPath(const std::string& prefix) const {
  const std::string& name = context_.State.RecordFileName;
  const std::size_t base = name.size() - std::min(name.size(), Facts.Extension.size());
  return RecordPath(context_.Services.Files, context_.Settings,
                    prefix + name.substr(0, base) + ConfigExtension);
}

void ComtradeFormat::Begin() {
  countedBefore_ = 0;
  beginsAnew_ = {};
}

void ComtradeFormat::EndPart() {
  End();
  countedBefore_ = context_.State.BlockCount;
  beginsAnew_ = {true, true};
}

bool ComtradeFormat::Write(std::size_t stream) {
  if (Counted() == FirstRingBlocks || beginsAnew_[stream]) BeginConfig(stream);
  beginsAnew_[stream] = false;
  context_.Open.OpenToAppend(TextFile, RecordPath(context_, stream));
  lines_.clear();
  const std::int64_t first = std::int64_t{context_.Present.BaseSamples} * Counted() - LinesSetBack;
  for (std::int16_t i = 0; i < RecordRings::Cells; ++i) AppendLine(stream, first + i, i);
  WriteFile(lines_);
  return true;
}

void ComtradeFormat::WriteFile(const std::string& lines) {
  context_.Open.Write(TextFile, lines);
  context_.Open.Close(TextFile);
}

void ComtradeFormat::WriteConfig(const std::string& path, const std::string& lines) {
  WriteFile(lines);
  context_.Report.AlsoWritten(path);
}

void ComtradeFormat::BeginConfig(std::size_t stream) {
  const std::string& station = context_.Settings.FilterContent[0];
  const std::string path = ConfigPath(RecordPrefix(stream, context_.Present));
  context_.Open.OpenAnew(TextFile, path);
  std::string text = station + "," + config::ProgramName + " " + config::ProgramVersion + ",1999" +
                     Crlf + "8,8A,0D" + Crlf;
  for (std::size_t k = 0; k < ChannelTails.size(); ++k) {
    text += Forms[stream].IndexLetter + std::to_string(k + 1) + "," + station + ":" +
            context_.Settings.ChannelName[k] + ChannelTails[k] + Crlf;
  }
  text += context_.Services.Numbers.General(context_.Settings.BaseFrequency) + Crlf + "1" + Crlf;
  WriteConfig(path, context_.Services.Code.FromUtf8(text));
}

void ComtradeFormat::AppendLine(std::size_t stream, std::int64_t number, std::int16_t cell) {
  platform::NumberText::AppendGeneral(lines_, number);
  lines_ += ',';
  const auto append = [&](double value, const char* form) {
    const std::size_t begin = lines_.size();
    context_.Services.Numbers.AppendFormat(lines_, value, form);
    DotDecimal(lines_, begin);
  };
  append(static_cast<double>(number) * SamplePeriod, "");
  for (const auto& channel : context_.Rings.RecordChannel) {
    lines_ += ',';
    append(channel(cell), Forms[stream].Values);
  }
  lines_ += Crlf;
}

void ComtradeFormat::End() {
  platform::RunSteps(
      context_.Services.Usual.Program,
      [this](const Failure& met) {
        TellOfEnd(met);
        return platform::Verdict::LeaveRoutine;
      },
      [this] { FinishComtradeConfig(); });
}

void ComtradeFormat::EndForGood() {
  if (!context_.Report.AnyStored(0) && !context_.Report.AnyStored(1)) return;
  platform::RunSteps(
      context_.Services.Usual.Program,
      [this](const Failure&) {
        context_.Open.CloseQuietly(TextFile);
        return platform::Verdict::LeaveRoutine;
      },
      [this] { FinishComtradeConfig(); });
}

void ComtradeFormat::FinishComtradeConfig() {
  const std::string start =
      TimeText(StartTimeOf(context_.State.RecordFileName, Facts.Extension)) + Crlf;
  const std::string path = ConfigPath("");
  context_.Open.OpenToAppend(TextFile, path);
  WriteConfig(path, context_.Services.Numbers.General(double{platform::SamplesAPeriod} *
                                                      context_.Settings.BaseFrequency) +
                        "," + platform::NumberText::General(Counted() * SamplesOfBlock) + Crlf +
                        start + start + "ASCII" + Crlf + "1000" + Crlf);
}

void ComtradeFormat::TellOfEnd(const Failure& met) const {
  context_.Open.CloseQuietly(TextFile);
  context_.Report.NoteTrouble();
  context_.Services.Usual.Dialogs.Show({"Information",
                                        "The file " + ConfigPath("") + " is incomplete." + Crlf +
                                            ReasonOf(met) + Crlf + WhatOfTheSamples(),
                                        platform::Icon::Information});
}

std::string ComtradeFormat::WhatOfTheSamples() const {
  const DiskReport& report = context_.Report;
  if (report.Gone(0) || report.Gone(1)) return "The data file is gone, too.";
  if (!report.AnyStored(0) && !report.AnyStored(1)) return "No samples were stored.";
  return "The samples in the data file are not affected.";
}

}  // namespace packetroutines
