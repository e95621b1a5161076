#pragma once

// Private. SDL_PushEvent for every kind of event. SDL2's interface on top of SDL3 cannot push a
// text event: it ends the program. Its queue takes one all the same, when the text stands where
// SDL3 looks for it. Header-only, because our own tests want it without the driver. Never
// allocates.

#include <SDL.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <optional>

namespace quindle::frontend::gui::testing {

// What SDL3 keeps of a text event. SDL2 on top of it copies what stands behind the first two
// members of its own event, byte by byte, to what stands behind the first three of this one.
struct Sdl3TextEvent {
  Uint32 type;
  Uint32 reserved;
  Uint64 timestamp;
  Uint32 window_id;
  const char* text;
};

// Writes `text`, which must outlive the event, where SDL3 will look for the address of a text.
inline void PutTextAddress(SDL_Event* event, const char* text) {
  constexpr std::size_t kOffset =
      sizeof(SDL_CommonEvent) + offsetof(Sdl3TextEvent, text) - offsetof(Sdl3TextEvent, window_id);
  std::memcpy(reinterpret_cast<char*>(event) + kOffset, static_cast<const void*>(&text),
              sizeof text);
}

// Whether queued text events hold the address of their text; nothing when SDL has no queue.
inline std::optional<bool> AskWhetherTextIsQueuedByAddress() {
  static constexpr const char* kText = "by address";
  constexpr Uint32 kNoWindow = 0xFFFFFFFFU;
  SDL_Event probe{};
  probe.type = SDL_TEXTINPUT;
  probe.text.windowID = kNoWindow;
  PutTextAddress(&probe, kText);
  if (SDL_PeepEvents(&probe, 1, SDL_ADDEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) != 1) {
    return std::nullopt;
  }
  bool by_address = false;
  const auto take_probe = [](void* found, SDL_Event* event) {
    if (event->type != SDL_TEXTINPUT || event->text.windowID != kNoWindow) {
      return 1;
    }
    *static_cast<bool*>(found) = std::strcmp(event->text.text, kText) == 0;
    return 0;
  };
  SDL_FilterEvents(take_probe, &by_address);
  return by_address;
}

inline bool IsTextQueuedByAddress() {
  static std::optional<bool> answer;
  if (!answer) {
    answer = AskWhetherTextIsQueuedByAddress();
  }
  return answer.value_or(false);
}

// A copy that lasts until as many more texts are kept as SDL's queue holds events.
inline const char* KeepText(const SDL_Event& event) {
  constexpr std::size_t kEventsOfQueue = 65'536;
  static std::array<char[SDL_TEXTINPUTEVENT_TEXT_SIZE], kEventsOfQueue> texts;
  static std::size_t next = 0;
  auto& text = texts[next];
  next = (next + 1) % kEventsOfQueue;
  SDL_strlcpy(text, event.text.text, sizeof text);
  return text;
}

// As SDL_PushEvent, which see; called on the thread of SDL video.
inline int PushEvent(SDL_Event event) {
  if (event.type != SDL_TEXTINPUT || !IsTextQueuedByAddress()) {
    return SDL_PushEvent(&event);
  }
  PutTextAddress(&event, KeepText(event));
  return SDL_PeepEvents(&event, 1, SDL_ADDEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT);
}

}  // namespace quindle::frontend::gui::testing
