#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace fuzz {

/// What must hold whatever the input is; where it does not, the fuzzer keeps the input.
inline void Demand(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "This does not hold: %s\n", what);
  std::abort();
}

inline void Demand(bool holds, const std::string& what) {
  Demand(holds, what.c_str());
}

}  // namespace fuzz
