#include "frontend/gui/window_focus.h"

#include "frontend/gui/modal_hints.h"
#include "frontend/gui/windows_modal_owner.h"
#include "frontend/gui/x11_error_trap.h"

namespace quindle::frontend::gui {
namespace {

// The name under which a dialog's window keeps that it could not have the focus yet.
constexpr const char* kFocusIsDue = "quindle_focus_is_due";

// False when the window system was too slow to show the window, which thus got no focus.
bool RaiseAndFocus(SDL_Window* window, const X11ErrorTrap& trap) {
  SDL_RaiseWindow(window);
  const bool viewable = trap.WaitUntilViewable();
  SDL_SetWindowInputFocus(window);
  return viewable;
}

void FocusOnceViewable(SDL_Window* window) {
  const X11ErrorTrap trap(window);
  if (trap.IsOnScreen()) {
    SDL_SetWindowData(window, kFocusIsDue, nullptr);
    RaiseAndFocus(window, trap);
  }
}

bool IsSameOrModalFor(SDL_Window* window, SDL_Window* other) {
  while (window != nullptr && window != other) {
    window = FindModalParent(window);
  }
  return window != nullptr;
}

}  // namespace

void ShowFocusedWindow(SDL_Window* window) {
  const X11ErrorTrap trap(window);
  SDL_ShowWindow(window);
  if (!RaiseAndFocus(window, trap)) {
    SDL_SetWindowData(window, kFocusIsDue, window);
  }
}

void FocusShownWindow(SDL_Window* window) {
  const X11ErrorTrap trap(window);
  RaiseAndFocus(window, trap);
}

void KeepFocusOnWindow(SDL_Window* window) {
  if (SDL_GetWindowData(window, kFocusIsDue) != nullptr) {
    FocusOnceViewable(window);
    return;
  }
  SDL_Window* rival = SDL_GetKeyboardFocus();
  if (rival == window || FindModalParent(window) == nullptr) {
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
  if (trap.CanTakeFocusFrom(rival) || IsWindowsForeground(rival)) {
    RaiseAndFocus(window, trap);
  }
}

}  // namespace quindle::frontend::gui
