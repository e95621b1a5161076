#pragma once

// Private to the recorder. An OpenGL for the dummy driver, which has none: it knows which context
// is current, and the renderers made while it is there behave as SDL's own do.

#include <SDL.h>

#include <map>

namespace quindle::testing {

class FakeOpenGl {
 public:
  // From now on there is one, with a context of the host's that is current on `window`.
  SDL_GLContext Start(SDL_Window* window);
  bool IsThere() const { return is_there_; }

  SDL_GLContext context() const { return context_; }
  SDL_Window* window() const { return window_; }
  void MakeCurrent(SDL_Window* window, SDL_GLContext context);
  int Attribute(SDL_GLattr attribute) const;
  void SetAttribute(SDL_GLattr attribute, int value);
  // Of the current window.
  int SwapInterval() const;
  void SetSwapInterval(int interval);

  // Each renderer has a context of its own, of a kind of its own: current from when it is made, and
  // again whenever it presents; none is current when it has gone or could not be made. Making one
  // ends all waiting for the display, as it does where SDL has one interval for all windows.
  void RendererMade(SDL_Window* window, SDL_Renderer* renderer);
  void RendererPresents(SDL_Window* window, SDL_Renderer* renderer);
  void RendererEnds();
  // SDL lets go of the context that draws to it.
  void WindowEnds(SDL_Window* window);

 private:
  bool is_there_ = false;
  SDL_GLContext context_ = nullptr;
  SDL_Window* window_ = nullptr;
  std::map<SDL_GLattr, int> attributes_;
  std::map<SDL_Window*, int> swap_intervals_;
};

}  // namespace quindle::testing
