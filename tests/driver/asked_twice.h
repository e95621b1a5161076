#pragma once

// What each framework's program tests: a host's function that asks two questions in a row.

#include <SDL.h>
#include <SDL_ttf.h>

#include "driven_hosts.h"
#include "frontend/gui/sdl_ui_font_cache.h"

namespace quindle::testing {

// SDL video for as long as this object lives.
struct TestVideo {
  TestVideo() { SDL_Init(SDL_INIT_VIDEO); }
  TestVideo(const TestVideo&) = delete;
  TestVideo& operator=(const TestVideo&) = delete;
  TestVideo(TestVideo&&) = delete;
  TestVideo& operator=(TestVideo&&) = delete;
  ~TestVideo() {
    frontend::gui::ShutdownSdlUiCachedFonts();
    TTF_Quit();
    SDL_Quit();
  }
};

// Whether the user wants the first and does not want the second.
inline bool AskTwice() {
  const bool first = Ask("First") == 1;
  return first && Ask("Second") == 2;
}

}  // namespace quindle::testing
