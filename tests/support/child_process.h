#pragma once

/// Programs that a test starts. None of them outlives the test program, however that ends.

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace quindle::testing {

/// How a program has ended and what it has printed.
struct ProgramResult {
  int exit_status = -1;  ///< Its exit status; 128 + the signal's number when a signal ended it.
  std::string out;       ///< Everything written to standard output.
  std::string err;       ///< Everything written to standard error.
};

/// A running program. Its destructor ends and reaps it.
class ChildProcess {
 public:
  /// Starts `command` (looked up in PATH) in this process's environment and working directory.
  /// Throws std::runtime_error, naming the program, when it cannot be started. A descriptor
  /// `inherited` (or -1) stays open in the program under the same number.
  explicit ChildProcess(const std::vector<std::string>& command, int inherited = -1);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  /// True until the program has ended.
  bool IsRunning();

  /// Waits for the program's end; empty when it still runs after `timeout`.
  std::optional<ProgramResult> WaitForExit(std::chrono::milliseconds timeout);

  /// What the program has written so far.
  [[nodiscard]] ProgramResult Output() const;

  /// Asks the program to end, insists after two seconds, and reaps it.
  void Stop();

  /// The process id; meaningful while the program runs.
  [[nodiscard]] pid_t Id() const { return id_; }

 private:
  std::string name_;
  pid_t id_ = -1;
  int out_ = -1;
  int err_ = -1;
  std::optional<int> exit_status_;
};

/// Runs a program to its end. Throws std::runtime_error when it cannot be started or has not ended
/// after `timeout`.
ProgramResult RunProgram(const std::vector<std::string>& command,
                         std::chrono::milliseconds timeout = std::chrono::seconds(20));

}  // namespace quindle::testing
