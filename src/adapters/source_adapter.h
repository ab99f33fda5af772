#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "adapters/first_frames.h"
#include "adapters/frame_source.h"
#include "platform/clock.h"
#include "platform/services/capture_object.h"

namespace adapters {

/// An entry of the adapter list: a frame source with its title, and the settings that it collects
/// by name until the filter readies the source. The clock times the gathering of its first frames.
class SourceAdapter : public platform::CaptureAdapter {
 public:
  SourceAdapter(std::string description, bool isGood, std::unique_ptr<FrameSource> source,
                const platform::Clock& clock);

  bool IsGood() const override { return isGood_; }
  std::string Description() const override { return description_; }
  void Set(std::string_view property, const Value& value) override;

  FirstFrames& Source() { return source_; }

 private:
  std::string description_;
  bool isGood_;
  FirstFrames source_;
  SourceSettings settings_;
};

}  // namespace adapters
