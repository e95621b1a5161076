#include "console.h"

#include <windows.h>

#include <cstdio>

namespace quindle::demo {
namespace {

// A pipe or a file, which the C library has found by itself.
bool IsConnected(DWORD stream) {
  const HANDLE handle = GetStdHandle(stream);
  return handle != nullptr && handle != INVALID_HANDLE_VALUE &&
         GetFileType(handle) != FILE_TYPE_UNKNOWN;
}

void OpenOnConsole(std::FILE* stream) {
  if (std::freopen("CONOUT$", "w", stream) != nullptr) {
    std::setvbuf(stream, nullptr, _IONBF, 0);
  }
}

}  // namespace

// The program is one without a console, so that none flashes up when it is started from a folder.
void JoinConsole() {
  const bool has_output = IsConnected(STD_OUTPUT_HANDLE);
  const bool has_errors = IsConnected(STD_ERROR_HANDLE);
  if ((has_output && has_errors) || AttachConsole(ATTACH_PARENT_PROCESS) == 0) {
    return;
  }
  if (!has_output) {
    OpenOnConsole(stdout);
  }
  if (!has_errors) {
    OpenOnConsole(stderr);
  }
}

}  // namespace quindle::demo
