#include "console/program/instrument.h"

#include <utility>

#include "forms/window_controls.h"

namespace console {

void TellWhatIsSaid(platform::QuietLine& line, NoteLines& notes, const platform::Clock& clock,
                    std::function<bool()> urgent) {
  static constexpr std::chrono::minutes Pause{1};
  std::optional<std::chrono::nanoseconds> told;
  line.Caption.Observe([&line, &notes, &clock, urgent = std::move(urgent), told]() mutable {
    const std::chrono::nanoseconds now = clock.Now();
    if (line.Caption.Get().empty() || (!urgent() && told && now - *told < Pause)) return;
    told = now;
    notes.Tell(line.Caption);
  });
}

Instrument::Instrument(const Machine& machine, const Setup& setup, NoteLines& notes)
    : machine_(machine),
      capture_(machine.Captures.OpenCapture(setup.Adapter, setup.Pace)),
      dialogs_([&notes](const std::string& line) { notes.Tell(line); }),
      program_([this] { app_->CloseFiles(); }, [this](int code) { exitCode_ = code; }),
      guard_(dialogs_, program_),
      queue_(capture_->Time(), guard_, [this](std::chrono::nanoseconds time) { Wait(time); }),
      loop_({capture_->Time(), capture_->Frames(), guard_, forTimers_, forFrames_}),
      store_(TextsOf(setup)),
      calendar_(machine.Calendar, capture_->Time()),
      app_(std::make_unique<formroutines::Application>(
          formroutines::Platform{.Timers = loop_.Timers,
                                 .Events = queue_,
                                 .Dialogs = dialogs_,
                                 .Program = program_,
                                 .Store = store_,
                                 .Capture = capture_->Layer(),
                                 .Code = machine.Code,
                                 .Numbers = machine.Numbers,
                                 .Files = machine.Files,
                                 .Links = links_,
                                 .Calendar = calendar_,
                                 .Sleep = machine.Awake,
                                 .Sync = machine.Sync})) {
  Do([&] {
    app_->Load();
    app_->Windows.Main.Text1[forms::setup_field::Samplings].Text =
        platform::NumberText::General(setup.Samplings);
  });
}

Instrument::~Instrument() {
  Do([this] { app_->EndSession(); });
}

MemoryStore::Texts Instrument::TextsOf(const Setup& setup) {
  const auto number = [](std::int32_t value) { return std::to_string(value); };
  return {{"Path of stored data", setup.Folder},
          {"Used Networkadapter", "1"},
          {"Unit Resolution", number(setup.Resolution)},
          {"UnitCurrent", number(setup.UnitCurrent)},
          {"UnitVoltage", number(setup.UnitVoltage)},
          {"Internal Delay", number(setup.Interval)},
          {"Filterstring", setup.Filter},
          {"FilterContentString", setup.Stations.front()},
          {"FilterContentString2", setup.Stations.size() > 1 ? setup.Stations[1] : ""},
          {"Frequency", setup.Frequency},
          {"ACDC", "True"},
          {config::ActiveTabKey, number(setup.Tab)},
          {"FileFormat", setup.Format}};
}

void Instrument::Wait(std::chrono::nanoseconds time) {
  if (!capture_->Pass(time)) machine_.Sleep(time);
}

void Instrument::RunUntil(const std::function<bool()>& done) {
  queue_.RunUntil([&] { return done() || capture_->Ended() || machine_.EndAsked(); });
}

}  // namespace console
