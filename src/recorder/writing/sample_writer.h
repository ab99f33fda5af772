#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "base/plug.h"
#include "capture/consumers.h"
#include "forms/recorder_controls.h"
#include "recorder/writing/sample_formats.h"
#include "recorder/writing/writing_context.h"

namespace packetroutines {

/// What the writer tells of each ring.
class RingWitness {
 public:
  virtual ~RingWitness() = default;
  /// A ring is about to be written.
  virtual void RingBegins() = 0;
  /// The ring of a stream, 0 or 1, was written, or could not be. `failure` is the full disk that
  /// ends the recording; whatever else kept it from the disk is the report's.
  virtual void RingDone(std::size_t stream, const std::string& failure) = 0;
};

/// Moves a full ring to disk, within the packet event that filled it. A full disk ends the
/// recording; whatever else fails costs the ring and is told on the view alone.
class SampleWriter : public RecordConsumer {
 public:
  SampleWriter(const WritingContext& context, const SampleFormats& formats,
               forms::RecorderControls& recorder)
      : context_(context), formats_(formats), recorder_(recorder) {}

  /// The ring of stream 0 or 1 is full. 7 has the next recording count from 0, and nothing else.
  void WriteRecordBlock(std::int16_t selector) override;

  static constexpr std::int16_t RewindText = 7;

  platform::Plug<RingWitness> Witness;

 private:
  void Write(std::size_t stream);

  WritingContext context_;
  const SampleFormats& formats_;
  forms::RecorderControls& recorder_;
};

}  // namespace packetroutines
