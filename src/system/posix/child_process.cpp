#include "system/posix/child_process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "system/process.h"

namespace host {

namespace {

/// Leads the standard streams nowhere.
class SilentStreams {
 public:
  SilentStreams() {
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  }
  SilentStreams(const SilentStreams&) = delete;
  SilentStreams& operator=(const SilentStreams&) = delete;
  ~SilentStreams() { posix_spawn_file_actions_destroy(&actions_); }

  const posix_spawn_file_actions_t* Actions() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

}  // namespace

std::optional<ChildProcess> ChildProcess::Start(const std::string& program,
                                                const std::vector<std::string>& arguments) {
  std::vector<char*> words;
  words.push_back(const_cast<char*>(program.c_str()));
  for (const std::string& argument : arguments) {
    words.push_back(const_cast<char*>(argument.c_str()));
  }
  words.push_back(nullptr);
  const SilentStreams streams;
  KeepDescriptorsFromChildren();
  pid_t id = 0;
  const int error =
      ::posix_spawnp(&id, program.c_str(), streams.Actions(), nullptr, words.data(), environ);
  return error == 0 ? std::optional(ChildProcess(id)) : std::nullopt;
}

std::optional<int> ChildProcess::ExitCode() const {
  int status = 0;
  const pid_t ended = ::waitpid(id_, &status, WNOHANG);
  if (ended == 0) return std::nullopt;
  return ended == id_ && WIFEXITED(status) ? WEXITSTATUS(status) : Killed;
}

}  // namespace host
