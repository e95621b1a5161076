#include "support/push_events.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include "frontend/gui/testing/input_events.h"
#include "frontend/gui/testing/push_event.h"
#include "support/call_recorder.h"

namespace quindle::testing {
namespace {

using namespace frontend::gui::testing;

void Push(SDL_Event event) {
  ASSERT_EQ(PushEvent(event), 1) << SDL_GetError();
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

// SDL3's own event of this meaning; SDL2 on top of it lets it through, and has no name for it.
constexpr Uint32 kSdl3WindowDestroyed = 0x219;

bool SaysThatItsWindowGoes(const SDL_Event& event) {
  if (event.type == kSdl3WindowDestroyed) {
    return true;
  }
  return event.type == SDL_WINDOWEVENT && (event.window.event == SDL_WINDOWEVENT_HIDDEN ||
                                           event.window.event == SDL_WINDOWEVENT_LEAVE ||
                                           event.window.event == SDL_WINDOWEVENT_FOCUS_LOST);
}

bool NamesAWindowThatIsGone(const SDL_Event& event) {
  return event.window.windowID != 0 && SDL_GetWindowFromID(event.window.windowID) == nullptr;
}

}  // namespace

Uint32 WindowId() {
  return Recorder().newest_window_id();
}

void KeyDown(SDL_Keycode sym, Uint32 window_id, int modifiers) {
  Push(MakeKeyEvent(SDL_KEYDOWN, sym, window_id, modifiers));
}

void KeyUp(SDL_Keycode sym, Uint32 window_id, int modifiers) {
  Push(MakeKeyEvent(SDL_KEYUP, sym, window_id, modifiers));
}

void TextInput(std::string_view text, Uint32 window_id) {
  while (!text.empty()) {
    const std::size_t bytes = BytesForOneEvent(text);
    Push(MakeTextEvent(text.substr(0, bytes), window_id));
    text.remove_prefix(bytes);
  }
}

void MouseDown(int x, int y, Uint8 button, Uint8 clicks, Uint32 window_id) {
  Push(MakeButtonEvent(SDL_MOUSEBUTTONDOWN, {x, y}, button, clicks, window_id));
}

void MouseUp(int x, int y, Uint8 button, Uint8 clicks, Uint32 window_id) {
  Push(MakeButtonEvent(SDL_MOUSEBUTTONUP, {x, y}, button, clicks, window_id));
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
  Push(MakeMotionEvent({x, y}, buttons, window_id));
}

void Wheel(int y, int x, SDL_Point mouse, Uint32 window_id) {
  Push(MakeWheelEvent({x, y}, mouse, window_id, SDL_MOUSEWHEEL_NORMAL));
}

void FlippedWheel(int y, int x, SDL_Point mouse, Uint32 window_id) {
  Push(MakeWheelEvent({x, y}, mouse, window_id, SDL_MOUSEWHEEL_FLIPPED));
}

void WindowEvent(Uint32 window_id, Uint8 event_id, int data1, int data2) {
  Push(MakeWindowEvent(window_id, event_id, data1, data2));
}

void CloseWindow(Uint32 window_id) {
  WindowEvent(window_id, SDL_WINDOWEVENT_CLOSE);
}

void Resized(Uint32 window_id, int width, int height) {
  WindowEvent(window_id, SDL_WINDOWEVENT_RESIZED, width, height);
}

void Quit() {
  Push(MakeQuitEvent());
}

int LargestInEvents() {
  constexpr int kLargest = std::numeric_limits<int>::max();
  FlushEvents();
  Motion(kLargest, kLargest);
  const std::vector<SDL_Event> queued = QueuedEvents();
  FlushEvents();
  if (queued.size() == 1 && queued[0].motion.x == kLargest) {
    return kLargest;
  }
  return static_cast<int>(std::nextafter(static_cast<float>(kLargest), 0.0F));
}

void FlushEvents() {
  SDL_PumpEvents();
  SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
}

std::vector<SDL_Event> QueuedEvents() {
  constexpr std::size_t kMost = 65535;
  std::vector<SDL_Event> events(kMost);
  const int count = SDL_PeepEvents(events.data(), static_cast<int>(kMost), SDL_PEEKEVENT,
                                   SDL_FIRSTEVENT, SDL_LASTEVENT);
  events.resize(static_cast<std::size_t>(std::max(count, 0)));
  std::erase_if(events, [](const SDL_Event& event) { return event.type == SDL_POLLSENTINEL; });
  return events;
}

std::vector<SDL_Event> EventsLeftBehind() {
  std::vector<SDL_Event> events = QueuedEvents();
  std::erase_if(events, [](const SDL_Event& event) {
    return SaysThatItsWindowGoes(event) && NamesAWindowThatIsGone(event);
  });
  return events;
}

}  // namespace quindle::testing
