#pragma once

// Private. Names of files as the calls of Windows want them, and the handles that those give.

#include <windows.h>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace quindle::utils {

template <BOOL(WINAPI* close)(HANDLE)>
struct CloseWindowsHandle {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const noexcept {
    if (handle != INVALID_HANDLE_VALUE) {
      close(handle);
    }
  }
};

// Sole owners; INVALID_HANDLE_VALUE when nothing could be opened.
using OwnedWindowsFile = std::unique_ptr<HANDLE, CloseWindowsHandle<&CloseHandle>>;
using OwnedWindowsSearch = std::unique_ptr<HANDLE, CloseWindowsHandle<&FindClose>>;

// The absolute path that the system makes of `path`; empty when it makes none. It is the one to
// know which names are devices: those begin with "\\.\".
inline std::wstring absolute_windows_path(const std::filesystem::path& path) {
  // What follows a NUL would be cut off, and another file meant.
  if (path.native().find(L'\0') != std::wstring::npos) {
    return {};
  }
  std::wstring absolute;
  DWORD length = MAX_PATH;
  // Another thread may change the working directory between two calls.
  while (length > absolute.size()) {
    absolute.resize(length);
    length = GetFullPathNameW(path.c_str(), length, absolute.data(), nullptr);
  }
  absolute.resize(length);
  return absolute;
}

inline bool is_windows_device(std::wstring_view absolute) {
  return absolute.starts_with(LR"(\\.\)");
}

// The same path in the form that may have more than MAX_PATH units; a shorter one is left alone.
inline std::wstring unlimited_windows_path(std::wstring absolute) {
  constexpr std::size_t kRoomForAName = 12;  // A folder's path must leave it free.
  if (absolute.size() < MAX_PATH - kRoomForAName || absolute.starts_with(LR"(\\?\)") ||
      is_windows_device(absolute)) {
    return absolute;
  }
  if (absolute.starts_with(LR"(\\)")) {
    return LR"(\\?\UNC)" + absolute.substr(1);
  }
  return LR"(\\?\)" + absolute;
}

}  // namespace quindle::utils
