#pragma once

/// Waiting for something that another program or thread does.

#include <chrono>
#include <functional>
#include <thread>

namespace quindle::testing {

/// Asks `condition` again and again, every few milliseconds, until it holds. False when it still
/// does not hold after `timeout`.
inline bool WaitUntil(const std::function<bool()>& condition,
                      std::chrono::milliseconds timeout = std::chrono::seconds(10)) {
  constexpr std::chrono::milliseconds kInterval{5};
  const auto deadline = std::chrono::steady_clock::now() + timeout;
  while (!condition()) {
    if (std::chrono::steady_clock::now() >= deadline) {
      return false;
    }
    std::this_thread::sleep_for(kInterval);
  }
  return true;
}

}  // namespace quindle::testing
