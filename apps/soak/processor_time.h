#pragma once

#include <sys/resource.h>

/// Processor time that this process has taken, in ms.
inline double ProcessorMs() {
  rusage used{};
  getrusage(RUSAGE_SELF, &used);
  const auto ms = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
  };
  return ms(used.ru_utime) + ms(used.ru_stime);
}
