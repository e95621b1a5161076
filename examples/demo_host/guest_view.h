#pragma once

#include <SDL.h>

#include <string>

#include "guest_picture.h"

namespace quindle::demo {

// How the guest picture gets onto the demo window. A view is used and destroyed while the window's
// renderer and SDL video are up.
class GuestView {
 public:
  GuestView() = default;
  GuestView(const GuestView&) = delete;
  GuestView& operator=(const GuestView&) = delete;
  virtual ~GuestView() = default;

  // Draws `picture` over all of `area`, in pixels of `renderer`'s window.
  virtual void Draw(SDL_Renderer* renderer, const GuestPicture& picture, const SDL_Rect& area) = 0;
  // False when what the view draws with was taken away since it was drawn last.
  virtual bool IsReady() const { return true; }
  // A few words for the status line; empty: nothing to say.
  virtual std::string Describe() const = 0;
};

// Scales the picture as it is.
class PlainGuestView : public GuestView {
 public:
  void Draw(SDL_Renderer* renderer, const GuestPicture& picture, const SDL_Rect& area) override;
  std::string Describe() const override { return ""; }
};

// The largest rectangle of the guest's 4:3 shape in `area`, centred.
SDL_Rect FitGuestPicture(const SDL_Rect& area);

}  // namespace quindle::demo
