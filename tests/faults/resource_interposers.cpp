#include "faults/resource_interposers.h"

#include <dirent.h>
#include <dlfcn.h>
#include <execinfo.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <new>

#include "support/real_function.h"

namespace quindle::testing {
namespace {

long g_descriptors = 0;

bool g_armed = false;
FaultKind g_kind = FaultKind::Allocation;
long g_failing = 0;
long g_calls = 0;
long g_spared = 0;

// True for the call that is to fail.
bool IsHit(FaultKind kind) {
  return g_armed && g_kind == kind && ++g_calls == g_failing;
}

bool FileSystemCallFails() {
  if (!IsHit(FaultKind::FileSystem)) {
    return false;
  }
  errno = EIO;
  return true;
}

DIR* Counted(DIR* folder) {
  g_descriptors += folder != nullptr ? 1 : 0;
  return folder;
}

// The standard library here reads a directory's next entry in a function that is noexcept and
// allocates: an exception in there ends the process, whoever calls it and however.
bool IsInDirectoryIterator() {
  void* frames[64];
  const int count = backtrace(frames, 64);
  for (int i = 0; i < count; ++i) {
    Dl_info info{};
    if (dladdr(frames[i], &info) != 0 && info.dli_sname != nullptr &&
        std::strstr(info.dli_sname, "18directory_iterator") != nullptr &&
        std::strstr(info.dli_fname, "libstdc++") != nullptr) {
      return true;
    }
  }
  return false;
}

void* Allocate(std::size_t size) {
  if (IsHit(FaultKind::Allocation)) {
    if (!IsInDirectoryIterator()) {
      throw std::bad_alloc();
    }
    ++g_spared;
  }
  void* memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  return memory;
}

}  // namespace

long OpenDescriptors() {
  return g_descriptors;
}

void ArmFault(FaultKind kind, long nth) {
  g_kind = kind;
  g_failing = nth;
  g_calls = 0;
  g_armed = true;
}

long DisarmFault() {
  g_armed = false;
  return g_calls;
}

long SparedAllocations() {
  return g_spared;
}

}  // namespace quindle::testing

using namespace quindle::testing;  // NOLINT(google-build-using-namespace)

// --- Allocation ----------------------------------------------------------------------------------

void* operator new(std::size_t size) {
  return Allocate(size);
}
void* operator new[](std::size_t size) {
  return Allocate(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

extern "C" {

// --- Files ---------------------------------------------------------------------------------------

int stat(const char* path, struct stat* status) {
  static auto* const real = RealFunction<decltype(stat)>("stat");
  return FileSystemCallFails() ? -1 : real(path, status);
}

int lstat(const char* path, struct stat* status) {
  static auto* const real = RealFunction<decltype(lstat)>("lstat");
  return FileSystemCallFails() ? -1 : real(path, status);
}

int fstat(int file, struct stat* status) {
  static auto* const real = RealFunction<decltype(fstat)>("fstat");
  return FileSystemCallFails() ? -1 : real(file, status);
}

int fstatat(int folder, const char* path, struct stat* status, int flags) {
  static auto* const real = RealFunction<decltype(fstatat)>("fstatat");
  return FileSystemCallFails() ? -1 : real(folder, path, status, flags);
}

DIR* opendir(const char* path) {
  static auto* const real = RealFunction<decltype(opendir)>("opendir");
  return FileSystemCallFails() ? nullptr : Counted(real(path));
}

DIR* fdopendir(int file) {
  static auto* const real = RealFunction<decltype(fdopendir)>("fdopendir");
  // The descriptor turns into the stream that closedir closes.
  return FileSystemCallFails() ? nullptr : real(file);
}

struct dirent* readdir(DIR* folder) {
  static auto* const real = RealFunction<decltype(readdir)>("readdir");
  return FileSystemCallFails() ? nullptr : real(folder);
}

int closedir(DIR* folder) {
  static auto* const real = RealFunction<decltype(closedir)>("closedir");
  --g_descriptors;
  return real(folder);
}

int open(const char* path, int flags, ...) {
  static auto* const real = RealFunction<int(const char*, int, mode_t)>("open");
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  if (FileSystemCallFails()) {
    return -1;
  }
  const int file = real(path, flags, mode);
  g_descriptors += file >= 0 ? 1 : 0;
  return file;
}

int openat(int folder, const char* path, int flags, ...) {
  static auto* const real = RealFunction<int(int, const char*, int, mode_t)>("openat");
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  if (FileSystemCallFails()) {
    return -1;
  }
  const int file = real(folder, path, flags, mode);
  g_descriptors += file >= 0 ? 1 : 0;
  return file;
}

ssize_t read(int file, void* bytes, size_t size) {
  static auto* const real = RealFunction<decltype(read)>("read");
  return FileSystemCallFails() ? -1 : real(file, bytes, size);
}

int close(int file) {
  static auto* const real = RealFunction<decltype(close)>("close");
  --g_descriptors;
  return real(file);
}

char* getcwd(char* buffer, size_t size) {
  static auto* const real = RealFunction<decltype(getcwd)>("getcwd");
  return FileSystemCallFails() ? nullptr : real(buffer, size);
}

}  // extern "C"
