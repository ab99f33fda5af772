#pragma once

#include <cstdint>

#include "base/failure.h"

namespace support {

/// The failure that `action` raises; one with the number 0 and no text where it raises none.
template <typename Action>
platform::Failure RaisedBy(Action action) {
  try {
    action();
  } catch (const platform::Failure& failure) {
    return failure;
  }
  return {0, {}};
}

/// The number of the failure that `action` raises; 0 where it raises none.
template <typename Action>
std::int32_t FailureOf(Action action) {
  return RaisedBy(action).Number();
}

}  // namespace support
