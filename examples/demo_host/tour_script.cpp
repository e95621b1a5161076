#include "tour_script.h"

#include <algorithm>
#include <utility>

#include "push_event.h"

namespace quindle::demo {
namespace {

constexpr int kDragSteps = 4;

SDL_Point PointInWindow(SDL_Window* window, int x, int y) {
  int width = 0;
  int height = 0;
  SDL_GetWindowSize(window, &width, &height);
  return {x < 0 ? width + x : x, y < 0 ? height + y : y};
}

void PushKey(SDL_Window* window, Uint32 type, SDL_Keycode key, Uint16 modifiers) {
  SDL_Event event{};
  event.type = type;
  event.key.windowID = SDL_GetWindowID(window);
  event.key.state = type == SDL_KEYDOWN ? SDL_PRESSED : SDL_RELEASED;
  event.key.keysym.sym = key;
  event.key.keysym.scancode = SDL_GetScancodeFromKey(key);
  event.key.keysym.mod = modifiers;
  PushEvent(event);
}

void PushText(SDL_Window* window, const std::string& character) {
  SDL_Event event{};
  event.type = SDL_TEXTINPUT;
  event.text.windowID = SDL_GetWindowID(window);
  SDL_utf8strlcpy(event.text.text, character.c_str(), sizeof event.text.text);
  PushEvent(event);
}

void PushButton(SDL_Window* window, Uint32 type, int x, int y, int clicks) {
  const SDL_Point point = PointInWindow(window, x, y);
  SDL_Event event{};
  event.type = type;
  event.button.windowID = SDL_GetWindowID(window);
  event.button.button = SDL_BUTTON_LEFT;
  event.button.state = type == SDL_MOUSEBUTTONDOWN ? SDL_PRESSED : SDL_RELEASED;
  event.button.clicks = static_cast<Uint8>(clicks);
  event.button.x = point.x;
  event.button.y = point.y;
  PushEvent(event);
}

void PushMotion(SDL_Window* window, int x, int y, Uint32 held) {
  const SDL_Point point = PointInWindow(window, x, y);
  SDL_Event event{};
  event.type = SDL_MOUSEMOTION;
  event.motion.windowID = SDL_GetWindowID(window);
  event.motion.state = held;
  event.motion.x = point.x;
  event.motion.y = point.y;
  PushEvent(event);
}

void PushWheel(SDL_Window* window, int notches) {
  SDL_Event event{};
  event.type = SDL_MOUSEWHEEL;
  event.wheel.windowID = SDL_GetWindowID(window);
  event.wheel.y = notches;
  event.wheel.preciseY = static_cast<float>(notches);
  PushEvent(event);
}

void PushClick(SDL_Window* window, int x, int y, int clicks) {
  PushMotion(window, x, y, 0);
  for (int click = 1; click <= clicks; ++click) {
    PushButton(window, SDL_MOUSEBUTTONDOWN, x, y, click);
    PushButton(window, SDL_MOUSEBUTTONUP, x, y, click);
  }
}

size_t CharacterLength(char first_byte) {
  const auto byte = static_cast<unsigned char>(first_byte);
  return byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

}  // namespace

TourScript& TourScript::Key(SDL_Keycode key, Uint16 modifiers) {
  return Do([=](TourStage& stage) {
    PushKey(stage.Dialog(), SDL_KEYDOWN, key, modifiers);
    PushKey(stage.Dialog(), SDL_KEYUP, key, modifiers);
  });
}

TourScript& TourScript::Text(const std::string& text) {
  for (size_t at = 0; at < text.size();) {
    const size_t length = CharacterLength(text[at]);
    Do([character = text.substr(at, length)](TourStage& stage) {
      PushText(stage.Dialog(), character);
    });
    at += length;
  }
  return *this;
}

TourScript& TourScript::Click(int x, int y, int clicks) {
  return Do([=](TourStage& stage) { PushClick(stage.Dialog(), x, y, clicks); });
}

TourScript& TourScript::Press(int x, int y) {
  return Do([=](TourStage& stage) { PushButton(stage.Dialog(), SDL_MOUSEBUTTONDOWN, x, y, 1); });
}

TourScript& TourScript::Move(int x, int y) {
  return Do([=](TourStage& stage) { PushMotion(stage.Dialog(), x, y, SDL_BUTTON_LMASK); });
}

TourScript& TourScript::Release(int x, int y) {
  return Do([=](TourStage& stage) { PushButton(stage.Dialog(), SDL_MOUSEBUTTONUP, x, y, 1); });
}

TourScript& TourScript::Drag(SDL_Point from, SDL_Point to) {
  Press(from.x, from.y);
  for (int i = 1; i <= kDragSteps; ++i) {
    Do([=](TourStage& stage) {
      const SDL_Point start = PointInWindow(stage.Dialog(), from.x, from.y);
      const SDL_Point end = PointInWindow(stage.Dialog(), to.x, to.y);
      PushMotion(stage.Dialog(), start.x + (end.x - start.x) * i / kDragSteps,
                 start.y + (end.y - start.y) * i / kDragSteps, SDL_BUTTON_LMASK);
    });
  }
  return Release(to.x, to.y);
}

TourScript& TourScript::Wheel(int notches) {
  return Do([=](TourStage& stage) { PushWheel(stage.Dialog(), notches); });
}

TourScript& TourScript::Hover(int x, int y) {
  return Do([=](TourStage& stage) {
    const SDL_Point point = PointInWindow(stage.Dialog(), x, y);
    SDL_WarpMouseInWindow(stage.Dialog(), point.x, point.y);
  });
}

TourScript& TourScript::Wait(int frames) {
  for (int i = 0; i < frames; ++i) {
    Do([](TourStage&) {});
  }
  return *this;
}

TourScript& TourScript::Save(const std::string& name) {
  return Do([name](TourStage& stage) { stage.SavePicture(name); });
}

TourScript& TourScript::SaveOverHost(const std::string& name) {
  return Do([name](TourStage& stage) { stage.SavePictureOverHost(name); });
}

TourScript& TourScript::Close() {
  return Do([](TourStage& stage) { PushCloseEvent(stage.Dialog()); });
}

TourScript& TourScript::Do(TourStep step) {
  steps_.push_back(std::move(step));
  return *this;
}

void PushClickEvents(SDL_Window* window, int x, int y) {
  PushClick(window, x, y, 1);
}

void PushCloseEvent(SDL_Window* window) {
  SDL_Event event{};
  event.type = SDL_WINDOWEVENT;
  event.window.windowID = SDL_GetWindowID(window);
  event.window.event = SDL_WINDOWEVENT_CLOSE;
  PushEvent(event);
}

}  // namespace quindle::demo
