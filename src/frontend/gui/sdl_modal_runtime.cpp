#include "frontend/gui/sdl_modal_runtime.h"

#include <mutex>
#include <utility>

#include "frontend/gui/modal_hints.h"
#include "frontend/gui/sdl_host_state.h"
#include "frontend/gui/window_focus.h"
#include "frontend/gui/x11_error_trap.h"
#include "frontend/gui/x11_modal_hints.h"

namespace quindle::frontend::gui {
namespace {

std::function<void()> g_modal_heartbeat;
// Guards every access to g_modal_heartbeat; never held while the callback runs.
std::mutex g_modal_heartbeat_mutex;

OwnedSdlRenderer CreateModalRenderer(SDL_Window* window, ModalRendererMode mode) {
  const HostGraphicsSettings host_settings;
  OwnedSdlRenderer renderer;
  if (mode != ModalRendererMode::Software) {
    renderer.reset(SDL_CreateRenderer(window, -1, SDL_RENDERER_ACCELERATED));
  }
  if (renderer == nullptr) {
    renderer.reset(SDL_CreateRenderer(window, -1, SDL_RENDERER_SOFTWARE));
  }
  return renderer;
}

}  // namespace

void DestroySdlSurface(SDL_Surface* surface) noexcept {
  if (surface != nullptr) {
    SDL_FreeSurface(surface);
  }
}

void DestroySdlTexture(SDL_Texture* texture) noexcept {
  if (texture != nullptr) {
    SDL_DestroyTexture(texture);
  }
}

void DestroySdlRenderer(SDL_Renderer* renderer) noexcept {
  if (renderer != nullptr) {
    SDL_DestroyRenderer(renderer);
  }
}

void DestroySdlWindow(SDL_Window* window) noexcept {
  if (window != nullptr) {
    UnmarkWindowModal(window);
    // SDL3 asks, still in here, about the frame that the window manager is taking away.
    const X11ErrorTrap trap(window);
    SDL_DestroyWindow(window);
  }
}

void CloseSdlTtfFont(TTF_Font* font) noexcept {
  if (font != nullptr) {
    TTF_CloseFont(font);
  }
}

ModalWindowBundle& ModalWindowBundle::operator=(ModalWindowBundle&& other) noexcept {
  if (this != &other) {
    // Memberwise assignment would release the old window under its renderer.
    renderer.reset();
    window = std::move(other.window);
    renderer = std::move(other.renderer);
  }
  return *this;
}

void SetModalDialogHeartbeat(std::function<void()> heartbeat) {
  const std::lock_guard<std::mutex> lock(g_modal_heartbeat_mutex);
  g_modal_heartbeat.swap(heartbeat);
  // The parameter outlives the lock, so the previous callback is destroyed here.
  heartbeat = nullptr;
}

void PumpModalDialogHeartbeat() {
  std::function<void()> heartbeat;
  {
    const std::lock_guard<std::mutex> lock(g_modal_heartbeat_mutex);
    heartbeat = g_modal_heartbeat;
  }
  // A copy, called without the lock: the heartbeat may replace itself or open another dialog.
  CallHost(heartbeat);
}

ModalWindowBundle CreateModalWindowBundle(SDL_Window* parent, const char* title, int x, int y,
                                          int width, int height, unsigned int windowFlags,
                                          ModalRendererMode mode) {
  int px = static_cast<int>(SDL_WINDOWPOS_CENTERED);
  int py = static_cast<int>(SDL_WINDOWPOS_CENTERED);
  if (parent != nullptr) {
    SDL_GetWindowPosition(parent, &px, &py);
  }
  const X11DialogWindowType dialog_type(parent != nullptr);
  ModalWindowBundle bundle;
  // Without a parent the offsets land in the marker's display bits, which SDL reads as "centred".
  bundle.window.reset(SDL_CreateWindow(title, px + x, py + y, width, height, windowFlags));
  if (bundle.window == nullptr) {
    return bundle;
  }
  if (parent != nullptr) {
    SDL_SetWindowModalFor(bundle.window.get(), parent);
  }
  bundle.renderer = CreateModalRenderer(bundle.window.get(), mode);
  if (bundle.renderer == nullptr) {
    bundle.window.reset();
    return bundle;
  }
  if (parent != nullptr) {
    MarkWindowModal(bundle.window.get(), parent);
  }
  return bundle;
}

void RestoreModalParentFocus(SDL_Window* parent) {
  if (parent != nullptr) {
    FocusShownWindow(parent);
  }
}

}  // namespace quindle::frontend::gui
