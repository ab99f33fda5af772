#include "platform/loop/running_program.h"

#include <utility>

#include "platform/loop/program_ended.h"

namespace platform {

RunningProgram::RunningProgram(std::function<void()> flush, Leave leave)
    : flush_(std::move(flush)), leave_(std::move(leave)) {}

void RunningProgram::EndWith(int exitCode) {
  flush_();
  leave_(exitCode);
  throw ProgramEnded();
}

}  // namespace platform
