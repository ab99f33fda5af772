#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "adapters/channel_layer.h"
#include "adapters/files/file_clock.h"
#include "adapters/files/file_source.h"
#include "platform/services/named_capture.h"

namespace adapters {

/// A capture library whose list has one source alone, for one program.
class OneSourceLayer : public ChannelLayer {
 public:
  OneSourceLayer(std::string title, std::unique_ptr<FrameSource> source,
                 const platform::Clock& clock)
      : title_(std::move(title)), source_(std::move(source)), clock_(clock) {}

  std::string Advice() const override { return {}; }

 private:
  Entries NewEntries() override;

  std::string title_;
  /// Until the capture object takes it over.
  std::unique_ptr<FrameSource> source_;
  const platform::Clock& clock_;
};

/// A source that comes by the computer's clock.
class LiveCapture : public platform::NamedCapture {
 public:
  /// Fails where the source cannot be prepared.
  LiveCapture(std::string title, std::unique_ptr<FrameSource> source, const platform::Clock& clock);

  platform::CaptureLayer& Layer() override { return layer_; }
  platform::FrameDelivery& Frames() override { return layer_; }
  const platform::Clock& Time() const override { return clock_; }
  bool Pass(std::chrono::nanoseconds) override { return false; }
  bool Ends() const override { return false; }
  bool Ended() const override { return false; }
  std::string Trouble() const override { return {}; }

 private:
  const platform::Clock& clock_;
  OneSourceLayer layer_;
};

/// A capture file that is played once, at its pace or as fast as it is read.
class FileCapture : public platform::NamedCapture {
 public:
  /// Fails where the file cannot be played.
  FileCapture(const std::filesystem::path& file, const platform::Clock& clock,
              platform::TapPace pace);

  platform::CaptureLayer& Layer() override { return layer_; }
  platform::FrameDelivery& Frames() override { return layer_; }
  const platform::Clock& Time() const override { return time_; }
  bool Pass(std::chrono::nanoseconds time) override;
  bool Ends() const override { return true; }
  bool Ended() const override { return source_->Ended(); }
  std::string Trouble() const override { return source_->Damage(); }

 private:
  /// Where the file is read as fast as it can be.
  std::optional<FileClock> own_;
  const platform::Clock& time_;
  /// The program's capture object owns it in the end, and is there as long as this.
  FileSource* source_ = nullptr;
  OneSourceLayer layer_;
};

}  // namespace adapters
