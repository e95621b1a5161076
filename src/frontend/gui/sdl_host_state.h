#pragma once

// Private. What of the host's a dialog would take away: its current OpenGL context, its captured
// mouse, its hidden cursor. All calls on the thread that runs the dialogs.

#include <SDL.h>

#include <utility>

namespace quindle::frontend::gui {

// An OpenGL context and the window it draws to; null where none is current.
struct GraphicsContext {
  SDL_GLContext context = nullptr;
  SDL_Window* window = nullptr;
  Uint32 window_id = 0;  // Tells whether the window is still there.
};

// Stands first in every function that shows a dialog. While it lives the mouse is free and visible;
// at its end, by an exception too, the host's context, relative mouse mode and hidden cursor are as
// they were. For a host that uses none of these it only asks.
class ModalHostState {
 public:
  ModalHostState();
  ~ModalHostState();
  ModalHostState(const ModalHostState&) = delete;
  ModalHostState& operator=(const ModalHostState&) = delete;
  ModalHostState(ModalHostState&&) = delete;
  ModalHostState& operator=(ModalHostState&&) = delete;

  const GraphicsContext& graphics() const { return graphics_; }

 private:
  ModalHostState* outer_;  // Of the dialog from inside whose own code this one was opened.
  GraphicsContext graphics_;
  bool relative_mouse_;
  bool hidden_cursor_;
};

// While this lives the host's own code runs: its context is current, and a dialog that it opens
// starts from what it finds.
class HostCallbackScope {
 public:
  HostCallbackScope();
  ~HostCallbackScope();
  HostCallbackScope(const HostCallbackScope&) = delete;
  HostCallbackScope& operator=(const HostCallbackScope&) = delete;
  HostCallbackScope(HostCallbackScope&&) = delete;
  HostCallbackScope& operator=(HostCallbackScope&&) = delete;

 private:
  ModalHostState* caller_;
};

// Calls a callback of the host's; an empty one does nothing.
template <typename Callback, typename... Arguments>
void CallHost(const Callback& callback, Arguments&&... arguments) {
  if (callback) {
    const HostCallbackScope scope;
    callback(std::forward<Arguments>(arguments)...);
  }
}

}  // namespace quindle::frontend::gui
