#include "frontend/gui/window_focus.h"

#include "frontend/gui/x11_error_trap.h"
#include "frontend/gui/x11_modal_hints.h"

namespace quindle::frontend::gui {
namespace {

void RaiseAndFocus(SDL_Window* window, const X11ErrorTrap& trap) {
  SDL_RaiseWindow(window);
  trap.WaitUntilViewable();
  SDL_SetWindowInputFocus(window);
}

bool IsSameOrModalFor(SDL_Window* window, SDL_Window* other) {
  while (window != nullptr && window != other) {
    window = FindX11ModalParent(window);
  }
  return window != nullptr;
}

}  // namespace

void ShowFocusedWindow(SDL_Window* window) {
  const X11ErrorTrap trap(window);
  SDL_ShowWindow(window);
  RaiseAndFocus(window, trap);
}

void FocusShownWindow(SDL_Window* window) {
  const X11ErrorTrap trap(window);
  RaiseAndFocus(window, trap);
}

void KeepFocusOnWindow(SDL_Window* window) {
  SDL_Window* rival = SDL_GetKeyboardFocus();
  if (rival == window || FindX11ModalParent(window) == nullptr) {
    return;
  }
  if (rival == nullptr) {
    rival = SDL_GetMouseFocus();
  }
  if (rival == nullptr || !IsSameOrModalFor(window, rival)) {
    return;
  }
  // SDL hears of a focus late: what it names may be how things were before the dialog came.
  const X11ErrorTrap trap(window);
  if (trap.CanTakeFocusFrom(rival)) {
    RaiseAndFocus(window, trap);
  }
}

}  // namespace quindle::frontend::gui
