#pragma once

// Private. What X11 wants to hear before it treats a window as a dialog. On any other video driver,
// and where the Xlib library cannot be loaded, all of this does nothing.

#include <SDL.h>

#include <optional>
#include <string>

namespace quindle::frontend::gui {

// While this lives, SDL makes its X11 windows with the dialog window type; the host's own value of
// the hint is put back afterwards. It must cover the renderer's creation too, because SDL makes the
// X11 window anew when the renderer needs other window attributes.
class X11DialogWindowType {
 public:
  // Does nothing when `wanted` is false.
  explicit X11DialogWindowType(bool wanted);
  ~X11DialogWindowType();
  X11DialogWindowType(const X11DialogWindowType&) = delete;
  X11DialogWindowType& operator=(const X11DialogWindowType&) = delete;
  X11DialogWindowType(X11DialogWindowType&&) = delete;
  X11DialogWindowType& operator=(X11DialogWindowType&&) = delete;

 private:
  bool active_;
  std::optional<std::string> former_;
};

// Marks a window that is still hidden as modal for `parent` and as no entry of task bars. Also says
// again which window it belongs to: the relation set at its creation is lost when SDL makes the X11
// window anew for its renderer. Returns whether it could.
bool HintX11Modal(SDL_Window* window, SDL_Window* parent);

// Takes the modal state off a window that is shown. Some window managers give the focus of a parent
// back to its modal window, which must not happen when that is about to go: keys that are pressed
// meanwhile would be lost.
void UnhintX11Modal(SDL_Window* window);

}  // namespace quindle::frontend::gui
