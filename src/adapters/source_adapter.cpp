#include "adapters/source_adapter.h"

#include <cstdint>
#include <utility>

#include "platform/failure.h"

namespace adapters {

using platform::Failure;

namespace {

/// The adapter class filter of the driver interface that stands for promiscuous reception.
constexpr std::int32_t PromiscuousFilter = 32;
constexpr std::int32_t CaptureMode = 1;

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
                             std::unique_ptr<FrameSource> source)
    : description_(std::move(description)), isGood_(isGood), source_(std::move(source)) {}

void SourceAdapter::Set(std::string_view property, const Value& value) {
  if (property == "BuffSize") {
    const auto bytes = As<std::int32_t>(value);
    Demand(bytes > 0);
    settings_.BufferBytes = bytes;
  } else if (property == "BuffMinToCopy") {
    // Every source hands over single frames at once; gathering them is not offered.
    Demand(As<std::int32_t>(value) == 0);
  } else if (property == "HWFilter") {
    settings_.Promiscuous = As<std::int32_t>(value) == PromiscuousFilter;
  } else if (property == "mode") {
    Demand(As<std::int32_t>(value) == CaptureMode);
  } else if (property == "BPFilter") {
    settings_.Filter = As<std::string>(value);
    source_->Prepare(settings_);
  } else {
    Demand(false);
  }
}

}  // namespace adapters
