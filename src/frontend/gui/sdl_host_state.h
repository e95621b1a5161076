#pragma once

// Private. What of the host's a dialog would take away: its current OpenGL context, its captured
// mouse, its hidden cursor. All calls on the thread that runs the dialogs. Of a host that uses none
// of these, SDL is only asked.

#include <SDL.h>

#include <array>
#include <utility>

namespace quindle::frontend::gui {

// An OpenGL context and the window it draws to; null where none is current.
struct GraphicsContext {
  SDL_GLContext context = nullptr;
  SDL_Window* window = nullptr;
  Uint32 window_id = 0;  // Tells whether the window is still there.
};

// Stands first in every function that shows a dialog. While it lives the mouse is free and visible;
// at its end, by an exception too, the host's context, relative mouse mode and hidden cursor are
// there again: as they were at its beginning, or as a callback of the host's has left them since.
class ModalHostState {
 public:
  ModalHostState();
  ~ModalHostState();
  ModalHostState(const ModalHostState&) = delete;
  ModalHostState& operator=(const ModalHostState&) = delete;
  ModalHostState(ModalHostState&&) = delete;
  ModalHostState& operator=(ModalHostState&&) = delete;

  // The context that the host works with, whether or not it is current.
  GraphicsContext Graphics() const;

  bool RunsHostCode() const { return runs_host_code_; }
  void EnterHostCode();
  void LeaveHostCode();

 private:
  void FreeMouse();

  ModalHostState* outer_;
  // Opened by another dialog's own code: that one has set everything aside.
  bool is_covered_;
  GraphicsContext graphics_;
  bool relative_mouse_ = false;
  bool hidden_cursor_ = false;
  bool runs_host_code_ = false;
  GraphicsContext found_by_host_code_;
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

// Stands around the making of a dialog's renderer. SDL's renderers ask for their own kind of OpenGL
// context through settings of the whole process; at the end of this a host that has a context finds
// it current, and these settings as they were.
class HostGraphicsSettings {
 public:
  HostGraphicsSettings();
  ~HostGraphicsSettings();
  HostGraphicsSettings(const HostGraphicsSettings&) = delete;
  HostGraphicsSettings& operator=(const HostGraphicsSettings&) = delete;
  HostGraphicsSettings(HostGraphicsSettings&&) = delete;
  HostGraphicsSettings& operator=(HostGraphicsSettings&&) = delete;

 private:
  GraphicsContext graphics_;
  std::array<int, 3> attributes_{};
  // Of the host's window; where SDL waits for the display itself it has one for all windows.
  int swap_interval_ = 0;
};

}  // namespace quindle::frontend::gui
