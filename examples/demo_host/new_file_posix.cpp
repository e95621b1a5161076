#include "new_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <limits>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace quindle::demo {
namespace {

constexpr std::intptr_t kClosed = -1;

int Descriptor(std::intptr_t handle) {
  return static_cast<int>(handle);
}

[[noreturn]] void ThrowFailure(const std::string& path, int error) {
  if (error == EEXIST) {
    throw std::runtime_error(path + " exists already; it was left as it is");
  }
  throw std::runtime_error("cannot write " + path + ": " + std::generic_category().message(error));
}

// A file-size limit of the process ends it by default; with the signal ignored the call fails.
class IgnoreFileSizeSignal {
 public:
  IgnoreFileSizeSignal() : former_(std::signal(SIGXFSZ, SIG_IGN)) {}
  IgnoreFileSizeSignal(const IgnoreFileSizeSignal&) = delete;
  IgnoreFileSizeSignal& operator=(const IgnoreFileSizeSignal&) = delete;
  ~IgnoreFileSizeSignal() { std::signal(SIGXFSZ, former_); }

 private:
  void (*former_)(int);
};

int CreateFile(const std::string& path) {
  const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (descriptor < 0) {
    ThrowFailure(path, errno);
  }
  return descriptor;
}

}  // namespace

NewFile::NewFile(std::string path) : path_(std::move(path)), handle_(CreateFile(path_)) {}

NewFile::~NewFile() {
  if (handle_ != kClosed) {
    close(Descriptor(handle_));
    unlink(path_.c_str());
  }
}

void NewFile::Write(std::span<const std::uint8_t> bytes) {
  const IgnoreFileSizeSignal ignore;
  while (!bytes.empty()) {
    const ssize_t written = write(Descriptor(handle_), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) {
      continue;
    }
    if (written < 0) {
      ThrowFailure(path_, errno);
    }
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
}

void NewFile::Resize(std::uint64_t size) {
  const IgnoreFileSizeSignal ignore;
  if (size > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max())) {
    ThrowFailure(path_, EFBIG);
  }
  if (ftruncate(Descriptor(handle_), static_cast<off_t>(size)) != 0) {
    ThrowFailure(path_, errno);
  }
}

void NewFile::Keep() {
  // EINVAL: the file system has nothing to synchronise.
  if (fsync(Descriptor(handle_)) != 0 && errno != EINVAL) {
    ThrowFailure(path_, errno);
  }
  if (close(Descriptor(std::exchange(handle_, kClosed))) != 0) {
    const int close_error = errno;
    unlink(path_.c_str());
    ThrowFailure(path_, close_error);
  }
}

}  // namespace quindle::demo
