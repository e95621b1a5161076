#include "support/child_process.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <stdexcept>
#include <string>

#include "support/wait_until.h"

namespace quindle::testing {
namespace {

constexpr std::chrono::seconds kPatience{2};

// A file without a name: a program may write any amount to it, nobody has to read along.
int MakeOutputFile(const char* name) {
  const int file = memfd_create(name, MFD_CLOEXEC);
  if (file < 0) {
    throw std::runtime_error("cannot make a file for a program's output");
  }
  return file;
}

std::string ReadFromStart(int file) {
  std::string text;
  std::array<char, 4096> chunk{};
  off_t offset = 0;
  ssize_t count = 0;
  while ((count = pread(file, chunk.data(), chunk.size(), offset)) > 0) {
    text.append(chunk.data(), static_cast<std::size_t>(count));
    offset += count;
  }
  return text;
}

std::vector<char*> ArgumentPointers(std::vector<std::string>* command) {
  std::vector<char*> pointers;
  for (std::string& argument : *command) {
    pointers.push_back(argument.data());
  }
  pointers.push_back(nullptr);
  return pointers;
}

// Runs in the forked child, where only async-signal-safe calls are allowed: another thread may have
// held any lock at the fork.
[[noreturn]] void BecomeProgram(char* const* arguments, int out, int err, int inherited,
                                int error_pipe) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  dup2(out, STDOUT_FILENO);
  dup2(err, STDERR_FILENO);
  if (inherited >= 0) {
    fcntl(inherited, F_SETFD, 0);
  }
  execvp(arguments[0], arguments);
  const int error = errno;
  [[maybe_unused]] const ssize_t written = write(error_pipe, &error, sizeof(error));
  _exit(127);
}

int ToExitStatus(int status) {
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& command, int inherited)
    : name_(command.at(0)), out_(MakeOutputFile("stdout")), err_(MakeOutputFile("stderr")) {
  std::vector<std::string> copy = command;
  const std::vector<char*> arguments = ArgumentPointers(&copy);
  std::array<int, 2> error_pipe{};
  if (pipe2(error_pipe.data(), O_CLOEXEC) != 0) {
    throw std::runtime_error("cannot make a pipe");
  }
  id_ = fork();
  if (id_ == 0) {
    BecomeProgram(arguments.data(), out_, err_, inherited, error_pipe[1]);
  }
  close(error_pipe[1]);
  int error = id_ < 0 ? errno : 0;
  // The pipe closes by itself, with nothing in it, when the program has taken over.
  [[maybe_unused]] const ssize_t count = read(error_pipe[0], &error, sizeof(error));
  close(error_pipe[0]);
  if (error != 0) {
    Stop();
    close(out_);
    close(err_);
    throw std::runtime_error("cannot start \"" + name_ + "\": " + std::strerror(error) +
                             "; scripts/setup installs what the tests need");
  }
}

ChildProcess::~ChildProcess() {
  Stop();
  close(out_);
  close(err_);
}

bool ChildProcess::IsRunning() {
  if (exit_status_ || id_ <= 0) {
    return false;
  }
  int status = 0;
  if (waitpid(id_, &status, WNOHANG) == id_) {
    exit_status_ = ToExitStatus(status);
    return false;
  }
  return true;
}

std::optional<ProgramResult> ChildProcess::WaitForExit(std::chrono::milliseconds timeout) {
  if (!WaitUntil([this] { return !IsRunning(); }, timeout)) {
    return std::nullopt;
  }
  return Output();
}

ProgramResult ChildProcess::Output() const {
  return {exit_status_.value_or(-1), ReadFromStart(out_), ReadFromStart(err_)};
}

void ChildProcess::Stop() {
  if (!IsRunning()) {
    return;
  }
  kill(id_, SIGTERM);
  if (!WaitForExit(kPatience)) {
    kill(id_, SIGKILL);
    WaitForExit(kPatience);
  }
}

ProgramResult RunProgram(const std::vector<std::string>& command,
                         std::chrono::milliseconds timeout) {
  ChildProcess program(command);
  std::optional<ProgramResult> result = program.WaitForExit(timeout);
  if (!result) {
    throw std::runtime_error("\"" + command.at(0) + "\" does not come to an end");
  }
  return *result;
}

}  // namespace quindle::testing
