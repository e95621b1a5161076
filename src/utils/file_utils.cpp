#include "utils/file_utils.h"

#include <array>
#include <cstddef>
#include <utility>

#if defined(_WIN32)
#include <fstream>
#include <system_error>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace quindle::utils {
namespace {

constexpr std::size_t kMaxTextFileBytes = std::size_t{64} * 1024 * 1024;
constexpr std::size_t kChunkBytes = std::size_t{64} * 1024;

enum class ReadOutcome { Done, CannotOpen, CannotRead };

#if defined(_WIN32)

ReadOutcome ReadRegularFile(const std::filesystem::path& path, std::string& bytes) {
  std::error_code status_error;
  if (!std::filesystem::is_regular_file(path, status_error)) {
    return ReadOutcome::CannotOpen;
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    return ReadOutcome::CannotOpen;
  }
  std::array<char, kChunkBytes> chunk{};
  do {
    file.read(chunk.data(), static_cast<std::streamsize>(chunk.size()));
    bytes.append(chunk.data(), static_cast<std::size_t>(file.gcount()));
  } while (file && bytes.size() <= kMaxTextFileBytes);
  return file.eof() && bytes.size() <= kMaxTextFileBytes ? ReadOutcome::Done
                                                         : ReadOutcome::CannotRead;
}

#else

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

ReadOutcome ReadRegularFile(const std::filesystem::path& path, std::string& bytes) {
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

#endif

}  // namespace

bool read_text_file(const std::filesystem::path& path, std::string& contents, std::string& error,
                    const char* openError, const char* readError) {
  std::string bytes;
  const ReadOutcome outcome = ReadRegularFile(path, bytes);
  if (outcome == ReadOutcome::Done) {
    contents = std::move(bytes);
    return true;
  }
  const char* wording = outcome == ReadOutcome::CannotOpen ? openError : readError;
  error = wording != nullptr ? wording : "";
  return false;
}

}  // namespace quindle::utils
