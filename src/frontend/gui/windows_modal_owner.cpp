#include "frontend/gui/windows_modal_owner.h"

#include <SDL_syswm.h>

#include <cstring>

namespace quindle::frontend::gui {

#if defined(SDL_VIDEO_DRIVER_WINDOWS)

namespace {

// The names under which a dialog's window keeps its owner, and the system's window of the owner
// that takes no input because of it.
constexpr const char* kOwner = "quindle_owner";
constexpr const char* kDisabled = "quindle_disabled_owner";

// Null when the window is none of this driver.
HWND FindHandle(SDL_Window* window) {
  const char* driver = SDL_GetCurrentVideoDriver();
  SDL_SysWMinfo info{};
  SDL_VERSION(&info.version);
  const bool found = driver != nullptr && std::strcmp(driver, "windows") == 0 &&
                     SDL_GetWindowWMInfo(window, &info) == SDL_TRUE &&
                     info.subsystem == SDL_SYSWM_WINDOWS;
  return found ? info.info.win.window : nullptr;
}

void SetOwner(HWND window, HWND owner) {
  SetWindowLongPtrW(window, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
}

// One that takes no input already is left to whoever has seen to that.
void DisableOwner(SDL_Window* window, HWND owner) {
  if (EnableWindow(owner, FALSE) == 0) {
    SDL_SetWindowData(window, kDisabled, owner);
  }
}

// Windows destroys what a window owns together with it, and the host may make its window anew in a
// callback. SDL hides a window before it does so, and shows the new one.
int SDLCALL FollowOwner(void* dialog, SDL_Event* event) {
  auto* const window = static_cast<SDL_Window*>(dialog);
  auto* const owner = static_cast<SDL_Window*>(SDL_GetWindowData(window, kOwner));
  if (event->type != SDL_WINDOWEVENT || owner == nullptr ||
      SDL_GetWindowFromID(event->window.windowID) != owner) {
    return 0;
  }
  if (event->window.event == SDL_WINDOWEVENT_HIDDEN) {
    SetOwner(FindHandle(window), nullptr);
  } else if (event->window.event == SDL_WINDOWEVENT_SHOWN) {
    SetOwner(FindHandle(window), FindHandle(owner));
    DisableOwner(window, FindHandle(owner));
  }
  return 0;
}

}  // namespace

bool OwnWindowsModal(SDL_Window* window, SDL_Window* parent) {
  HWND const own = FindHandle(window);
  HWND const owner = own != nullptr ? FindHandle(parent) : nullptr;
  if (owner == nullptr) {
    return false;
  }
  SetOwner(own, owner);
  DisableOwner(window, owner);
  SDL_SetWindowData(window, kOwner, parent);
  SDL_AddEventWatch(&FollowOwner, window);
  return true;
}

void DisownWindowsModal(SDL_Window* window) {
  if (SDL_SetWindowData(window, kOwner, nullptr) == nullptr) {
    return;
  }
  SDL_DelEventWatch(&FollowOwner, window);
  HWND const disabled = static_cast<HWND>(SDL_SetWindowData(window, kDisabled, nullptr));
  if (disabled == nullptr) {
    return;
  }
  EnableWindow(disabled, TRUE);
  // One that has come to the front meanwhile could not have the keyboard.
  if (GetForegroundWindow() == disabled) {
    SetFocus(disabled);
  }
}

bool IsWindowsForeground(SDL_Window* window) {
  HWND const handle = FindHandle(window);
  return handle != nullptr && handle == GetForegroundWindow();
}

#else

bool OwnWindowsModal(SDL_Window* /*window*/, SDL_Window* /*parent*/) {
  return false;
}
void DisownWindowsModal(SDL_Window* /*window*/) {}
bool IsWindowsForeground(SDL_Window* /*window*/) {
  return false;
}

#endif

}  // namespace quindle::frontend::gui
