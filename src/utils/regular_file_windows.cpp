#include "utils/regular_file.h"

#include <windows.h>

#include <array>

#include "utils/windows_files.h"

namespace quindle::utils {
namespace {

// Others may go on writing to the file, rename and delete it; who does not share it cannot be read.
OwnedWindowsFile OpenForReading(const std::wstring& path) {
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  return OwnedWindowsFile(CreateFileW(path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
}

// Reads on whatever size the file reports: it may grow meanwhile.
bool ReadToEnd(const OwnedWindowsFile& file, std::string& bytes) {
  std::array<char, kChunkBytes> chunk{};
  for (;;) {
    DWORD count = 0;
    if (ReadFile(file.get(), chunk.data(), static_cast<DWORD>(chunk.size()), &count, nullptr) ==
        0) {
      return false;
    }
    if (count == 0) {
      return true;
    }
    if (count > kMaxTextFileBytes - bytes.size()) {
      return false;
    }
    bytes.append(chunk.data(), count);
  }
}

}  // namespace

ReadOutcome read_regular_file(const std::filesystem::path& path, std::string& bytes) {
  const std::wstring absolute = absolute_windows_path(path);
  // Opening a device can have effects of its own, and wait, so the name is looked at before.
  if (absolute.empty() || is_windows_device(absolute)) {
    return ReadOutcome::CannotOpen;
  }
  const std::wstring name = unlimited_windows_path(absolute);
  const DWORD attributes = GetFileAttributesW(name.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    return ReadOutcome::CannotOpen;
  }
  const OwnedWindowsFile file = OpenForReading(name);
  if (file.get() == INVALID_HANDLE_VALUE || GetFileType(file.get()) != FILE_TYPE_DISK) {
    return ReadOutcome::CannotOpen;
  }
  LARGE_INTEGER size{};
  if (GetFileSizeEx(file.get(), &size) == 0 ||
      size.QuadPart > static_cast<LONGLONG>(kMaxTextFileBytes)) {
    return ReadOutcome::CannotRead;
  }
  bytes.reserve(static_cast<std::size_t>(size.QuadPart));
  return ReadToEnd(file, bytes) ? ReadOutcome::Done : ReadOutcome::CannotRead;
}

}  // namespace quindle::utils
