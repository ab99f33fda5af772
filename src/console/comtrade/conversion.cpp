#include "console/comtrade/conversion.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "console/comtrade/counter_round.h"
#include "console/comtrade/sample_order.h"

namespace console {

namespace {

constexpr std::size_t Channels = TextSamples::Channels;

std::optional<RecordedUnit> Find(std::initializer_list<RecordedUnit> units,
                                 const std::string& name) {
  for (const RecordedUnit& unit : units) {
    if (unit.Name == name) return unit;
  }
  return std::nullopt;
}

/// Between which values a channel lies.
struct Extent {
  double Least = 0;
  double Greatest = 0;
};

/// What is told in front of the samples, and so must be known before.
struct Survey {
  std::int32_t Round = 0;
  std::array<Extent, Channels> Extents{};
};

Survey LookThrough(platform::FileSystem& files, const std::string& recording) {
  Survey survey;
  TextSamples samples(files, recording);
  CounterRound round;
  while (samples.Next()) {
    round.Take(samples.Counter());
    for (std::size_t k = 0; k < Channels; ++k) {
      const double value = samples.Values()[k];
      Extent& extent = survey.Extents[k];
      const bool first = samples.Lines() == 1;
      extent.Least = first ? value : std::min(extent.Least, value);
      extent.Greatest = first ? value : std::max(extent.Greatest, value);
    }
  }
  if (samples.Lines() == 0) {
    throw platform::Failure(platform::failure::TypeMismatch, "it holds no whole sample");
  }
  survey.Round = round.Samples();
  return survey;
}

double FactorFor(const Extent& extent, double step, ComtradeForm form) {
  if (form == ComtradeForm::Float32) return 1;
  const double greatest = std::max(std::abs(extent.Least), std::abs(extent.Greatest));
  return WrittenFactor(std::max(step, greatest / RangeOf(form).Greatest));
}

double StoredOf(double value, double factor, ComtradeForm form) {
  if (form == ComtradeForm::Float32) return static_cast<double>(static_cast<float>(value));
  // A zero has no sign.
  return std::nearbyint(value / factor) + 0.0;
}

ComtradeChannel ChannelOf(const Conversion& conversion, const Extent& extent, std::size_t k) {
  const ComtradeForm form = conversion.Head.Form;
  const RecordedUnit& unit =
      platform::channels::IsCurrent(k) ? conversion.Current : conversion.Voltage;
  const double factor = FactorFor(extent, unit.Step, form);
  return {.Name = conversion.Names[k],
          .Phase = std::string(1, "ABCN"[k % platform::channels::OfAKind]),
          .Unit = unit.Name,
          .Factor = factor,
          .Least = StoredOf(extent.Least, factor, form),
          .Greatest = StoredOf(extent.Greatest, factor, form)};
}

ComtradeHead HeadOf(const Conversion& conversion, const Survey& survey) {
  ComtradeHead head = conversion.Head;
  for (std::size_t k = 0; k < Channels; ++k) {
    head.Channels.push_back(ChannelOf(conversion, survey.Extents[k], k));
  }
  head.Rate = survey.Round;
  head.Frequency = conversion.Frequency.value_or(UsualFrequency(head.Rate));
  return head;
}

Converted Write(platform::FileSystem& files, const std::string& recording, const ComtradeHead& head,
                std::int32_t round, ComtradeFile& file) {
  TextSamples samples(files, recording);
  SampleOrder order(round, file);
  std::array<double, Channels> stored{};
  while (samples.Next()) {
    if (samples.Counter() >= round) {
      samples.Refuse("its counter " + std::to_string(samples.Counter()) + " is beyond a round of " +
                     std::to_string(round) + " samples");
    }
    for (std::size_t k = 0; k < Channels; ++k) {
      stored[k] = StoredOf(samples.Values()[k], head.Channels[k].Factor, head.Form);
    }
    order.Take(samples.Counter(), stored);
  }
  order.Finish();
  file.Finish();
  return {.Read = samples.Lines(),
          .Written = file.Samples(),
          .Missing = order.Missing(),
          .Doubled = order.Doubled(),
          .Late = order.Late(),
          .BeforeFirst = order.BeforeFirst(),
          .Cut = samples.Cut()};
}

/// Files under names of their own until they are whole.
class Unfinished {
 public:
  Unfinished(platform::FileSystem& files, ComtradeFiles kind, const std::string& path)
      : Path(path + ".part"),
        files_(files),
        now_(ComtradeFile::PathsOf(kind, Path)),
        then_(ComtradeFile::PathsOf(kind, path)) {}
  ~Unfinished() {
    for (const std::string& each : now_) DeleteQuietly(each);
  }
  Unfinished(const Unfinished&) = delete;
  Unfinished& operator=(const Unfinished&) = delete;

  /// The configuration last, so that nobody meets one without its samples.
  void Finish() {
    for (std::size_t i = now_.size(); i-- > 0;) files_.Rename(now_[i], then_[i]);
  }

  const std::string Path;

 private:
  void DeleteQuietly(const std::string& path) {
    try {
      if (files_.FileExists(path)) files_.DeleteFile(path);
    } catch (const platform::Failure&) {
      // It stays, and the failure that brought it here is told.
    }
  }

  platform::FileSystem& files_;
  std::vector<std::string> now_;
  std::vector<std::string> then_;
};

}  // namespace

std::optional<RecordedUnit> CurrentUnit(const std::string& name) {
  return Find({{"A", 1e-3}, {"mA", 1}}, name);
}

std::optional<RecordedUnit> VoltageUnit(const std::string& name) {
  return Find({{"kV", 1e-5}, {"V", 1e-2}, {"mV", 10}}, name);
}

Converted Convert(platform::FileSystem& files, const std::string& recording,
                  const Conversion& conversion, const std::string& path) {
  Survey survey = LookThrough(files, recording);
  survey.Round = conversion.Round.value_or(survey.Round);
  const ComtradeHead head = HeadOf(conversion, survey);
  Unfinished unfinished(files, conversion.Files, path);
  Converted converted;
  {
    ComtradeFile file(files, head, conversion.Files, unfinished.Path);
    converted = Write(files, recording, head, survey.Round, file);
  }
  unfinished.Finish();
  return converted;
}

}  // namespace console
