#include "desktop/services/qt_program.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace desktop {

QtProgram::QtProgram(std::function<void()> flush, Leave leave)
    : flush_(std::move(flush)), leave_(std::move(leave)) {}

void QtProgram::EndWith(int exitCode) {
  flush_();
  std::fflush(nullptr);
  if (leave_) leave_(exitCode);
  std::_Exit(exitCode);
}

}  // namespace desktop
