#include "support/byte_input.h"

#include "frontend/gui/testing/input_events.h"
#include "frontend/gui/testing/push_event.h"
#include "support/plain_interposers.h"

namespace quindle::testing {
namespace {

using namespace frontend::gui::testing;

constexpr SDL_Keycode kKeys[] = {
    SDLK_UP, SDLK_DOWN, SDLK_RETURN, SDLK_KP_ENTER, SDLK_TAB, SDLK_BACKSPACE, SDLK_SPACE, SDLK_a,
};
constexpr const char* kTexts[] = {"7", "12a4", "a/b", ".img", "\xC3\xA4", "x", "\xFF", " "};

// A little wider than the widest dialog, so that what lies outside is hit as well.
int PositionX(const std::uint8_t* bytes) {
  return (bytes[1] + 256 * (bytes[2] & 3)) % 940 - 20;
}

int PositionY(const std::uint8_t* bytes) {
  return (bytes[3] + 256 * (bytes[4] & 3)) % 600 - 20;
}

// Mostly the dialog's own window, sometimes none and sometimes another.
Uint32 WindowIdFrom(std::uint8_t byte) {
  switch (byte >> 5) {
    case 0:
      return 0;
    case 1:
      return 4711;
    default:
      return NewestWindowId();
  }
}

SDL_Event ButtonEvent(Uint32 type, const std::uint8_t* bytes) {
  const Uint8 button = (bytes[2] & 0x80) != 0 ? SDL_BUTTON_RIGHT : SDL_BUTTON_LEFT;
  const auto clicks = static_cast<Uint8>(1 + (bytes[2] >> 6 & 1));
  return MakeButtonEvent(type, {PositionX(bytes), PositionY(bytes)}, button, clicks,
                         WindowIdFrom(bytes[4]));
}

SDL_Event KeyEvent(SDL_Keycode key, const std::uint8_t* bytes) {
  return MakeKeyEvent(SDL_KEYDOWN, key, WindowIdFrom(bytes[4]));
}

SDL_Event WindowEvent(const std::uint8_t* bytes) {
  return MakeWindowEvent(WindowIdFrom(bytes[4]),
                         (bytes[1] & 1) != 0 ? SDL_WINDOWEVENT_RESIZED : SDL_WINDOWEVENT_EXPOSED);
}

// Endings are rare, or no input would get far.
SDL_Event RareEvent(const std::uint8_t* bytes) {
  switch (bytes[1]) {
    case 0:
      return MakeQuitEvent();
    case 1:
      return MakeWindowEvent(WindowIdFrom(bytes[4]), SDL_WINDOWEVENT_CLOSE);
    case 2:
      return KeyEvent(SDLK_ESCAPE, bytes);
    default:
      return WindowEvent(bytes);
  }
}

SDL_Event EventFrom(const std::uint8_t* bytes) {
  switch (bytes[0] % 16) {
    case 0:
    case 1:
    case 2:
      return KeyEvent(kKeys[bytes[1] % SDL_arraysize(kKeys)], bytes);
    case 3:
    case 4:
      return MakeTextEvent(kTexts[bytes[1] % SDL_arraysize(kTexts)]);
    case 5:
    case 6:
    case 7:
      return ButtonEvent(SDL_MOUSEBUTTONDOWN, bytes);
    case 8:
    case 9:
    case 10:
      return ButtonEvent(SDL_MOUSEBUTTONUP, bytes);
    case 11:
    case 12:
      return MakeMotionEvent({PositionX(bytes), PositionY(bytes)}, 0, WindowIdFrom(bytes[4]));
    case 13:
    case 14:
      return MakeWheelEvent({0, static_cast<std::int8_t>(bytes[1])}, {0, 0},
                            WindowIdFrom(bytes[4]));
    default:
      return RareEvent(bytes);
  }
}

}  // namespace

void PushEventFromBytes(const std::uint8_t* bytes) {
  const SDL_Event event = EventFrom(bytes);
  PointAtNewestWindow(PositionX(bytes), PositionY(bytes), (bytes[0] & 0x80) != 0);
  PushEvent(event);
}

}  // namespace quindle::testing
