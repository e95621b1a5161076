#pragma once

#include <SDL.h>

namespace quindle::demo {

// Remembers the OpenGL context that is current; at its end that one is current again, unless there
// was none.
class GlContextGuard {
 public:
  GlContextGuard() : window_(SDL_GL_GetCurrentWindow()), context_(SDL_GL_GetCurrentContext()) {}
  GlContextGuard(const GlContextGuard&) = delete;
  GlContextGuard& operator=(const GlContextGuard&) = delete;
  GlContextGuard(GlContextGuard&&) = delete;
  GlContextGuard& operator=(GlContextGuard&&) = delete;
  ~GlContextGuard() {
    if (context_ != nullptr) {
      SDL_GL_MakeCurrent(window_, context_);
    }
  }

 private:
  SDL_Window* window_;
  SDL_GLContext context_;
};

}  // namespace quindle::demo
