#include "frontend/gui/sdl_modal_frame.h"

#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/window_focus.h"
#include "frontend/gui/window_placement.h"

namespace quindle::frontend::gui {
namespace {

bool IsWindowEventOfOtherWindow(SDL_Window* window, const SDL_Event& event) {
  return event.type == SDL_WINDOWEVENT && event.window.windowID != SDL_GetWindowID(window);
}

// The window that a mouse event names; 0 for any other event.
Uint32 MouseEventWindowId(const SDL_Event& event) {
  switch (event.type) {
    case SDL_MOUSEMOTION:
      return event.motion.windowID;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
      return event.button.windowID;
    case SDL_MOUSEWHEEL:
      return event.wheel.windowID;
    default:
      return 0;
  }
}

}  // namespace

bool PollModalEvent(SDL_Window* window, SDL_Event* event) {
  while (SDL_PollEvent(event) != 0) {
    if (!IsWindowEventOfOtherWindow(window, *event)) {
      return true;
    }
  }
  return false;
}

bool IsModalCancelEvent(const SDL_Event& event) {
  return event.type == SDL_QUIT ||
         (event.type == SDL_WINDOWEVENT && event.window.event == SDL_WINDOWEVENT_CLOSE);
}

bool IsMouseEventOfOtherWindow(SDL_Window* window, const SDL_Event& event) {
  const Uint32 id = MouseEventWindowId(event);
  return id != 0 && id != SDL_GetWindowID(window);
}

bool IsLeftButtonEvent(const SDL_Event& event) {
  return (event.type == SDL_MOUSEBUTTONDOWN || event.type == SDL_MOUSEBUTTONUP) &&
         event.button.button == SDL_BUTTON_LEFT;
}

ModalPointer ReadModalPointer(SDL_Window* window) {
  ModalPointer pointer;
  if (SDL_GetMouseFocus() == window) {
    const Uint32 buttons = SDL_GetMouseState(&pointer.x, &pointer.y);
    pointer.left_down = (buttons & SDL_BUTTON_LMASK) != 0;
  }
  return pointer;
}

void PresentModalFrame(SDL_Window* window, SDL_Renderer* renderer, bool* shown) {
  SDL_RenderPresent(renderer);
  if (*shown) {
    KeepFocusOnWindow(window);
    return;
  }
  ShowFocusedWindow(window);
  MoveWindowOntoDisplay(window);
  *shown = true;
}

ModalParentFocus::~ModalParentFocus() {
  RestoreModalParentFocus(parent_);
}

ModalTextInput::ModalTextInput() {
  SDL_StartTextInput();
}

ModalTextInput::~ModalTextInput() {
  SDL_StopTextInput();
}

}  // namespace quindle::frontend::gui
