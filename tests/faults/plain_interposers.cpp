#include "faults/plain_interposers.h"

#include <SDL_ttf.h>
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

namespace quindle::testing {
namespace {

PlainCounts g_alive;
SDL_Window* g_windows[64] = {};
int g_window_count = 0;

bool g_armed = false;
FaultKind g_kind = FaultKind::Allocation;
long g_failing = 0;
long g_calls = 0;
long g_spared = 0;

bool g_pointed = false;
int g_pointer_x = 0;
int g_pointer_y = 0;
bool g_left_down = false;

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

template <typename Function>
Function* Real(const char* name) {
  void* address = dlsym(RTLD_NEXT, name);
  Function* function = nullptr;
  static_assert(sizeof(function) == sizeof(address));
  __builtin_memcpy(&function, &address, sizeof(function));
  return function;
}

template <typename Handle>
Handle* Counted(Handle* handle, long* count) {
  *count += handle != nullptr ? 1 : 0;
  return handle;
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

PlainCounts AliveNow() {
  return g_alive;
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

void PointAtNewestWindow(int x, int y, bool left_down) {
  g_pointed = true;
  g_pointer_x = x;
  g_pointer_y = y;
  g_left_down = left_down;
}

void ForgetPointer() {
  g_pointed = false;
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
  static auto* const real = Real<decltype(stat)>("stat");
  return FileSystemCallFails() ? -1 : real(path, status);
}

int lstat(const char* path, struct stat* status) {
  static auto* const real = Real<decltype(lstat)>("lstat");
  return FileSystemCallFails() ? -1 : real(path, status);
}

int fstat(int file, struct stat* status) {
  static auto* const real = Real<decltype(fstat)>("fstat");
  return FileSystemCallFails() ? -1 : real(file, status);
}

int fstatat(int folder, const char* path, struct stat* status, int flags) {
  static auto* const real = Real<decltype(fstatat)>("fstatat");
  return FileSystemCallFails() ? -1 : real(folder, path, status, flags);
}

DIR* opendir(const char* path) {
  static auto* const real = Real<decltype(opendir)>("opendir");
  return FileSystemCallFails() ? nullptr : Counted(real(path), &g_alive.descriptors);
}

DIR* fdopendir(int file) {
  static auto* const real = Real<decltype(fdopendir)>("fdopendir");
  // The descriptor turns into the stream that closedir closes.
  return FileSystemCallFails() ? nullptr : real(file);
}

struct dirent* readdir(DIR* folder) {
  static auto* const real = Real<decltype(readdir)>("readdir");
  return FileSystemCallFails() ? nullptr : real(folder);
}

int closedir(DIR* folder) {
  static auto* const real = Real<decltype(closedir)>("closedir");
  --g_alive.descriptors;
  return real(folder);
}

int open(const char* path, int flags, ...) {
  static auto* const real = Real<int(const char*, int, mode_t)>("open");
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  if (FileSystemCallFails()) {
    return -1;
  }
  const int file = real(path, flags, mode);
  g_alive.descriptors += file >= 0 ? 1 : 0;
  return file;
}

int openat(int folder, const char* path, int flags, ...) {
  static auto* const real = Real<int(int, const char*, int, mode_t)>("openat");
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  if (FileSystemCallFails()) {
    return -1;
  }
  const int file = real(folder, path, flags, mode);
  g_alive.descriptors += file >= 0 ? 1 : 0;
  return file;
}

ssize_t read(int file, void* bytes, size_t size) {
  static auto* const real = Real<decltype(read)>("read");
  return FileSystemCallFails() ? -1 : real(file, bytes, size);
}

int close(int file) {
  static auto* const real = Real<decltype(close)>("close");
  --g_alive.descriptors;
  return real(file);
}

char* getcwd(char* buffer, size_t size) {
  static auto* const real = Real<decltype(getcwd)>("getcwd");
  return FileSystemCallFails() ? nullptr : real(buffer, size);
}

// --- SDL -----------------------------------------------------------------------------------------

SDL_Window* SDL_CreateWindow(const char* title, int x, int y, int w, int h, Uint32 flags) {
  static auto* const real = Real<decltype(SDL_CreateWindow)>("SDL_CreateWindow");
  SDL_Window* window = Counted(real(title, x, y, w, h, flags), &g_alive.windows);
  if (window != nullptr) {
    g_windows[g_window_count++] = window;
  }
  return window;
}

void SDL_DestroyWindow(SDL_Window* window) {
  static auto* const real = Real<decltype(SDL_DestroyWindow)>("SDL_DestroyWindow");
  --g_alive.windows;
  --g_window_count;
  real(window);
}

SDL_Renderer* SDL_CreateRenderer(SDL_Window* window, int index, Uint32 flags) {
  static auto* const real = Real<decltype(SDL_CreateRenderer)>("SDL_CreateRenderer");
  return Counted(real(window, index, flags), &g_alive.renderers);
}

void SDL_DestroyRenderer(SDL_Renderer* renderer) {
  static auto* const real = Real<decltype(SDL_DestroyRenderer)>("SDL_DestroyRenderer");
  --g_alive.renderers;
  real(renderer);
}

SDL_Texture* SDL_CreateTextureFromSurface(SDL_Renderer* renderer, SDL_Surface* surface) {
  static auto* const real =
      Real<decltype(SDL_CreateTextureFromSurface)>("SDL_CreateTextureFromSurface");
  return Counted(real(renderer, surface), &g_alive.textures);
}

void SDL_DestroyTexture(SDL_Texture* texture) {
  static auto* const real = Real<decltype(SDL_DestroyTexture)>("SDL_DestroyTexture");
  --g_alive.textures;
  real(texture);
}

void SDL_FreeSurface(SDL_Surface* surface) {
  static auto* const real = Real<decltype(SDL_FreeSurface)>("SDL_FreeSurface");
  --g_alive.surfaces;
  real(surface);
}

void SDL_StartTextInput(void) {
  static auto* const real = Real<decltype(SDL_StartTextInput)>("SDL_StartTextInput");
  ++g_alive.text_input;
  real();
}

void SDL_StopTextInput(void) {
  static auto* const real = Real<decltype(SDL_StopTextInput)>("SDL_StopTextInput");
  --g_alive.text_input;
  real();
}

SDL_Window* SDL_GetMouseFocus(void) {
  return g_pointed && g_window_count > 0 ? g_windows[g_window_count - 1] : nullptr;
}

Uint32 SDL_GetMouseState(int* x, int* y) {
  *x = g_pointer_x;
  *y = g_pointer_y;
  return g_left_down ? SDL_BUTTON_LMASK : 0U;
}

void SDL_Delay(Uint32) {}

int SDL_OpenURL(const char*) {
  return 0;
}

int SDL_ShowSimpleMessageBox(Uint32, const char*, const char*, SDL_Window*) {
  return 0;
}

// Drawing costs most of a frame and plays no part here.
int SDL_RenderClear(SDL_Renderer*) {
  return 0;
}
int SDL_RenderFillRect(SDL_Renderer*, const SDL_Rect*) {
  return 0;
}
int SDL_RenderDrawRect(SDL_Renderer*, const SDL_Rect*) {
  return 0;
}
int SDL_RenderDrawLine(SDL_Renderer*, int, int, int, int) {
  return 0;
}
int SDL_RenderDrawPoint(SDL_Renderer*, int, int) {
  return 0;
}
int SDL_RenderCopy(SDL_Renderer*, SDL_Texture*, const SDL_Rect*, const SDL_Rect*) {
  return 0;
}

TTF_Font* TTF_OpenFont(const char* file, int size) {
  static auto* const real = Real<decltype(TTF_OpenFont)>("TTF_OpenFont");
  return Counted(real(file, size), &g_alive.fonts);
}

void TTF_CloseFont(TTF_Font* font) {
  static auto* const real = Real<decltype(TTF_CloseFont)>("TTF_CloseFont");
  --g_alive.fonts;
  real(font);
}

SDL_Surface* TTF_RenderUTF8_Blended(TTF_Font* font, const char* text, SDL_Color color) {
  static auto* const real = Real<decltype(TTF_RenderUTF8_Blended)>("TTF_RenderUTF8_Blended");
  return Counted(real(font, text, color), &g_alive.surfaces);
}

}  // extern "C"
