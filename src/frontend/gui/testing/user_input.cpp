#include "frontend/gui/testing/user_input.h"

#include <string_view>

#include "frontend/gui/testing/input_events.h"
#include "frontend/gui/testing/push_event.h"
#include "utils/ascii_text.h"

namespace quindle::frontend::gui::testing {
namespace {

Uint32 Id(SDL_Window* window) {
  return SDL_GetWindowID(window);
}

}  // namespace

void PushKey(SDL_Window* window, SDL_Keycode key, int times) {
  for (int i = 0; i < times; ++i) {
    PushEvent(MakeKeyEvent(SDL_KEYDOWN, key, Id(window)));
    PushEvent(MakeKeyEvent(SDL_KEYUP, key, Id(window)));
  }
}

void PushText(SDL_Window* window, const std::string& text) {
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = at + 1;
    while (end < text.size() && end - at < 4 && utils::is_utf8_continuation(text[end])) {
      ++end;
    }
    PushEvent(MakeTextEvent(std::string_view(text).substr(at, end - at), Id(window)));
    at = end;
  }
}

void PushMotion(SDL_Window* window, SDL_Point at, bool held) {
  PushEvent(MakeMotionEvent(at, held ? SDL_BUTTON_LMASK : 0, Id(window)));
}

void PushPress(SDL_Window* window, SDL_Point at) {
  PushEvent(MakeButtonEvent(SDL_MOUSEBUTTONDOWN, at, SDL_BUTTON_LEFT, 1, Id(window)));
}

void PushRelease(SDL_Window* window, SDL_Point at) {
  PushEvent(MakeButtonEvent(SDL_MOUSEBUTTONUP, at, SDL_BUTTON_LEFT, 1, Id(window)));
}

void PushClick(SDL_Window* window, const SDL_Rect& rect) {
  PushClick(window, Middle(rect));
}

void PushClick(SDL_Window* window, SDL_Point at) {
  PushMotion(window, at, false);
  PushPress(window, at);
  PushRelease(window, at);
}

void PushDrag(SDL_Window* window, SDL_Point from, SDL_Point to) {
  PushMotion(window, from, false);
  PushPress(window, from);
  PushMotion(window, to, true);
  PushRelease(window, to);
}

void PushWheel(SDL_Window* window, SDL_Point at, int notches) {
  PushEvent(MakeWheelEvent({0, notches}, at, Id(window)));
}

void PushClose(SDL_Window* window) {
  PushEvent(MakeWindowEvent(Id(window), SDL_WINDOWEVENT_CLOSE));
}

void PushQuit() {
  PushEvent(MakeQuitEvent());
}

SDL_Point Middle(const SDL_Rect& rect) {
  return {rect.x + rect.w / 2, rect.y + rect.h / 2};
}

SDL_Point WindowSize(SDL_Window* window) {
  SDL_Point size{0, 0};
  SDL_GetWindowSize(window, &size.x, &size.y);
  return size;
}

}  // namespace quindle::frontend::gui::testing
