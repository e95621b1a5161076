#include "new_file.h"

#include <windows.h>
#include <winioctl.h>

#include <algorithm>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "file_paths.h"

namespace quindle::demo {
namespace {

const auto kClosed = reinterpret_cast<std::intptr_t>(INVALID_HANDLE_VALUE);

HANDLE HandleOf(std::intptr_t handle) {
  return reinterpret_cast<HANDLE>(handle);
}

[[noreturn]] void ThrowFailure(const std::string& path, DWORD error) {
  if (error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS) {
    throw std::runtime_error(path + " exists already; it was left as it is");
  }
  throw std::runtime_error("cannot write " + path + ": " +
                           std::system_category().message(static_cast<int>(error)));
}

// With a hole in it where nothing has been written; a file system that has none writes zeros.
void MakeSparse(HANDLE file) {
  DWORD returned = 0;
  DeviceIoControl(file, FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &returned, nullptr);
}

std::intptr_t MakeFile(const std::string& path) {
  const HANDLE file = CreateFileW(PathOf(path).c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ,
                                  nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    ThrowFailure(path, GetLastError());
  }
  MakeSparse(file);
  return reinterpret_cast<std::intptr_t>(file);
}

}  // namespace

NewFile::NewFile(std::string path) : path_(std::move(path)), handle_(MakeFile(path_)) {}

NewFile::~NewFile() {
  if (handle_ != kClosed) {
    CloseHandle(HandleOf(handle_));
    DeleteFileW(PathOf(path_).c_str());
  }
}

void NewFile::Write(std::span<const std::uint8_t> bytes) {
  constexpr std::size_t kMostAtOnce = 1U << 30U;
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto count = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
    if (WriteFile(HandleOf(handle_), bytes.data(), count, &written, nullptr) == 0) {
      ThrowFailure(path_, GetLastError());
    }
    bytes = bytes.subspan(written);
  }
}

void NewFile::Resize(std::uint64_t size) {
  FILE_END_OF_FILE_INFO end{};
  end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
  if (SetFileInformationByHandle(HandleOf(handle_), FileEndOfFileInfo, &end, sizeof end) == 0) {
    ThrowFailure(path_, GetLastError());
  }
}

void NewFile::Keep() {
  if (FlushFileBuffers(HandleOf(handle_)) == 0) {
    ThrowFailure(path_, GetLastError());
  }
  if (CloseHandle(HandleOf(std::exchange(handle_, kClosed))) == 0) {
    const DWORD close_error = GetLastError();
    DeleteFileW(PathOf(path_).c_str());
    ThrowFailure(path_, close_error);
  }
}

}  // namespace quindle::demo
