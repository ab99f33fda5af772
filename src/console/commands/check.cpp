#include "console/commands/check.h"

#include <algorithm>

#include "base/failure.h"
#include "console/commands/checked_recording.h"
#include "console/commands/recording_name.h"
#include "recorder/reading/reading_context.h"

namespace console {

namespace {

/// The lines of a log on a terminal: in its own code, and with its own ends.
class ResultLines : public platform::OutputFile {
 public:
  explicit ResultLines(std::ostream& results) : results_(results) {}
  void Write(std::string_view bytes) override {
    for (const char c : bytes) {
      if (c != '\r') results_ << c;
    }
  }
  void Close() override { results_.flush(); }

 private:
  std::ostream& results_;
};

/// Texts as they are inside the program.
class Utf8 : public platform::CodePage {
 public:
  std::string FromUtf8(std::string_view text) const override { return std::string(text); }
  std::string ToUtf8(std::string_view bytes) const override { return std::string(bytes); }
};

/// The log beside the recording, in the form that any log has there.
void StoreLog(const CheckedRecording& checked, const Machine& machine) {
  const RecordingName name = NameOf(machine.Files, checked.Path);
  const std::string path = name.Folder + packetroutines::CheckBeginning + name.Name;
  std::unique_ptr<platform::OutputFile> log = machine.Files.Create(path);
  try {
    WriteCheck(checked, *log, {machine.Code, machine.Numbers, machine.Calendar});
    log->Close();
  } catch (const platform::Failure&) {
    // A log that is not whole would keep the recording from being checked again.
    log.reset();
    machine.Files.DeleteFile(path);
    throw;
  }
}

}  // namespace

CLI::App* CheckCommand::Declare(CLI::App& program) {
  CLI::App* const words =
      program.add_subcommand("check", "Count what is missing in text recordings, and tell where");
  words->add_option("FILE", files_, "text recordings, of either stream")->required();
  words->add_option("--round", round_, "samples behind which the counter begins anew; learnt")
      ->check(CLI::Range(2, 65536));
  words->add_flag("--log", log_, "write a file 'Checklog ...' beside each of them, too");
  words->add_flag("--json", json_, "one JSON object with an array 'recordings'");
  words->footer("Example: vornik-cli check \"SV record 21.11.2026 18-04-09.txt\" --log");
  return words;
}

ExitCode CheckCommand::Run(const Machine& machine) {
  ExitCode code = ExitCode::Done;
  nlohmann::ordered_json recordings = nlohmann::ordered_json::array();
  bool first = true;
  for (const std::string& path : files_) {
    try {
      const CheckedRecording checked = CheckRecording(machine.Files, path, round_);
      if (json_) {
        recordings.push_back(ToJson(checked));
      } else {
        if (!first) machine.Results << '\n';
        ResultLines results(machine.Results);
        WriteCheck(checked, results, {Utf8(), machine.Numbers, machine.Calendar});
        first = false;
      }
      if (log_) StoreLog(checked, machine);
    } catch (const platform::Failure& failure) {
      machine.Notes << "vornik-cli: " << path << ": " << failure.Text() << std::endl;
      code = std::max(code, CodeOf(failure));
    }
  }
  if (json_) {
    const nlohmann::ordered_json all{{"recordings", recordings}};
    // A name may hold bytes that are no text.
    machine.Results << all.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace)
                    << '\n';
  }
  return code;
}

}  // namespace console
