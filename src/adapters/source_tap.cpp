#include "adapters/source_tap.h"

#include <utility>

namespace adapters {

namespace {

/// Sampled values without a tag, and behind one or two. On the wire the outer tag stands beside the
/// frame, so that the first term meets what has one.
constexpr const char* SampledValues = "ether proto 0x88ba or ether proto 0x8100";

}  // namespace

SourceTap::SourceTap(std::unique_ptr<FrameSource> source, const platform::Clock& clock)
    : source_(std::move(source)), clock_(clock) {
  source_->Prepare({.Promiscuous = true, .Filter = SampledValues, .InHeaps = true});
  source_->Start();
}

std::optional<platform::CapturedFrame> SourceTap::Next() {
  return source_->Next();
}

}  // namespace adapters
