#pragma once

// Private. The steps of a modal frame that every dialog repeats, and the guards around its loop.
// Nothing here calls back into a dialog; each dialog keeps its own loop and its own event handling.
// Windows and renderers are borrowed from the dialog's ModalWindowBundle.

#include <SDL.h>

namespace quindle::frontend::gui {

// Pause after each frame, in milliseconds; it paces the loop, as no renderer waits for vsync.
inline constexpr Uint32 kListFrameDelayMs = 8;    // pickers, HDD image, screenshot
inline constexpr Uint32 kPanelFrameDelayMs = 12;  // message box, About, settings, shader

// Offset of a mouse position that is nowhere: no rectangle of a dialog holds it.
inline constexpr int kPointerElsewhere = -1;

// Pointer in window pixels; (-1, -1) and not pressed while another window has the mouse.
struct ModalPointer {
  int x = kPointerElsewhere;
  int y = kPointerElsewhere;
  bool left_down = false;
};

// Reads the pointer as it is now. Called where the dialog's frame wants it.
ModalPointer ReadModalPointer(SDL_Window* window);

// Presents; after the first present also shows, raises and focuses the window and sets *shown. What
// the window system was too slow for, the focus and a place on the display, is made up for in a
// later frame.
void PresentModalFrame(SDL_Window* window, SDL_Renderer* renderer, bool* shown);

// Hands the focus back to the parent when it goes out of scope, by an exception too; before that
// the parent takes input again. Make it once the dialog is open: a failed opening must not touch
// the parent. Its place among the dialog's locals decides whether the dialog's window is still
// there at that moment.
class ModalParentFocus {
 public:
  ModalParentFocus(SDL_Window* parent, SDL_Window* window);
  ~ModalParentFocus();
  ModalParentFocus(const ModalParentFocus&) = delete;
  ModalParentFocus& operator=(const ModalParentFocus&) = delete;
  ModalParentFocus(ModalParentFocus&&) = delete;
  ModalParentFocus& operator=(ModalParentFocus&&) = delete;

 private:
  SDL_Window* parent_;
  Uint32 window_id_;
};

// Text input is on while this lives.
class ModalTextInput {
 public:
  ModalTextInput();
  ~ModalTextInput();
  ModalTextInput(const ModalTextInput&) = delete;
  ModalTextInput& operator=(const ModalTextInput&) = delete;
  ModalTextInput(ModalTextInput&&) = delete;
  ModalTextInput& operator=(ModalTextInput&&) = delete;
};

}  // namespace quindle::frontend::gui
