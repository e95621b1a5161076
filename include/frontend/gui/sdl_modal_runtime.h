#pragma once

/// The ground under every dialog: owning handles, the modal window, the heartbeat, and the focus's
/// way back to the parent. Unless stated otherwise, call from the thread that owns SDL video.

#include <SDL.h>
#include <SDL_ttf.h>

#include <functional>
#include <memory>

#include "frontend/gui/export.h"

namespace quindle::frontend::gui {

/// Releases a surface with SDL_FreeSurface; does nothing for null.
QUINDLE_SDL_UI_EXPORT void DestroySdlSurface(SDL_Surface* surface) noexcept;
/// Releases a texture with SDL_DestroyTexture; does nothing for null.
QUINDLE_SDL_UI_EXPORT void DestroySdlTexture(SDL_Texture* texture) noexcept;
/// Releases a renderer with SDL_DestroyRenderer; does nothing for null.
QUINDLE_SDL_UI_EXPORT void DestroySdlRenderer(SDL_Renderer* renderer) noexcept;
/// Releases a window with SDL_DestroyWindow; does nothing for null.
QUINDLE_SDL_UI_EXPORT void DestroySdlWindow(SDL_Window* window) noexcept;
/// Closes a font with TTF_CloseFont; does nothing for null.
QUINDLE_SDL_UI_EXPORT void CloseSdlTtfFont(TTF_Font* font) noexcept;

/// Deleter that calls one of the release functions above.
template <auto Release>
struct ReleaseWith {
  /// Releases `handle`, which may be null.
  template <typename Handle>
  void operator()(Handle* handle) const noexcept {
    Release(handle);
  }
};

/// Sole owner of a surface; empty when null.
using OwnedSdlSurface = std::unique_ptr<SDL_Surface, ReleaseWith<&DestroySdlSurface>>;
/// Sole owner of a texture; empty when null.
using OwnedSdlTexture = std::unique_ptr<SDL_Texture, ReleaseWith<&DestroySdlTexture>>;
/// Sole owner of a renderer; empty when null.
using OwnedSdlRenderer = std::unique_ptr<SDL_Renderer, ReleaseWith<&DestroySdlRenderer>>;
/// Sole owner of a window; empty when null.
using OwnedSdlWindow = std::unique_ptr<SDL_Window, ReleaseWith<&DestroySdlWindow>>;
/// Sole owner of a font; empty when null.
using OwnedTtfFont = std::unique_ptr<TTF_Font, ReleaseWith<&CloseSdlTtfFont>>;

/// A dialog's window with its renderer. Valid when both are non-null; a failed creation leaves both
/// null. Move-only; the renderer is always released before the window.
struct ModalWindowBundle {
  OwnedSdlWindow window;      ///< The dialog's window; null when it could not be made.
  OwnedSdlRenderer renderer;  ///< The renderer of `window`; null when it could not be made.

  /// An empty bundle.
  ModalWindowBundle() noexcept = default;
  /// Takes over the handles of `other`, which is left empty.
  ModalWindowBundle(ModalWindowBundle&& other) noexcept = default;
  /// Releases what it holds, renderer first, and takes over the handles of `other`.
  QUINDLE_SDL_UI_EXPORT ModalWindowBundle& operator=(ModalWindowBundle&& other) noexcept;
  ModalWindowBundle(const ModalWindowBundle&) = delete;
  ModalWindowBundle& operator=(const ModalWindowBundle&) = delete;
  /// Releases the renderer, then the window.
  ~ModalWindowBundle() = default;
};

/// Which renderer a modal window gets. A value that is none of these counts as Accelerated.
enum class ModalRendererMode {
  Accelerated = 0,  ///< Hardware renderer, or the software one when there is none.
  Software = 1,     ///< Software renderer only.
};

/// Installs the callback that every open dialog calls once per frame, so that the host can go on
/// with its periodic work while a dialog blocks its thread.
///
/// `heartbeat` is moved in; an empty function removes the callback. It may throw (the exception
/// leaves the dialog's Show function, which releases what it made), may call this function, and may
/// open another dialog. The previous callback is destroyed before this returns. Callable from any
/// thread; throws std::system_error when the lock fails.
QUINDLE_SDL_UI_EXPORT void SetModalDialogHeartbeat(std::function<void()> heartbeat);

/// Calls the installed heartbeat once; does nothing when there is none. A replacement installed
/// during the call takes effect with the next one. Exceptions of the callback pass through.
QUINDLE_SDL_UI_EXPORT void PumpModalDialogHeartbeat();

/// Creates a window with its renderer, modal for `parent`.
///
/// `parent` may be null: the window is then centred and modal for nobody. With a parent, `x` and
/// `y` are the offset in pixels of the window's top-left corner from the parent's. `title` is
/// UTF-8; `width` and `height` are the client size in pixels; `windowFlags` are SDL_WindowFlags,
/// passed on unchanged (dialogs pass SDL_WINDOW_HIDDEN and show the window after the first frame).
/// Returns an empty bundle when the window or its renderer could not be made; nothing is left open
/// then. Lifetime: the caller owns the bundle; `parent` must outlive it.
QUINDLE_SDL_UI_EXPORT ModalWindowBundle CreateModalWindowBundle(SDL_Window* parent,
                                                                const char* title, int x, int y,
                                                                int width, int height,
                                                                unsigned int windowFlags,
                                                                ModalRendererMode mode);

/// Raises `parent` and gives it the input focus; does nothing for null.
QUINDLE_SDL_UI_EXPORT void RestoreModalParentFocus(SDL_Window* parent);

}  // namespace quindle::frontend::gui
