#pragma once

// What a user meets under a window manager, tried with the demo program.

#include <string>
#include <vector>

namespace quindle::demo {

// One thing that was tried.
struct WindowManagerCheck {
  std::string name;     // "click on the parent keeps the focus"
  std::string outcome;  // "yes", "NO", or "-" where the window manager has no such thing.
  std::string why;      // What was missed, for a "NO".
};

// Starts a display with this window manager (see testing::WindowManager) and the demo program, and
// tries one thing after the other. Throws std::runtime_error when they cannot be started.
std::vector<WindowManagerCheck> RunWindowManagerChecks(
    const std::vector<std::string>& window_manager);

}  // namespace quindle::demo
