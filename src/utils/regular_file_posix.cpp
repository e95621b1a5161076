#include "utils/regular_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>

namespace quindle::utils {
namespace {

// Sole owner of a file descriptor; negative when the file could not be opened.
class FileDescriptor {
 public:
  explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  FileDescriptor(FileDescriptor&&) = delete;
  FileDescriptor& operator=(FileDescriptor&&) = delete;
  ~FileDescriptor() {
    if (descriptor_ >= 0) {
      close(descriptor_);
    }
  }
  [[nodiscard]] int get() const { return descriptor_; }

 private:
  int descriptor_;
};

// A FIFO without a writer would block open() for ever, hence O_NONBLOCK.
FileDescriptor OpenForReading(const char* path) {
  int descriptor = -1;
  do {
    descriptor = open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  } while (descriptor < 0 && errno == EINTR);
  return FileDescriptor(descriptor);
}

// Reads on whatever size the file reports: some system files report none, others grow meanwhile.
bool ReadToEnd(const FileDescriptor& file, std::string& bytes) {
  std::array<char, kChunkBytes> chunk{};
  for (;;) {
    const ssize_t count = read(file.get(), chunk.data(), chunk.size());
    if (count == 0) {
      return true;
    }
    if (count < 0 && errno == EINTR) {
      continue;
    }
    if (count < 0 || static_cast<std::size_t>(count) > kMaxTextFileBytes - bytes.size()) {
      return false;
    }
    bytes.append(chunk.data(), static_cast<std::size_t>(count));
  }
}

}  // namespace

ReadOutcome read_regular_file(const std::filesystem::path& path, std::string& bytes) {
  // A name cut at a NUL byte would be another file's.
  if (path.native().find('\0') != std::string::npos) {
    return ReadOutcome::CannotOpen;
  }
  // Opening a device can have effects of its own, so the kind is looked at before; and once more
  // afterwards, because the name may lead to another file by then.
  struct stat status {};
  if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
    return ReadOutcome::CannotOpen;
  }
  // fstat() fails where open() did.
  const FileDescriptor file = OpenForReading(path.c_str());
  if (fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
    return ReadOutcome::CannotOpen;
  }
  if (status.st_size > static_cast<off_t>(kMaxTextFileBytes)) {
    return ReadOutcome::CannotRead;
  }
  bytes.reserve(static_cast<std::size_t>(status.st_size));
  return ReadToEnd(file, bytes) ? ReadOutcome::Done : ReadOutcome::CannotRead;
}

}  // namespace quindle::utils
