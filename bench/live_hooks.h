#pragma once

// What the live measures see of a dialog that runs in a real window: this program's own functions
// stand in front of SDL's and the C library's. Nothing here slows a dialog down.

#include <SDL.h>

#include <chrono>
#include <functional>

namespace quindle::bench {

using Clock = std::chrono::steady_clock;

// Called from the thread of the dialogs; empty ones are not called.
struct LiveHooks {
  std::function<void()> frame_ended;                  // At the pause behind each frame.
  std::function<void(const SDL_Event&)> event_taken;  // A dialog has taken an event.
  std::function<void()> presented;                    // A frame has been handed to the display.
};

// Puts these in the place of the former ones.
void SetLiveHooks(LiveHooks hooks);

// How often a folder has been opened since the program began.
long FoldersOpened();

}  // namespace quindle::bench
