#include "frontend/gui/x11_modal_hints.h"

#include <array>
#include <cstring>

#include "frontend/gui/x11_library.h"

namespace quindle::frontend::gui {

X11DialogWindowType::X11DialogWindowType(bool wanted) : active_(wanted && IsX11Driver()) {
  if (!active_) {
    return;
  }
  if (const char* former = SDL_GetHint(SDL_HINT_X11_WINDOW_TYPE)) {
    former_ = former;
  }
  SDL_SetHint(SDL_HINT_X11_WINDOW_TYPE, "_NET_WM_WINDOW_TYPE_DIALOG");
}

X11DialogWindowType::~X11DialogWindowType() {
  if (active_) {
    SDL_SetHint(SDL_HINT_X11_WINDOW_TYPE, former_ ? former_->c_str() : nullptr);
  }
}

#if defined(SDL_VIDEO_DRIVER_X11)

namespace {

constexpr Atom kXaAtom = 4;  // The predefined atom of the type "ATOM".
constexpr const char* kModalState = "_NET_WM_STATE_MODAL";

void SetModalState(const X11Library& xlib, const X11Handle& handle) {
  const std::array<Atom, 2> states{
      xlib.intern_atom(handle.display, kModalState, False),
      xlib.intern_atom(handle.display, "_NET_WM_STATE_SKIP_TASKBAR", False)};
  std::array<unsigned char, sizeof(states)> bytes{};
  std::memcpy(bytes.data(), states.data(), sizeof(states));
  xlib.change_property(handle.display, handle.window,
                       xlib.intern_atom(handle.display, "_NET_WM_STATE", False), kXaAtom, 32,
                       PropModeReplace, bytes.data(), static_cast<int>(states.size()));
}

}  // namespace

bool HintX11Modal(SDL_Window* window, SDL_Window* parent) {
  if (!IsX11Driver()) {
    return false;
  }
  const std::optional<X11Handle> own = FindX11Handle(window);
  const std::optional<X11Handle> owner = own ? FindX11Handle(parent) : std::nullopt;
  const X11Library xlib;
  if (!owner || !xlib.IsLoaded()) {
    return false;
  }
  xlib.set_transient_for_hint(own->display, own->window, owner->window);
  SetModalState(xlib, *own);
  xlib.flush(own->display);
  return true;
}

#else

bool HintX11Modal(SDL_Window* /*window*/, SDL_Window* /*parent*/) {
  return false;
}

#endif

}  // namespace quindle::frontend::gui
