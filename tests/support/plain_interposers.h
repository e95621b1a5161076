#pragma once

// A smaller stand-in for the call recorder, for programs that run dialogs by the thousand or in
// which any allocation may fail: it keeps plain counters, never allocates, does not sleep and does
// not draw. Text is rendered.

#include <SDL.h>

namespace quindle::testing {

// What has been made and not released since the program began.
struct PlainCounts {
  long windows = 0;
  long renderers = 0;
  long textures = 0;
  long surfaces = 0;
  long fonts = 0;
  long text_input = 0;

  bool operator==(const PlainCounts&) const = default;
};
PlainCounts AliveNow();

// Id of the window made last and still alive; 0 when there is none.
Uint32 NewestWindowId();

// Answers SDL_GetMouseFocus (the newest window) and SDL_GetMouseState.
void PointAtNewestWindow(int x, int y, bool left_down);
// No window has the mouse: the state at the start.
void ForgetPointer();

}  // namespace quindle::testing
