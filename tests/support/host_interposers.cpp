// SDL's functions for what belongs to the host (queue, OpenGL context, captured mouse, memory that
// SDL hands over), as the library sees them in a test program: written down, then forwarded.

#include <SDL.h>

#include "support/recorder_state.h"

using quindle::testing::EnterCall;
using quindle::testing::InsideTtf;

extern "C" {

QUINDLE_WRAP_SLOT(SDL_PeepEvents, true)
int SDL_PeepEvents(SDL_Event* events, int count, SDL_eventaction action, Uint32 first,
                   Uint32 last) {
  QUINDLE_REAL(SDL_PeepEvents);
  return EnterCall(slot, nullptr) ? -1 : real(events, count, action, first, last);
}

QUINDLE_WRAP_SLOT(SDL_free, false)
void SDL_free(void* memory) {
  QUINDLE_REAL(SDL_free);
  // What SDL_ttf frees is its own.
  if (!InsideTtf::IsActive()) {
    EnterCall(slot, memory);
  }
  real(memory);
}

QUINDLE_WRAP_SLOT(SDL_GetWindowFromID, true)
SDL_Window* SDL_GetWindowFromID(Uint32 id) {
  QUINDLE_REAL(SDL_GetWindowFromID);
  return EnterCall(slot, nullptr) ? nullptr : real(id);
}

QUINDLE_WRAP_SLOT(SDL_GL_GetCurrentContext, false)
SDL_GLContext SDL_GL_GetCurrentContext() {
  QUINDLE_REAL(SDL_GL_GetCurrentContext);
  EnterCall(slot, nullptr);
  return real();
}

QUINDLE_WRAP_SLOT(SDL_GL_GetCurrentWindow, false)
SDL_Window* SDL_GL_GetCurrentWindow() {
  QUINDLE_REAL(SDL_GL_GetCurrentWindow);
  EnterCall(slot, nullptr);
  return real();
}

QUINDLE_WRAP_SLOT(SDL_GL_MakeCurrent, true)
int SDL_GL_MakeCurrent(SDL_Window* window, SDL_GLContext context) {
  QUINDLE_REAL(SDL_GL_MakeCurrent);
  return EnterCall(slot, window) ? -1 : real(window, context);
}

QUINDLE_WRAP_SLOT(SDL_GetRelativeMouseMode, false)
SDL_bool SDL_GetRelativeMouseMode() {
  QUINDLE_REAL(SDL_GetRelativeMouseMode);
  EnterCall(slot, nullptr);
  return real();
}

QUINDLE_WRAP_SLOT(SDL_SetRelativeMouseMode, true)
int SDL_SetRelativeMouseMode(SDL_bool enabled) {
  QUINDLE_REAL(SDL_SetRelativeMouseMode);
  return EnterCall(slot, nullptr) ? -1 : real(enabled);
}

QUINDLE_WRAP_SLOT(SDL_ShowCursor, true)
int SDL_ShowCursor(int toggle) {
  QUINDLE_REAL(SDL_ShowCursor);
  return EnterCall(slot, nullptr) ? -1 : real(toggle);
}

}  // extern "C"
