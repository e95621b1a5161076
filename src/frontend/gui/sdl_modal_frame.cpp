#include "frontend/gui/sdl_modal_frame.h"

#include "frontend/gui/modal_hints.h"
#include "frontend/gui/open_dialog.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/window_focus.h"
#include "frontend/gui/window_placement.h"

namespace quindle::frontend::gui {
ModalPointer ReadModalPointer(SDL_Window* window) {
  if (const void* driven = SDL_GetWindowData(window, kDrivenPointerKey)) {
    return *static_cast<const ModalPointer*>(driven);
  }
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
  } else {
    ShowFocusedWindow(window);
    MindWindowPlace(window);
    *shown = true;
  }
  MoveWindowOntoDisplay(window);
}

ModalParentFocus::ModalParentFocus(SDL_Window* parent, SDL_Window* window)
    : parent_(parent), window_id_(SDL_GetWindowID(window)) {}

ModalParentFocus::~ModalParentFocus() {
  if (SDL_Window* window = SDL_GetWindowFromID(window_id_)) {
    EndWindowModality(window);
  }
  RestoreModalParentFocus(parent_);
}

ModalTextInput::ModalTextInput() {
  SDL_StartTextInput();
}

ModalTextInput::~ModalTextInput() {
  SDL_StopTextInput();
}

}  // namespace quindle::frontend::gui
