#pragma once

/// Counts how often a file is opened, by whomever.

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <filesystem>
#include <stdexcept>

namespace quindle::testing {

/// Counts from its construction on.
class OpenCounter {
 public:
  /// Watches `file`, which must exist; throws std::runtime_error when that fails.
  explicit OpenCounter(const std::filesystem::path& file)
      : inotify_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    // Equal events in a row are merged, so closing is watched as well: open, close, open, close.
    if (inotify_add_watch(inotify_, file.c_str(), IN_OPEN | IN_CLOSE) < 0) {
      throw std::runtime_error("cannot watch " + file.string());
    }
  }
  OpenCounter(const OpenCounter&) = delete;
  OpenCounter& operator=(const OpenCounter&) = delete;
  ~OpenCounter() { close(inotify_); }

  /// How often the file was opened, and closed again, since the last call.
  [[nodiscard]] int Take() const {
    std::array<char, 4096> events;
    const ssize_t bytes = read(inotify_, events.data(), events.size());
    return bytes < 0
               ? 0
               : static_cast<int>(static_cast<std::size_t>(bytes) / sizeof(inotify_event)) / 2;
  }

 private:
  int inotify_;
};

}  // namespace quindle::testing
