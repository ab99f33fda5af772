#include "console/commands/convert.h"

#include <algorithm>
#include <charconv>
#include <chrono>

#include "base/failure.h"
#include "console/commands/number_within.h"

namespace console {

namespace {

constexpr const char* To1999 = "comtrade-1999";
constexpr const char* To2013 = "comtrade-2013";
constexpr const char* ToSingle = "cff";

/// A moment of the clock on the wall, to the microsecond.
struct Moment {
  platform::LocalTime Time;
  std::int32_t Microseconds = 0;
};

/// "2026-11-21 18:04:09.250000", or the same with a "T" and with fewer digits or none behind the
/// seconds.
Moment ToMoment(const std::string& text) {
  const auto refuse = [&]() -> Moment {
    throw WrongUse("'" + text +
                   "' is no moment; write it as in --start \"2026-11-21 18:04:09.250\"");
  };
  constexpr std::size_t Seconds = 19;
  constexpr std::size_t MostDigits = 6;
  if (text.size() < Seconds || (text[10] != ' ' && text[10] != 'T')) return refuse();
  if (text[4] != '-' || text[7] != '-') return refuse();
  std::string digits = text.substr(Seconds);
  if (!digits.empty() && (digits[0] != '.' || digits.size() == 1)) return refuse();
  if (!digits.empty()) digits.erase(0, 1);
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const bool plain = std::all_of(digits.begin(), digits.end(), isDigit);
  if (!plain || digits.size() > MostDigits) return refuse();
  digits.resize(MostDigits, '0');
  Moment moment;
  std::from_chars(digits.data(), digits.data() + digits.size(), moment.Microseconds);
  try {
    moment.Time = platform::ToLocalTime(text.substr(8, 2) + '.' + text.substr(5, 2) + '.' +
                                        text.substr(0, 4) + ' ' + text.substr(11, 8));
  } catch (const platform::Failure&) {
    return refuse();
  }
  return moment;
}

/// "+1h", "+5h30", "-4", "0"
std::chrono::minutes ToAhead(const std::string& text) {
  const bool negative = text.starts_with('-');
  const char* at = text.data() + (negative || text.starts_with('+') ? 1 : 0);
  const char* const end = text.data() + text.size();
  int hours = -1;
  int minutes = 0;
  at = std::from_chars(at, end, hours).ptr;
  if (at != end && *at == 'h' && ++at != end) at = std::from_chars(at, end, minutes).ptr;
  constexpr int MostHours = 14;
  if (at != end || hours < 0 || hours > MostHours || minutes < 0 || minutes > 59) {
    throw WrongUse("'" + text +
                   "' is no difference to Greenwich; write it as in --utc-offset +5h30");
  }
  const std::chrono::minutes ahead = std::chrono::hours(hours) + std::chrono::minutes(minutes);
  return negative ? -ahead : ahead;
}

/// What the clock on this computer's wall was ahead of Greenwich when it showed this moment.
std::chrono::minutes AheadOfGreenwich(const platform::Calendar& calendar,
                                      const platform::LocalTime& moment) {
  const platform::LocalTime epoch{1970, 1, 1, 0, 0, 0};
  const std::int64_t shown = platform::SecondsBetween(epoch, moment);
  std::int64_t ahead = 0;
  // The first look is hours off at most, which a change of the clock may lie in.
  for (int look = 0; look < 2; ++look) {
    const platform::LocalTime there = calendar.At(std::chrono::seconds(shown - ahead));
    ahead += platform::SecondsBetween(moment, there);
  }
  return std::chrono::duration_cast<std::chrono::minutes>(std::chrono::seconds(ahead));
}

/// "1 sample", "2 samples"
std::string Samples(std::int64_t count) {
  return std::to_string(count) + (count == 1 ? " sample" : " samples");
}

}  // namespace

CLI::App* ConvertCommand::Declare(CLI::App& program) {
  CLI::App* const words = program.add_subcommand(
      "convert", "Make a text recording into COMTRADE files, to the letter of IEEE C37.111");
  words->add_option("FILE", file_, "a text recording, of either stream")->required();
  words->add_option("--to", to_, "comtrade-1999, comtrade-2013, or cff: 2013 in a single file")
      ->required()
      ->check(CLI::IsMember({To1999, To2013, ToSingle}));
  CLI::Option* const binary = words->add_flag("--binary", binary_, "16 bits a value, not text");
  CLI::Option* const binary32 =
      words->add_flag("--binary32", binary32_, "32 bits a value: every count of the wire (2013)");
  words->add_flag("--float", float_, "values as 32-bit floats (2013)")
      ->excludes(binary)
      ->excludes(binary32);
  binary->excludes(binary32);
  words->add_option("--station", station_, "name of the station in the configuration");
  words->add_option("--channels", channels_, "eight names instead of Ia,Ib,Ic,In,Va,Vb,Vc,Vn")
      ->delimiter(',')
      ->expected(8);
  words
      ->add_option("--unit", units_,
                   "units that were recorded: A or mA, kV, V or mV; A,kV unless told")
      ->delimiter(',')
      ->expected(2);
  words->add_option("--start", start_,
                    "moment of the first sample, where the name of the file does not tell it");
  words->add_option("--utc-offset", ahead_,
                    "what its clock is ahead of Greenwich; that of this computer unless told");
  words->add_option("--frequency", frequency_, "of the mains in Hz; by the counter unless told")
      ->check(MainsFrequency());
  words->add_option("--round", round_, "samples behind which the counter begins anew; learnt")
      ->check(CLI::Range(2, 65536));
  words->add_option("--output", folder_, "folder for the files; that of the recording unless told");
  words->add_flag("--force", force_, "overwrite files of the same name");
  words->footer(
      "Example: vornik-cli convert \"SV record 21.11.2026 18-04-09.txt\" --to comtrade-1999 "
      "--station North");
  return words;
}

ComtradeForm ConvertCommand::Form() const {
  if ((binary32_ || float_) && to_ == To1999) {
    throw WrongUse("the edition of 1999 has no values of 32 bits; use --to comtrade-2013");
  }
  if (binary32_) return ComtradeForm::Binary32;
  if (float_) return ComtradeForm::Float32;
  return binary_ ? ComtradeForm::Binary : ComtradeForm::Ascii;
}

void ConvertCommand::TakeNames(Conversion& conversion) const {
  const ComtradeEdition edition = conversion.Head.Edition;
  const auto demand = [&](const std::string& name) {
    const std::string unfit = UnfitComtradeName(name, edition);
    if (!unfit.empty()) throw WrongUse("'" + name + "' is no name for COMTRADE. " + unfit);
  };
  demand(station_);
  conversion.Head.Station = station_;
  for (std::size_t k = 0; k < channels_.size(); ++k) {
    demand(channels_[k]);
    if (channels_[k].empty()) throw WrongUse("each of the eight channels needs a name");
    conversion.Names[k] = channels_[k];
  }
}

void ConvertCommand::TakeUnits(Conversion& conversion, const RecordingName& name) const {
  if (units_.empty()) return;
  const std::optional<RecordedUnit> current = CurrentUnit(units_[0]);
  const std::optional<RecordedUnit> voltage = VoltageUnit(units_[1]);
  if (!current || !voltage) {
    throw WrongUse("the currents are recorded in A or mA, the voltages in kV, V or mV: --unit A,V");
  }
  if (name.OfSecondStream() && (current->Name != "A" || voltage->Name != "kV")) {
    throw WrongUse("the second stream is always recorded in A and kV; leave --unit out");
  }
  conversion.Current = *current;
  conversion.Voltage = *voltage;
}

void ConvertCommand::TakeStart(ComtradeHead& head, const RecordingName& name,
                               const Machine& machine) const {
  Moment start;
  if (!start_.empty()) {
    start = ToMoment(start_);
  } else if (const auto named = name.Start()) {
    start.Time = *named;
  } else {
    throw WrongUse("the name of '" + name.Name + "' tells no moment; give it with --start");
  }
  head.Start = start.Time;
  head.StartMicroseconds = start.Microseconds;
  head.AheadOfGreenwich =
      ahead_.empty() ? AheadOfGreenwich(machine.Calendar, start.Time) : ToAhead(ahead_);
}

Conversion ConvertCommand::Wish(const RecordingName& name, const Machine& machine) const {
  Conversion conversion;
  conversion.Head.Edition = to_ == To1999 ? ComtradeEdition::Of1999 : ComtradeEdition::Of2013;
  conversion.Head.Form = Form();
  conversion.Files = to_ == ToSingle ? ComtradeFiles::Single : ComtradeFiles::Pair;
  conversion.Frequency = frequency_;
  conversion.Round = round_;
  TakeNames(conversion);
  TakeUnits(conversion, name);
  TakeStart(conversion.Head, name, machine);
  return conversion;
}

void ConvertCommand::Tell(const Converted& converted, const Machine& machine) const {
  const auto note = [&](std::int64_t count, const char* what) {
    if (count == 0) return;
    machine.Notes << "vornik-cli: " << file_ << ": " << Samples(count) << what << std::endl;
  };
  note(converted.Missing, " lost by the counter, with missing values in the files.");
  note(converted.Doubled, " doubled, and left out.");
  note(converted.Late, " out of order, and put in place.");
  note(converted.BeforeFirst, " sent before the first one, and left out.");
  if (!converted.Cut) return;
  machine.Notes << "vornik-cli: " << file_ << ": the last line was cut, and is left out."
                << std::endl;
}

ExitCode ConvertCommand::Run(const Machine& machine) {
  const RecordingName name = NameOf(machine.Files, file_);
  const Conversion conversion = Wish(name, machine);
  const std::string folder = folder_.empty() ? name.Folder : folder_ + machine.Files.Separator();
  if (!folder_.empty() && !machine.Files.DirectoryExists(folder_)) {
    machine.Notes << "vornik-cli: there is no folder '" << folder_ << "'." << std::endl;
    return ExitCode::FileTrouble;
  }
  const std::string path = folder + name.Base();
  const std::vector<std::string> paths = ComtradeFile::PathsOf(conversion.Files, path);
  for (const std::string& each : paths) {
    if (machine.Files.FileExists(each) && !force_) {
      machine.Notes << "vornik-cli: " << each << " is there already; --force overwrites it."
                    << std::endl;
      return ExitCode::FileTrouble;
    }
  }
  try {
    Tell(Convert(machine.Files, file_, conversion, path), machine);
  } catch (const platform::Failure& failure) {
    throw platform::Failure(failure.Number(), file_ + ": " + failure.Text());
  }
  for (const std::string& each : paths) machine.Results << each << '\n';
  return ExitCode::Done;
}

}  // namespace console
