#pragma once

// Private. The Xlib functions that the other x11 files use, found at run time so that the library
// does not link Xlib, and the X11 side of an SDL window. Xlib's macros come with this header: only
// sources that talk to X11 include it.

#include <SDL.h>
#include <SDL_syswm.h>

#include <memory>
#include <optional>

namespace quindle::frontend::gui {

// Whether SDL's windows are those of X11 now.
bool IsX11Driver();

#if defined(SDL_VIDEO_DRIVER_X11)

struct UnloadSharedObject {
  void operator()(void* object) const noexcept { SDL_UnloadObject(object); }
};

// Xlib, for as long as this lives. SDL has loaded the same object already when its x11 driver runs.
class X11Library {
 public:
  X11Library();

  // False when the object or one of the functions is missing; then none of them may be called.
  bool IsLoaded() const { return is_loaded_; }

  Atom (*intern_atom)(Display*, const char*, Bool) = nullptr;
  int (*change_property)(Display*, Window, Atom, Atom, int, int, const unsigned char*,
                         int) = nullptr;
  int (*get_window_property)(Display*, Window, Atom, long, long, Bool, Atom, Atom*, int*,
                             unsigned long*, unsigned long*, unsigned char**) = nullptr;
  int (*free)(void*) = nullptr;
  int (*set_transient_for_hint)(Display*, Window, Window) = nullptr;
  int (*get_window_attributes)(Display*, Window, XWindowAttributes*) = nullptr;
  Bool (*translate_coordinates)(Display*, Window, Window, int, int, int*, int*, Window*) = nullptr;
  int (*get_input_focus)(Display*, Window*, int*) = nullptr;
  Status (*send_event)(Display*, Window, Bool, long, XEvent*) = nullptr;
  XErrorHandler (*set_error_handler)(XErrorHandler) = nullptr;
  int (*sync)(Display*, Bool) = nullptr;
  int (*flush)(Display*) = nullptr;

 private:
  template <typename Function>
  void Load(const char* name, Function** function);

  std::unique_ptr<void, UnloadSharedObject> object_;
  bool is_loaded_ = false;
};

// The X11 side of an SDL window.
struct X11Handle {
  Display* display;  // SDL's own connection.
  Window window;
};

// Empty when the window is none of X11.
std::optional<X11Handle> FindX11Handle(SDL_Window* window);

#endif

}  // namespace quindle::frontend::gui
