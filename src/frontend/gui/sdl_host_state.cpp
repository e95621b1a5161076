#include "frontend/gui/sdl_host_state.h"

namespace quindle::frontend::gui {
namespace {

// The state that the innermost dialog has set aside; null while code of the host runs.
ModalHostState* g_innermost = nullptr;

GraphicsContext CurrentGraphicsContext() {
  GraphicsContext current;
  current.context = SDL_GL_GetCurrentContext();
  if (current.context != nullptr) {
    current.window = SDL_GL_GetCurrentWindow();
    current.window_id = SDL_GetWindowID(current.window);
  }
  return current;
}

bool IsCurrent(const GraphicsContext& graphics) {
  return SDL_GL_GetCurrentContext() == graphics.context &&
         SDL_GL_GetCurrentWindow() == graphics.window;
}

// Does nothing for a host without a context, and when the host has destroyed the window meanwhile.
void MakeCurrent(const GraphicsContext& graphics) {
  if (graphics.context != nullptr && !IsCurrent(graphics) &&
      SDL_GetWindowFromID(graphics.window_id) == graphics.window) {
    SDL_GL_MakeCurrent(graphics.window, graphics.context);
  }
}

}  // namespace

ModalHostState::ModalHostState()
    : outer_(g_innermost),
      graphics_(outer_ != nullptr ? outer_->graphics_ : CurrentGraphicsContext()),
      relative_mouse_(SDL_GetRelativeMouseMode() == SDL_TRUE),
      hidden_cursor_(SDL_ShowCursor(SDL_QUERY) == SDL_DISABLE) {
  g_innermost = this;
  if (relative_mouse_) {
    SDL_SetRelativeMouseMode(SDL_FALSE);
  }
  if (hidden_cursor_) {
    SDL_ShowCursor(SDL_ENABLE);
  }
}

ModalHostState::~ModalHostState() {
  if (hidden_cursor_) {
    SDL_ShowCursor(SDL_DISABLE);
  }
  if (relative_mouse_) {
    SDL_SetRelativeMouseMode(SDL_TRUE);
  }
  g_innermost = outer_;
  MakeCurrent(graphics_);
}

HostCallbackScope::HostCallbackScope() : caller_(g_innermost) {
  if (caller_ != nullptr) {
    MakeCurrent(caller_->graphics());
  }
  g_innermost = nullptr;
}

HostCallbackScope::~HostCallbackScope() {
  g_innermost = caller_;
}

}  // namespace quindle::frontend::gui
