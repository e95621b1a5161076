#pragma once

// A smaller stand-in for the call recorder, for tests in which every allocation may fail: it keeps
// plain counters and never allocates. It also makes allocations and file-system calls fail.

#include <SDL.h>

#include <cstddef>

namespace quindle::testing {

// What has been made and not released since the program began.
struct PlainCounts {
  long windows = 0;
  long renderers = 0;
  long textures = 0;
  long surfaces = 0;
  long fonts = 0;
  long text_input = 0;
  long descriptors = 0;  // Directory streams and files opened by the wrapped functions.

  bool operator==(const PlainCounts&) const = default;
};
PlainCounts AliveNow();

// The calls of one kind that can be made to fail: counted while armed, failing at the nth.
enum class FaultKind { Allocation, FileSystem };

// From now on counts the calls of `kind`; the `nth` fails (0: none does).
void ArmFault(FaultKind kind, long nth);
// Stops counting and returns how many calls there were.
long DisarmFault();

// How many allocations were not made to fail because the standard library cannot survive that
// there: those of its directory iterator.
long SparedAllocations();

// Answers SDL_GetMouseFocus (the newest window) and SDL_GetMouseState.
void PointAtNewestWindow(int x, int y, bool left_down);
void ForgetPointer();

}  // namespace quindle::testing
