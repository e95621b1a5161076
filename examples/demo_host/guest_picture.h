#pragma once

#include <SDL.h>

#include "frontend/gui/sdl_modal_runtime.h"

namespace quindle::demo {

// The screen of the emulated PC: a moving test card on an indexed canvas of 320x200 pixels, meant
// to be shown at 4:3 as the monitors of its time did.
class GuestPicture {
 public:
  static constexpr int kWidth = 320;
  static constexpr int kHeight = 200;
  static constexpr int kAspectWidth = 4;
  static constexpr int kAspectHeight = 3;

  // Draws frame 0. Throws std::runtime_error when the canvas cannot be made.
  GuestPicture();

  // Draws the next frame.
  void Advance();
  // Draws frame `frame`, 0 or more; the same number always gives the same picture.
  void DrawFrame(int frame);

  int Frame() const { return frame_; }
  // The canvas: 8 bits a pixel, with its palette of 256 colours.
  // Lifetime: owned by this object; the next frame is drawn over it.
  SDL_Surface* Canvas() const { return canvas_.get(); }

 private:
  frontend::gui::OwnedSdlSurface canvas_;
  int frame_ = 0;
};

}  // namespace quindle::demo
