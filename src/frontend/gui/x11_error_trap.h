#pragma once

// Private. X11 requests that may fail because a window manager is slow or has its own mind. Xlib's
// own answer to an error is the end of the process. On any other video driver, and where Xlib
// cannot be loaded, all of this does nothing.

#include <SDL.h>

#include <optional>

#include "frontend/gui/x11_library.h"

namespace quindle::frontend::gui {

// What a window manager puts around a window, in pixels.
struct FrameSize {
  int left = 0;
  int right = 0;
  int top = 0;
  int bottom = 0;
};

// While this lives, X errors of SDL's connection to the display are passed over, whoever's call has
// caused them; errors of other connections go where they went before. Events stay in SDL's queue.
class X11ErrorTrap {
 public:
  // `window` is the one that is waited for and asked about below.
  explicit X11ErrorTrap(SDL_Window* window);
  ~X11ErrorTrap();
  X11ErrorTrap(const X11ErrorTrap&) = delete;
  X11ErrorTrap& operator=(const X11ErrorTrap&) = delete;
  X11ErrorTrap(X11ErrorTrap&&) = delete;
  X11ErrorTrap& operator=(X11ErrorTrap&&) = delete;

  // Waits, for a few hundred milliseconds at most, while the window is mapped but what holds it is
  // not: only a viewable window can get the focus. Returns at once for a window that is not mapped,
  // as nothing promises that it ever will be. False when the time was too short.
  bool WaitUntilViewable() const;

  // Whether the window is on the screen. True outside X11.
  bool IsOnScreen() const;

  // Where the window's inside begins on the screen, and what is around it; no frame while the
  // window manager has not told of one. Outside X11 what SDL knows; on X11 that may be how things
  // were before the window was put into its frame.
  SDL_Point Position() const;
  std::optional<FrameSize> Frame() const;

  // Whether the window is on the screen while `rival` has the keyboard, or while the keys go
  // wherever the pointer is. False outside X11.
  bool CanTakeFocusFrom(SDL_Window* rival) const;

 private:
  SDL_Window* window_;
#if defined(SDL_VIDEO_DRIVER_X11)
  int MapState() const;

  struct Connection {
    X11Library library;
    X11Handle handle;
    Display* former_display;
    XErrorHandler former_handler;
  };
  std::optional<Connection> x11_;
#endif
};

}  // namespace quindle::frontend::gui
