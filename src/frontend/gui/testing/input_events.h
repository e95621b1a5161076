#pragma once

// Private. The events that a user's input arrives as, filled in the way SDL does it. Nothing here
// allocates, checks or pushes: that is for whoever needs them. `window_id` 0 names no window.

#include <SDL.h>

#include <string_view>

namespace quindle::frontend::gui::testing {

// `type` is SDL_KEYDOWN or SDL_KEYUP.
inline SDL_Event MakeKeyEvent(Uint32 type, SDL_Keycode sym, Uint32 window_id = 0,
                              int modifiers = KMOD_NONE) {
  SDL_Event event{};
  event.type = type;
  event.key.windowID = window_id;
  event.key.state = type == SDL_KEYDOWN ? SDL_PRESSED : SDL_RELEASED;
  event.key.keysym.sym = sym;
  event.key.keysym.scancode = SDL_GetScancodeFromKey(sym);
  event.key.keysym.mod = static_cast<Uint16>(modifiers);
  return event;
}

// Takes what fits of `text`: 31 bytes.
inline SDL_Event MakeTextEvent(std::string_view text, Uint32 window_id = 0) {
  SDL_Event event{};
  event.type = SDL_TEXTINPUT;
  event.text.windowID = window_id;
  text.copy(static_cast<char*>(event.text.text), SDL_TEXTINPUTEVENT_TEXT_SIZE - 1);
  return event;
}

// `type` is SDL_MOUSEBUTTONDOWN or SDL_MOUSEBUTTONUP.
inline SDL_Event MakeButtonEvent(Uint32 type, SDL_Point at, Uint8 button = SDL_BUTTON_LEFT,
                                 Uint8 clicks = 1, Uint32 window_id = 0) {
  SDL_Event event{};
  event.type = type;
  event.button.windowID = window_id;
  event.button.button = button;
  event.button.state = type == SDL_MOUSEBUTTONDOWN ? SDL_PRESSED : SDL_RELEASED;
  event.button.clicks = clicks;
  event.button.x = at.x;
  event.button.y = at.y;
  return event;
}

// `buttons` is a mask such as SDL_BUTTON_LMASK.
inline SDL_Event MakeMotionEvent(SDL_Point at, Uint32 buttons = 0, Uint32 window_id = 0) {
  SDL_Event event{};
  event.type = SDL_MOUSEMOTION;
  event.motion.windowID = window_id;
  event.motion.state = buttons;
  event.motion.x = at.x;
  event.motion.y = at.y;
  return event;
}

// `turn.y` is positive away from the user.
inline SDL_Event MakeWheelEvent(SDL_Point turn, SDL_Point mouse = {0, 0}, Uint32 window_id = 0,
                                Uint32 direction = SDL_MOUSEWHEEL_NORMAL) {
  SDL_Event event{};
  event.type = SDL_MOUSEWHEEL;
  event.wheel.windowID = window_id;
  event.wheel.x = turn.x;
  event.wheel.y = turn.y;
  event.wheel.preciseX = static_cast<float>(turn.x);
  event.wheel.preciseY = static_cast<float>(turn.y);
  event.wheel.direction = direction;
  event.wheel.mouseX = mouse.x;
  event.wheel.mouseY = mouse.y;
  return event;
}

inline SDL_Event MakeWindowEvent(Uint32 window_id, Uint8 what, int data1 = 0, int data2 = 0) {
  SDL_Event event{};
  event.type = SDL_WINDOWEVENT;
  event.window.windowID = window_id;
  event.window.event = what;
  event.window.data1 = data1;
  event.window.data2 = data2;
  return event;
}

inline SDL_Event MakeQuitEvent() {
  SDL_Event event{};
  event.type = SDL_QUIT;
  return event;
}

}  // namespace quindle::frontend::gui::testing
