#include "frontend/gui/x11_modal_hints.h"

#include <array>
#include <cstring>

#include "frontend/gui/x11_error_trap.h"
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

void UnhintX11Modal(SDL_Window* window) {
  if (!IsX11Driver()) {
    return;
  }
  const X11ErrorTrap trap(window);
  const std::optional<X11Handle> own = FindX11Handle(window);
  const X11Library xlib;
  XWindowAttributes attributes{};
  if (!own || !xlib.IsLoaded() ||
      xlib.get_window_attributes(own->display, own->window, &attributes) == 0) {
    return;
  }
  constexpr long kRemove = 0;
  constexpr long kFromApplication = 1;
  XEvent request{};
  request.xclient.type = ClientMessage;
  request.xclient.window = own->window;
  request.xclient.message_type = xlib.intern_atom(own->display, "_NET_WM_STATE", False);
  request.xclient.format = 32;
  request.xclient.data.l[0] = kRemove;
  request.xclient.data.l[1] = static_cast<long>(xlib.intern_atom(own->display, kModalState, False));
  request.xclient.data.l[3] = kFromApplication;
  xlib.send_event(own->display, attributes.root, False,
                  SubstructureRedirectMask | SubstructureNotifyMask, &request);
  xlib.flush(own->display);
}

#else

bool HintX11Modal(SDL_Window* /*window*/, SDL_Window* /*parent*/) {
  return false;
}
void UnhintX11Modal(SDL_Window* /*window*/) {}

#endif

}  // namespace quindle::frontend::gui
