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
  SDL_Window* const focused = SDL_GetKeyboardFocus();
  if (focused == nullptr || focused == window || !IsX11WindowModalFor(window, focused)) {
    return;
  }
  // SDL hears of a focus late: what it names may be how things were before the dialog came.
  const X11ErrorTrap trap(window);
  if (trap.IsViewableWhileOtherHasFocus(focused)) {
    RaiseAndFocus(window, trap);
  }
}

}  // namespace quindle::frontend::gui
