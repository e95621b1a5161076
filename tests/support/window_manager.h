#pragma once

/// Window managers for tests, each with settings of its own instead of the user's.

#include <memory>
#include <string>
#include <vector>

#include "support/child_process.h"
#include "support/temporary_directory.h"

namespace quindle::testing {

/// A window manager that manages the display that DISPLAY names, until this is destroyed.
class WindowManager {
 public:
  /// Starts it and waits until it manages windows. `command` is the name of a window manager that
  /// scripts/setup knows, or a program with its arguments. Throws std::runtime_error when it is not
  /// there or does not get to manage windows.
  explicit WindowManager(const std::vector<std::string>& command);
  ~WindowManager();
  WindowManager(const WindowManager&) = delete;
  WindowManager& operator=(const WindowManager&) = delete;

  /// The process, to be sent signals.
  [[nodiscard]] pid_t Id() const { return process_->Id(); }

 private:
  void WaitUntilItManages() const;

  TemporaryDirectory home_;
  std::unique_ptr<ChildProcess> process_;
};

}  // namespace quindle::testing
