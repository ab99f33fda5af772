#include "adapters/source_adapter.h"

#include <cstdint>
#include <utility>

#include "base/failure.h"

namespace adapters {

namespace named = platform::adapter_property;
using platform::Failure;

namespace {

template <typename T>
const T& As(const platform::CaptureAdapter::Value& value) {
  const T* held = std::get_if<T>(&value);
  if (held == nullptr) throw Failure(platform::failure::TypeMismatch);
  return *held;
}

void Demand(bool valid) {
  if (!valid) throw Failure(platform::failure::InvalidPropertyValue);
}

}  // namespace

SourceAdapter::SourceAdapter(std::string description, bool isGood,
                             std::unique_ptr<FrameSource> source, const platform::Clock& clock)
    : description_(std::move(description)), isGood_(isGood), source_(std::move(source), clock) {}

void SourceAdapter::Set(std::string_view property, const Value& value) {
  if (property == named::BufferSize) {
    const auto bytes = As<std::int32_t>(value);
    Demand(bytes > 0);
    settings_.BufferBytes = bytes;
  } else if (property == named::BytesToGather) {
    // Every source hands over single frames at once; gathering bytes of them is not offered.
    Demand(As<std::int32_t>(value) == 0);
  } else if (property == named::HardwareFilter) {
    settings_.Promiscuous = As<std::int32_t>(value) == platform::PromiscuousReception;
  } else if (property == named::Mode) {
    Demand(As<std::int32_t>(value) == platform::CaptureMode);
  } else if (property == named::Filter) {
    settings_.Filter = As<std::string>(value);
    source_.Prepare(settings_);
  } else {
    Demand(false);
  }
}

}  // namespace adapters
