#include "frontend/gui/sdl_host_state.h"

namespace quindle::frontend::gui {
namespace {

// That of the innermost dialog which is not covered by another's; null while no dialog is open.
ModalHostState* g_innermost = nullptr;

constexpr std::array<SDL_GLattr, 3> kContextAttributes{
    SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_MAJOR_VERSION, SDL_GL_CONTEXT_MINOR_VERSION};

GraphicsContext CurrentGraphics() {
  GraphicsContext current;
  current.context = SDL_GL_GetCurrentContext();
  if (current.context != nullptr) {
    current.window = SDL_GL_GetCurrentWindow();
    current.window_id = SDL_GetWindowID(current.window);
  }
  return current;
}

bool AreSame(const GraphicsContext& a, const GraphicsContext& b) {
  return a.context == b.context && a.window == b.window;
}

GraphicsContext HostGraphics() {
  return g_innermost == nullptr ? CurrentGraphics() : g_innermost->Graphics();
}

// Does nothing for a host without a context, and when the host has destroyed the window meanwhile.
void MakeCurrent(const GraphicsContext& graphics) {
  if (graphics.context != nullptr && SDL_GetWindowFromID(graphics.window_id) == graphics.window) {
    SDL_GL_MakeCurrent(graphics.window, graphics.context);
  }
}

}  // namespace

ModalHostState::ModalHostState()
    : outer_(g_innermost), is_covered_(outer_ != nullptr && !outer_->RunsHostCode()) {
  if (is_covered_) {
    return;
  }
  graphics_ = HostGraphics();
  g_innermost = this;
  FreeMouse();
}

ModalHostState::~ModalHostState() {
  if (is_covered_) {
    return;
  }
  if (hidden_cursor_) {
    SDL_ShowCursor(SDL_DISABLE);
  }
  if (relative_mouse_) {
    SDL_SetRelativeMouseMode(SDL_TRUE);
  }
  g_innermost = outer_;
  MakeCurrent(graphics_);
}

GraphicsContext ModalHostState::Graphics() const {
  if (runs_host_code_) {
    const GraphicsContext current = CurrentGraphics();
    // What the host's code has found and left alone may be a dialog's.
    return AreSame(current, found_by_host_code_) ? graphics_ : current;
  }
  return graphics_;
}

void ModalHostState::EnterHostCode() {
  MakeCurrent(graphics_);
  found_by_host_code_ = CurrentGraphics();
  runs_host_code_ = true;
}

void ModalHostState::LeaveHostCode() {
  graphics_ = Graphics();
  runs_host_code_ = false;
  FreeMouse();
}

void ModalHostState::FreeMouse() {
  // Before SDL video runs its cursor counts as hidden; the first window starts it.
  if (SDL_WasInit(SDL_INIT_VIDEO) == 0) {
    return;
  }
  if (SDL_GetRelativeMouseMode() == SDL_TRUE) {
    relative_mouse_ = true;
    SDL_SetRelativeMouseMode(SDL_FALSE);
  }
  if (SDL_ShowCursor(SDL_QUERY) == SDL_DISABLE) {
    hidden_cursor_ = true;
    SDL_ShowCursor(SDL_ENABLE);
  }
}

HostCallbackScope::HostCallbackScope()
    : caller_(g_innermost != nullptr && !g_innermost->RunsHostCode() ? g_innermost : nullptr) {
  if (caller_ != nullptr) {
    caller_->EnterHostCode();
  }
}

HostCallbackScope::~HostCallbackScope() {
  if (caller_ != nullptr) {
    caller_->LeaveHostCode();
  }
}

HostGraphicsSettings::HostGraphicsSettings() : graphics_(HostGraphics()) {
  if (graphics_.context == nullptr) {
    return;
  }
  for (std::size_t i = 0; i < attributes_.size(); ++i) {
    SDL_GL_GetAttribute(kContextAttributes[i], &attributes_[i]);
  }
  MakeCurrent(graphics_);
  swap_interval_ = SDL_GL_GetSwapInterval();
}

HostGraphicsSettings::~HostGraphicsSettings() {
  if (graphics_.context == nullptr) {
    return;
  }
  for (std::size_t i = 0; i < attributes_.size(); ++i) {
    SDL_GL_SetAttribute(kContextAttributes[i], attributes_[i]);
  }
  MakeCurrent(graphics_);
  // What the host has never set may be the driver's own, of which SDL does not know.
  if (SDL_GL_GetSwapInterval() != swap_interval_) {
    SDL_GL_SetSwapInterval(swap_interval_);
  }
}

}  // namespace quindle::frontend::gui
