#include "live_hooks.h"

#include <dirent.h>

#include <utility>

#include "support/real_function.h"

namespace quindle::bench {
namespace {

LiveHooks g_hooks;
long g_folders_opened = 0;

}  // namespace

void SetLiveHooks(LiveHooks hooks) {
  g_hooks = std::move(hooks);
}

long FoldersOpened() {
  return g_folders_opened;
}

}  // namespace quindle::bench

using quindle::testing::RealFunction;

extern "C" {

void SDL_Delay(Uint32 ms) {
  static auto* const real = RealFunction<decltype(SDL_Delay)>("SDL_Delay");
  if (quindle::bench::g_hooks.frame_ended) {
    quindle::bench::g_hooks.frame_ended();
  }
  real(ms);
}

int SDL_PollEvent(SDL_Event* event) {
  static auto* const real = RealFunction<decltype(SDL_PollEvent)>("SDL_PollEvent");
  const int taken = real(event);
  if (taken != 0 && event != nullptr && quindle::bench::g_hooks.event_taken) {
    quindle::bench::g_hooks.event_taken(*event);
  }
  return taken;
}

void SDL_RenderPresent(SDL_Renderer* renderer) {
  static auto* const real = RealFunction<decltype(SDL_RenderPresent)>("SDL_RenderPresent");
  real(renderer);
  if (quindle::bench::g_hooks.presented) {
    quindle::bench::g_hooks.presented();
  }
}

// A random click must not start a browser.
int SDL_OpenURL(const char* /*url*/) {
  return 0;
}

DIR* opendir(const char* path) {
  static auto* const real = RealFunction<decltype(opendir)>("opendir");
  ++quindle::bench::g_folders_opened;
  return real(path);
}

// The standard library opens a folder by one or the other.
DIR* fdopendir(int file) {
  static auto* const real = RealFunction<decltype(fdopendir)>("fdopendir");
  ++quindle::bench::g_folders_opened;
  return real(file);
}

}  // extern "C"
