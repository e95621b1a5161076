#include "support/push_events.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>

#include "support/call_recorder.h"

namespace quindle::testing {
namespace {

void Push(SDL_Event event) {
  ASSERT_EQ(SDL_PushEvent(&event), 1) << SDL_GetError();
}

void PushKey(Uint32 type, SDL_Keycode sym, Uint32 window_id, int modifiers) {
  SDL_Event event{};
  event.type = type;
  event.key.windowID = window_id;
  event.key.state = type == SDL_KEYDOWN ? SDL_PRESSED : SDL_RELEASED;
  event.key.keysym.sym = sym;
  event.key.keysym.scancode = SDL_GetScancodeFromKey(sym);
  event.key.keysym.mod = static_cast<Uint16>(modifiers);
  Push(event);
}

void PushButton(Uint32 type, SDL_Point at, Uint8 button, Uint8 clicks, Uint32 window_id) {
  SDL_Event event{};
  event.type = type;
  event.button.windowID = window_id;
  event.button.button = button;
  event.button.state = type == SDL_MOUSEBUTTONDOWN ? SDL_PRESSED : SDL_RELEASED;
  event.button.clicks = clicks;
  event.button.x = at.x;
  event.button.y = at.y;
  Push(event);
}

void PushWheel(int y, int x, SDL_Point mouse, Uint32 window_id, Uint32 direction) {
  SDL_Event event{};
  event.type = SDL_MOUSEWHEEL;
  event.wheel.windowID = window_id;
  event.wheel.x = x;
  event.wheel.y = y;
  event.wheel.preciseX = static_cast<float>(x);
  event.wheel.preciseY = static_cast<float>(y);
  event.wheel.direction = direction;
  event.wheel.mouseX = mouse.x;
  event.wheel.mouseY = mouse.y;
  Push(event);
}

std::size_t BytesForOneEvent(std::string_view text) {
  constexpr std::size_t kRoom = SDL_TEXTINPUTEVENT_TEXT_SIZE - 1;
  if (text.size() <= kRoom) {
    return text.size();
  }
  std::size_t bytes = kRoom;
  while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xC0U) == 0x80U) {
    --bytes;
  }
  return bytes > 0 ? bytes : kRoom;
}

}  // namespace

Uint32 WindowId() {
  return Recorder().newest_window_id();
}

void KeyDown(SDL_Keycode sym, Uint32 window_id, int modifiers) {
  PushKey(SDL_KEYDOWN, sym, window_id, modifiers);
}

void KeyUp(SDL_Keycode sym, Uint32 window_id, int modifiers) {
  PushKey(SDL_KEYUP, sym, window_id, modifiers);
}

void TextInput(std::string_view text, Uint32 window_id) {
  while (!text.empty()) {
    const std::size_t bytes = BytesForOneEvent(text);
    SDL_Event event{};
    event.type = SDL_TEXTINPUT;
    event.text.windowID = window_id;
    text.copy(event.text.text, bytes);
    Push(event);
    text.remove_prefix(bytes);
  }
}

void MouseDown(int x, int y, Uint8 button, Uint8 clicks, Uint32 window_id) {
  PushButton(SDL_MOUSEBUTTONDOWN, {x, y}, button, clicks, window_id);
}

void MouseUp(int x, int y, Uint8 button, Uint8 clicks, Uint32 window_id) {
  PushButton(SDL_MOUSEBUTTONUP, {x, y}, button, clicks, window_id);
}

void Click(int x, int y, Uint8 button, Uint8 clicks, Uint32 window_id) {
  MouseDown(x, y, button, clicks, window_id);
  MouseUp(x, y, button, clicks, window_id);
}

void Click(const SDL_Rect& rect) {
  Click(rect.x + rect.w / 2, rect.y + rect.h / 2);
}

void DoubleClick(int x, int y, Uint32 window_id) {
  Click(x, y, SDL_BUTTON_LEFT, 1, window_id);
  Click(x, y, SDL_BUTTON_LEFT, 2, window_id);
}

void Motion(int x, int y, Uint32 buttons, Uint32 window_id) {
  SDL_Event event{};
  event.type = SDL_MOUSEMOTION;
  event.motion.windowID = window_id;
  event.motion.state = buttons;
  event.motion.x = x;
  event.motion.y = y;
  Push(event);
}

void Wheel(int y, int x, SDL_Point mouse, Uint32 window_id) {
  PushWheel(y, x, mouse, window_id, SDL_MOUSEWHEEL_NORMAL);
}

void FlippedWheel(int y, int x, SDL_Point mouse, Uint32 window_id) {
  PushWheel(y, x, mouse, window_id, SDL_MOUSEWHEEL_FLIPPED);
}

void WindowEvent(Uint32 window_id, Uint8 event_id, int data1, int data2) {
  SDL_Event event{};
  event.type = SDL_WINDOWEVENT;
  event.window.windowID = window_id;
  event.window.event = event_id;
  event.window.data1 = data1;
  event.window.data2 = data2;
  Push(event);
}

void CloseWindow(Uint32 window_id) {
  WindowEvent(window_id, SDL_WINDOWEVENT_CLOSE);
}

void Resized(Uint32 window_id, int width, int height) {
  WindowEvent(window_id, SDL_WINDOWEVENT_RESIZED, width, height);
}

void Quit() {
  SDL_Event event{};
  event.type = SDL_QUIT;
  Push(event);
}

void FlushEvents() {
  SDL_PumpEvents();
  SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
}

std::vector<SDL_Event> QueuedEvents() {
  constexpr std::size_t kMost = 4096;
  std::vector<SDL_Event> events(kMost);
  const int count = SDL_PeepEvents(events.data(), static_cast<int>(kMost), SDL_PEEKEVENT,
                                   SDL_FIRSTEVENT, SDL_LASTEVENT);
  events.resize(static_cast<std::size_t>(std::max(count, 0)));
  std::erase_if(events, [](const SDL_Event& event) { return event.type == SDL_POLLSENTINEL; });
  return events;
}

}  // namespace quindle::testing
