#pragma once

#include <cstdint>

#include "platform/failure.h"

namespace support {

/// The number of the failure that `action` raises; 0 where it raises none.
template <typename Action>
std::int32_t FailureOf(Action action) {
  try {
    action();
  } catch (const platform::Failure& failure) {
    return failure.Number();
  }
  return 0;
}

}  // namespace support
