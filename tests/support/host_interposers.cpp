// SDL's functions for what belongs to the host (queue, OpenGL context, captured mouse, memory that
// SDL hands over), as the library sees them in a test program: written down, then forwarded.

#include <SDL.h>

#include "support/recorder_state.h"

using quindle::testing::EnterCall;
using quindle::testing::InsideTtf;
using quindle::testing::State;

extern "C" {

// --- Queue and memory ----------------------------------------------------------------------------

QUINDLE_WRAP_SLOT(SDL_PeepEvents, true)
int SDL_PeepEvents(SDL_Event* events, int count, SDL_eventaction action, Uint32 first,
                   Uint32 last) {
  QUINDLE_REAL(SDL_PeepEvents);
  if (EnterCall(slot, nullptr)) {
    return -1;
  }
  if (action == SDL_ADDEVENT && State().on_add_events) {
    State().on_add_events(count);
  }
  return real(events, count, action, first, last);
}

QUINDLE_WRAP_SLOT(SDL_FilterEvents, false)
void SDL_FilterEvents(SDL_EventFilter filter, void* userdata) {
  QUINDLE_REAL(SDL_FilterEvents);
  EnterCall(slot, nullptr);
  real(filter, userdata);
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

QUINDLE_WRAP_SLOT(SDL_WasInit, false)
Uint32 SDL_WasInit(Uint32 flags) {
  QUINDLE_REAL(SDL_WasInit);
  EnterCall(slot, nullptr);
  return real(flags);
}

// --- OpenGL --------------------------------------------------------------------------------------

QUINDLE_WRAP_SLOT(SDL_GL_GetCurrentContext, false)
SDL_GLContext SDL_GL_GetCurrentContext() {
  QUINDLE_REAL(SDL_GL_GetCurrentContext);
  EnterCall(slot, nullptr);
  return State().opengl.IsThere() ? State().opengl.context() : real();
}

QUINDLE_WRAP_SLOT(SDL_GL_GetCurrentWindow, false)
SDL_Window* SDL_GL_GetCurrentWindow() {
  QUINDLE_REAL(SDL_GL_GetCurrentWindow);
  EnterCall(slot, nullptr);
  return State().opengl.IsThere() ? State().opengl.window() : real();
}

QUINDLE_WRAP_SLOT(SDL_GL_MakeCurrent, true)
int SDL_GL_MakeCurrent(SDL_Window* window, SDL_GLContext context) {
  QUINDLE_REAL(SDL_GL_MakeCurrent);
  if (EnterCall(slot, window)) {
    return -1;
  }
  if (!State().opengl.IsThere()) {
    return real(window, context);
  }
  State().opengl.MakeCurrent(window, context);
  return 0;
}

QUINDLE_WRAP_SLOT(SDL_GL_GetAttribute, true)
int SDL_GL_GetAttribute(SDL_GLattr attribute, int* value) {
  QUINDLE_REAL(SDL_GL_GetAttribute);
  if (EnterCall(slot, nullptr)) {
    return -1;
  }
  if (!State().opengl.IsThere()) {
    return real(attribute, value);
  }
  *value = State().opengl.Attribute(attribute);
  return 0;
}

QUINDLE_WRAP_SLOT(SDL_GL_SetAttribute, true)
int SDL_GL_SetAttribute(SDL_GLattr attribute, int value) {
  QUINDLE_REAL(SDL_GL_SetAttribute);
  if (EnterCall(slot, nullptr)) {
    return -1;
  }
  if (!State().opengl.IsThere()) {
    return real(attribute, value);
  }
  State().opengl.SetAttribute(attribute, value);
  return 0;
}

QUINDLE_WRAP_SLOT(SDL_GL_GetSwapInterval, false)
int SDL_GL_GetSwapInterval() {
  QUINDLE_REAL(SDL_GL_GetSwapInterval);
  EnterCall(slot, nullptr);
  return State().opengl.IsThere() ? State().opengl.SwapInterval() : real();
}

QUINDLE_WRAP_SLOT(SDL_GL_SetSwapInterval, true)
int SDL_GL_SetSwapInterval(int interval) {
  QUINDLE_REAL(SDL_GL_SetSwapInterval);
  if (EnterCall(slot, nullptr)) {
    return -1;
  }
  if (!State().opengl.IsThere()) {
    return real(interval);
  }
  State().opengl.SetSwapInterval(interval);
  return 0;
}

// --- Mouse ---------------------------------------------------------------------------------------

// The dummy driver cannot capture the pointer, and a test must not.
QUINDLE_WRAP_SLOT(SDL_GetRelativeMouseMode, false)
SDL_bool SDL_GetRelativeMouseMode() {
  EnterCall(g_slot_SDL_GetRelativeMouseMode, nullptr);
  return State().relative_mouse ? SDL_TRUE : SDL_FALSE;
}

QUINDLE_WRAP_SLOT(SDL_SetRelativeMouseMode, true)
int SDL_SetRelativeMouseMode(SDL_bool enabled) {
  if (EnterCall(g_slot_SDL_SetRelativeMouseMode, nullptr)) {
    return -1;
  }
  State().relative_mouse = enabled == SDL_TRUE;
  return 0;
}

// Asking and setting count as two functions.
namespace {
quindle::testing::FunctionSlot g_slot_cursor_question{"SDL_ShowCursor(SDL_QUERY)", true};
}
QUINDLE_WRAP_SLOT(SDL_ShowCursor, true)
int SDL_ShowCursor(int toggle) {
  QUINDLE_REAL(SDL_ShowCursor);
  return EnterCall(toggle == SDL_QUERY ? g_slot_cursor_question : slot, nullptr) ? -1
                                                                                 : real(toggle);
}

}  // extern "C"
