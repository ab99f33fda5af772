#include "console/commands/instrument_options.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "console/commands/number_within.h"

namespace console {

namespace {

constexpr std::array<std::string_view, 2> Currents = {"A", "mA"};
constexpr std::array<std::string_view, 3> Voltages = {"kV", "V", "mV"};
/// As many as a block may have.
constexpr std::int32_t MostSamplings = 800'000;

template <std::size_t N>
std::int16_t PlaceOf(const std::array<std::string_view, N>& units, const std::string& unit) {
  return static_cast<std::int16_t>(std::find(units.begin(), units.end(), unit) - units.begin());
}

template <std::size_t N>
CLI::IsMember OneOf(const std::array<std::string_view, N>& units) {
  return CLI::IsMember(std::vector<std::string>(units.begin(), units.end()));
}

}  // namespace

void InstrumentOptions::Declare(CLI::App& command, std::size_t mostStations,
                                const std::string& secondsHelp) {
  command.add_option("ADAPTER", adapter_, "what 'vornik-cli adapters' lists, or a capture file")
      ->required();
  command
      .add_option("--station", stations_,
                  mostStations > 1 ? "the ID of a station; a second one may follow"
                                   : "the ID of the station")
      ->required()
      ->expected(1)
      ->take_all()
      ->check([](const std::string& id) {
        return std::string(id.empty() ? "the ID of a station is not empty" : "");
      });
  command.add_option("--seconds", Seconds, secondsHelp)->check(SomeSeconds());
  command.add_flag("--fast", fast_, "read a capture file as fast as it can be read");
  command.add_option("--filter", filter_,
                     "what the capture filter has behind 'ether proto 0x88ba'");
  command.add_option("--frequency", frequency_, "of the mains, in Hz; 50 unless told")
      ->check(MainsFrequency());
  command.add_option("--samplings", samplings_, "samples of a block; 400 unless told")
      ->check(CLI::Range(1, MostSamplings));
  command.add_option("--current", current_, "unit of the currents: A or mA")
      ->check(OneOf(Currents));
  command.add_option("--voltage", voltage_, "unit of the voltages: kV, V or mV")
      ->check(OneOf(Voltages));
  command.final_callback([this, mostStations] {
    if (stations_.size() > mostStations) {
      throw CLI::ValidationError("--station", "there are too many stations");
    }
  });
}

Setup InstrumentOptions::ToSetup() const {
  Setup setup;
  setup.Adapter = adapter_;
  setup.Pace = fast_ ? platform::TapPace::AsFastAsRead : platform::TapPace::AsRecorded;
  setup.Stations = stations_;
  setup.Filter = filter_;
  setup.Frequency = frequency_;
  setup.UnitCurrent = PlaceOf(Currents, current_);
  setup.UnitVoltage = PlaceOf(Voltages, voltage_);
  setup.Samplings = samplings_;
  return setup;
}

}  // namespace console
