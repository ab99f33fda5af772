#include "recorder/reading/record_check.h"

#include <memory>

#include "base/trap.h"
#include "recorder/reading/log_lines.h"
#include "recorder/writing/text_format.h"

namespace packetroutines {

using platform::Failure;

namespace {

constexpr const char* CheckCaption = "&Check recording";
constexpr const char* CheckTip =
    "counts the lost samples of the recording beside, which has no log, and writes a log of them";
constexpr const char* OpenCaption = "Open &check log";
constexpr const char* OpenTip = "opens the log of the check in your standard text editor";
constexpr std::int64_t WholeBar = 100;

/// "a", "a and b", "a, b and c"
std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i > 0) text += i + 1 < words.size() ? ", " : " and ";
    text += words[i];
  }
  return text;
}

}  // namespace

RecordCheck::RecordCheck(const ReadingContext& context, forms::RecorderControls& recorder)
    : context_(context), recorder_(recorder) {
  recorder_.CheckRecording.Click = [this] { Pressed(); };
  recorder_.CheckLine.DblClick = [this] { OpenFiles(); };
}

void RecordCheck::Offer() {
  Withdraw();
  const platform::FileSystem& files = context_.Services.Files;
  const auto found =
      FindUnchecked(files, files.Native(context_.Settings.StoragePath),
                    [this](const std::string& name) { return refused_.count(name) > 0; });
  if (!found) return;
  offered_ = *found;
  for (const std::string& name : offered_.Names) opened_.push_back(context_.PathOf(name));
  recorder_.CheckRecording.Caption = CheckCaption;
  recorder_.CheckRecording.ToolTipText = CheckTip;
  recorder_.CheckRecording.Visible = true;
  recorder_.CheckLine.Say(Joined(offered_.Names) + " of " +
                          context_.Services.Calendar.GeneralText(offered_.Start) +
                          (offered_.Names.size() == 1 ? " has no log." : " have no log."));
}

void RecordCheck::Withdraw() {
  offered_ = {};
  opened_.clear();
  recorder_.CheckRecording.Visible = false;
  recorder_.CheckLine.Say("");
}

void RecordCheck::Pressed() {
  // A recording keeps the disk and the thread for its frames.
  if (context_.State.LookingForRecording) return;
  if (offered_.Names.empty()) {
    OpenFiles();
  } else {
    Check();
  }
}

void RecordCheck::OpenFiles() {
  for (const std::string& path : opened_) context_.Services.Links.Open(path);
}

void RecordCheck::Check() {
  const ShownProgress progress(recorder_.ProgressBar1);
  const ShownHourglass hourglass(context_.Services.Pointer);
  opened_.clear();
  Findings findings;
  for (std::size_t file = 0; file < offered_.Names.size(); ++file) {
    const auto tell = [&](const Failure& met) {
      const std::string& name = offered_.Names[file];
      const std::string reason = ReasonInTheSamples(met, GapSearch::LogRound);
      if (!reason.empty()) refused_.insert(name);
      findings.Trouble +=
          " " + name + " could not be checked: " + (reason.empty() ? met.Text() : reason) + ".";
      return platform::Verdict::SkipStep;
    };
    platform::RunSteps(context_.Services.Usual.Program, tell, [&] { CheckFile(file, findings); });
  }
  Tell(findings);
}

void RecordCheck::CheckFile(std::size_t file, Findings& findings) {
  const std::string& name = offered_.Names[file];
  const SearchedSamples samples = Search(file);
  WriteLog(name, samples);
  findings.Lost.push_back(samples.Gaps.Lost());
  opened_.push_back(context_.PathOf(CheckBeginning + name));
}

SearchedSamples RecordCheck::Search(std::size_t file) {
  const auto percent = [this](std::size_t files) {
    return static_cast<std::int16_t>(WholeBar * files / offered_.Names.size());
  };
  const std::string path = context_.PathOf(offered_.Names[file]);
  AnalysisPass pass(recorder_.ProgressBar1, percent(file), percent(file + 1),
                    context_.Services.Files.FileSize(path));
  return SearchSamples(context_.Services.Files, path, pass);
}

void RecordCheck::WriteLog(const std::string& name, const SearchedSamples& samples) {
  const std::string recording = context_.PathOf(name);
  const std::string path = context_.PathOf(CheckBeginning + name);
  std::unique_ptr<platform::OutputFile> log = context_.Services.Files.Create(path);
  try {
    LogLines lines(*log, context_.Texts());
    WriteCheckLog(lines, recording, offered_.Start, context_.Services.Files.LastWrite(recording),
                  samples, context_.Settings.BaseFrequency);
    log->Close();
  } catch (const Failure&) {
    // A log that is not whole would keep the recording from being offered again.
    log.reset();
    context_.Open.DeleteQuietly(path);
    throw;
  }
  if (context_.Services.Sync != nullptr) context_.Services.Sync->Sync(path);
}

void RecordCheck::Tell(const Findings& findings) {
  const std::size_t count = findings.Lost.size();
  std::string text;
  if (count > 0) {
    std::vector<std::string> lost;
    for (const std::int32_t each : findings.Lost) {
      lost.push_back(context_.Services.Numbers.Format(each, "###,###,###,##0"));
    }
    const bool one = count == 1 && findings.Lost[0] == 1;
    text = std::to_string(count) + (count == 1 ? " file" : " files") + " checked: " + Joined(lost) +
           (one ? " sample lost." : " samples lost.") +
           (count == 1 ? " Its log is in the data folder." : " Logs are in the data folder.");
    recorder_.CheckRecording.Caption = OpenCaption;
    recorder_.CheckRecording.ToolTipText = OpenTip;
    offered_ = {};
  }
  text += findings.Trouble;
  recorder_.CheckLine.Say(text.substr(text.find_first_not_of(' ')));
  // What failed for another reason than its samples can be tried again.
  std::erase_if(offered_.Names,
                [this](const std::string& name) { return refused_.count(name) > 0; });
  recorder_.CheckRecording.Visible = count > 0 || !offered_.Names.empty();
}

}  // namespace packetroutines
