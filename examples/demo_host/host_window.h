#pragma once

#include <SDL.h>

#include <string>
#include <vector>

#include "command_table.h"
#include "demo_session.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "host_layout.h"

namespace quindle::demo {

// The demo host's window: the animated guest picture, a button for each dialog, the last result.
class HostWindow {
 public:
  // Opens the window and attaches the commands to its session. Throws NothingShownError when there
  // can be no window. Lifetime: `commands` must outlive the window.
  explicit HostWindow(const DemoCommands& commands);
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;
  ~HostWindow();

  // Runs until the window is closed. Registers the heartbeat, through which the animation goes on
  // while a dialog blocks.
  void Run();

  // Makes the next guest frame and redraws when it is due.
  void Tick();
  // Makes the next guest frame, without drawing.
  void AdvanceGuest() { session_.guest.Advance(); }
  void Draw();

  // How often the guest view's OpenGL context was not there when a picture was due.
  int LostContexts() const { return lost_contexts_; }
  const GuestView& View() const { return *session_.view; }

  SDL_Window* Window() const { return bundle_.window.get(); }
  void SetResultText(std::string text) { result_text_ = std::move(text); }

 private:
  static int SDLCALL WatchForQuit(void* self, SDL_Event* event);

  int MillisecondsToNextFrame() const;
  void HandleEvent(const SDL_Event& event);
  void HandleMouseRelease(const SDL_MouseButtonEvent& event);
  void HandleKey(SDL_Keycode key);
  void RunCommand(int index);
  HostLayout Layout() const;
  std::vector<int> CaptionWidths() const;
  std::string StatusText() const;
  void DrawButtons(const HostLayout& layout) const;

  const DemoCommands& commands_;
  frontend::gui::ModalWindowBundle bundle_;
  DemoSession session_;
  std::vector<std::string> captions_;
  std::string result_text_ =
      "Press a button, or the number key before its name. G: guest through OpenGL, M: capture the "
      "mouse, F11: full screen.";
  Uint64 next_frame_ms_ = 0;  // SDL_GetTicks64 time of the next guest frame.
  int lost_contexts_ = 0;
  int pressed_button_ = -1;  // Where the left button went down; -1: nowhere.
  bool dialog_open_ = false;
  bool closing_ = false;
};

}  // namespace quindle::demo
