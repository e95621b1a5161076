#include "frontend/gui/testing/user_input.h"

#include <string_view>

#include "utils/ascii_text.h"

namespace quindle::frontend::gui::testing {
namespace {

void PushKeyEvent(SDL_Window* window, Uint32 type, SDL_Keycode key) {
  SDL_Event event{};
  event.type = type;
  event.key.windowID = SDL_GetWindowID(window);
  event.key.state = type == SDL_KEYDOWN ? SDL_PRESSED : SDL_RELEASED;
  event.key.keysym.sym = key;
  event.key.keysym.scancode = SDL_GetScancodeFromKey(key);
  SDL_PushEvent(&event);
}

void PushButton(SDL_Window* window, Uint32 type, SDL_Point at) {
  SDL_Event event{};
  event.type = type;
  event.button.windowID = SDL_GetWindowID(window);
  event.button.button = SDL_BUTTON_LEFT;
  event.button.state = type == SDL_MOUSEBUTTONDOWN ? SDL_PRESSED : SDL_RELEASED;
  event.button.clicks = 1;
  event.button.x = at.x;
  event.button.y = at.y;
  SDL_PushEvent(&event);
}

void PushTextEvent(SDL_Window* window, std::string_view character) {
  SDL_Event event{};
  event.type = SDL_TEXTINPUT;
  event.text.windowID = SDL_GetWindowID(window);
  character.copy(static_cast<char*>(event.text.text), SDL_TEXTINPUTEVENT_TEXT_SIZE - 1);
  SDL_PushEvent(&event);
}

}  // namespace

void PushKey(SDL_Window* window, SDL_Keycode key, int times) {
  for (int i = 0; i < times; ++i) {
    PushKeyEvent(window, SDL_KEYDOWN, key);
    PushKeyEvent(window, SDL_KEYUP, key);
  }
}

void PushText(SDL_Window* window, const std::string& text) {
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = at + 1;
    while (end < text.size() && end - at < 4 && utils::is_utf8_continuation(text[end])) {
      ++end;
    }
    PushTextEvent(window, std::string_view(text).substr(at, end - at));
    at = end;
  }
}

void PushMotion(SDL_Window* window, SDL_Point at, bool held) {
  SDL_Event event{};
  event.type = SDL_MOUSEMOTION;
  event.motion.windowID = SDL_GetWindowID(window);
  event.motion.state = held ? SDL_BUTTON_LMASK : 0;
  event.motion.x = at.x;
  event.motion.y = at.y;
  SDL_PushEvent(&event);
}

void PushPress(SDL_Window* window, SDL_Point at) {
  PushButton(window, SDL_MOUSEBUTTONDOWN, at);
}

void PushRelease(SDL_Window* window, SDL_Point at) {
  PushButton(window, SDL_MOUSEBUTTONUP, at);
}

void PushClick(SDL_Window* window, const SDL_Rect& rect) {
  const SDL_Point at = Middle(rect);
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

void PushClose(SDL_Window* window) {
  SDL_Event event{};
  event.type = SDL_WINDOWEVENT;
  event.window.windowID = SDL_GetWindowID(window);
  event.window.event = SDL_WINDOWEVENT_CLOSE;
  SDL_PushEvent(&event);
}

void PushQuit() {
  SDL_Event event{};
  event.type = SDL_QUIT;
  SDL_PushEvent(&event);
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
