#include "sdl_session.h"

#include <SDL.h>
#include <SDL_ttf.h>

#include <cstdlib>
#include <string>
#include <string_view>

#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/sdl_ui_font_cache.h"

namespace quindle::demo {
namespace {

using frontend::gui::OpenSdlUiFontHandle;
using frontend::gui::SdlUiFontKind;

void ShutDown() {
  frontend::gui::SetModalDialogHeartbeat({});
  frontend::gui::ShutdownSdlUiCachedFonts();
  while (TTF_WasInit() != 0) {
    TTF_Quit();
  }
  SDL_Quit();
}

// One after the other, since not every SDL takes a list.
int StartInMemory() {
  // The first has OpenGL where the system has it, the second is everywhere.
  for (const char* driver : {"offscreen", "dummy"}) {
    SDL_SetHintWithPriority(SDL_HINT_VIDEODRIVER, driver, SDL_HINT_OVERRIDE);
    if (SDL_Init(SDL_INIT_VIDEO) == 0) {
      return 0;
    }
  }
  return -1;
}

int StartOnDisplay() {
#if defined(__linux__)
  // There is no Wayland display without this folder, and looking for one prints a line of its own.
  if (std::getenv("XDG_RUNTIME_DIR") == nullptr) {
    SDL_SetHintWithPriority(SDL_HINT_VIDEODRIVER, "x11", SDL_HINT_DEFAULT);
  }
#endif
  return SDL_Init(SDL_INIT_VIDEO);
}

// SDL falls back to this driver by itself where there is no display, and then shows nothing.
bool FellBackToNoDisplay() {
  const char* asked_for = SDL_GetHint(SDL_HINT_VIDEODRIVER);
  const char* driver = SDL_GetCurrentVideoDriver();
  return asked_for == nullptr && driver != nullptr && std::string_view(driver) == "offscreen";
}

// Otherwise the software renderer presents through OpenGL, which costs some 90 MB. Only on X11
// and in memory: where a window system has no plain surfaces, as Wayland, this hint leaves no
// software renderer at all.
void PreferPlainWindowSurfaces() {
  const char* name = SDL_GetCurrentVideoDriver();
  const std::string_view driver = name == nullptr ? "" : name;
  if (driver == "x11" || driver == "offscreen") {
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
  }
}

void StartVideo(VideoChoice video) {
  if ((video == VideoChoice::Memory ? StartInMemory() : StartOnDisplay()) != 0) {
    throw NothingShownError(std::string("no display: ") + SDL_GetError());
  }
  if (FellBackToNoDisplay()) {
    throw NothingShownError("no display: neither an X11 nor a Wayland display can be opened");
  }
}

void CheckFont() {
  if (OpenSdlUiFontHandle(15, false, SdlUiFontKind::Ui) == nullptr) {
    throw NothingShownError(
        "no font: neither data/ttf in the working directory nor the system has one that opens");
  }
}

}  // namespace

SdlSession::SdlSession(VideoChoice video) {
  try {
    StartVideo(video);
    PreferPlainWindowSurfaces();
    CheckFont();
  } catch (...) {
    ShutDown();
    throw;
  }
}

SdlSession::~SdlSession() {
  ShutDown();
}

}  // namespace quindle::demo
