#include "frontend/gui/x11_library.h"

#include <cstring>

namespace quindle::frontend::gui {

bool IsX11Driver() {
  const char* driver = SDL_GetCurrentVideoDriver();
  return driver != nullptr && std::strcmp(driver, "x11") == 0;
}

#if defined(SDL_VIDEO_DRIVER_X11)

X11Library::X11Library() : object_(SDL_LoadObject("libX11.so.6")) {
  is_loaded_ = object_ != nullptr;
  Load("XInternAtom", &intern_atom);
  Load("XChangeProperty", &change_property);
  Load("XGetWindowProperty", &get_window_property);
  Load("XFree", &free);
  Load("XSetTransientForHint", &set_transient_for_hint);
  Load("XGetWindowAttributes", &get_window_attributes);
  Load("XTranslateCoordinates", &translate_coordinates);
  Load("XGetInputFocus", &get_input_focus);
  Load("XSendEvent", &send_event);
  Load("XSetErrorHandler", &set_error_handler);
  Load("XSync", &sync);
  Load("XFlush", &flush);
}

template <typename Function>
void X11Library::Load(const char* name, Function** function) {
  void* address = is_loaded_ ? SDL_LoadFunction(object_.get(), name) : nullptr;
  is_loaded_ = address != nullptr;
  std::memcpy(function, &address, sizeof(address));
}

std::optional<X11Handle> FindX11Handle(SDL_Window* window) {
  SDL_SysWMinfo info{};
  SDL_VERSION(&info.version);
  if (SDL_GetWindowWMInfo(window, &info) != SDL_TRUE || info.subsystem != SDL_SYSWM_X11) {
    return std::nullopt;
  }
  return X11Handle{info.info.x11.display, info.info.x11.window};
}

#endif

}  // namespace quindle::frontend::gui
