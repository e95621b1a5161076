#pragma once

/// The ground under every dialog: owning handles, the modal window, the heartbeat, and the focus's
/// way back to the parent. Unless stated otherwise, call from the thread that owns SDL video.

#include <SDL.h>
#include <SDL_ttf.h>

#include <functional>
#include <memory>

#include "frontend/gui/export.h"

namespace quindle::frontend::gui {

/// Releases a surface with SDL_FreeSurface.
/// @param surface what to release; null does nothing
QUINDLE_SDL_UI_EXPORT void DestroySdlSurface(SDL_Surface* surface) noexcept;
/// Releases a texture with SDL_DestroyTexture.
/// @param texture what to release; null does nothing
QUINDLE_SDL_UI_EXPORT void DestroySdlTexture(SDL_Texture* texture) noexcept;
/// Releases a renderer with SDL_DestroyRenderer.
/// @param renderer what to release; null does nothing
QUINDLE_SDL_UI_EXPORT void DestroySdlRenderer(SDL_Renderer* renderer) noexcept;
/// Releases a window with SDL_DestroyWindow. On X11 an error of the display during that is passed
/// over: where SDL2's interface runs on top of SDL3, SDL may ask for the frame of a window that is
/// shown while the window manager removes it, and Xlib's own answer is the end of the program.
/// @param window what to release; null does nothing
QUINDLE_SDL_UI_EXPORT void DestroySdlWindow(SDL_Window* window) noexcept;
/// Closes a font with TTF_CloseFont.
/// @param font what to close; null does nothing
QUINDLE_SDL_UI_EXPORT void CloseSdlTtfFont(TTF_Font* font) noexcept;

/// Deleter that calls one of the release functions above.
/// @tparam Release the function to call
template <auto Release>
struct ReleaseWith {
  /// Releases a handle.
  /// @tparam Handle the type of what is released
  /// @param handle what to release; null does nothing
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
  /// Takes over another bundle's handles.
  /// @param other the bundle to take from; left empty
  ModalWindowBundle(ModalWindowBundle&& other) noexcept = default;
  /// Releases what it holds, renderer first, and takes over another bundle's handles.
  /// @param other the bundle to take from; left empty
  /// @return this bundle
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
/// The callback may throw (the exception leaves the dialog's Show function, which releases what it
/// made), may call this function, and may open another dialog. Each call is made on a copy: what a
/// `mutable` callback keeps inside itself is lost. The previous callback is destroyed before this
/// returns, while the lock is held: what it owns must not call this function or
/// PumpModalDialogHeartbeat in its destructor. Callable from any thread; throws std::system_error
/// when the lock fails.
/// @param heartbeat moved in; an empty function removes the callback
QUINDLE_SDL_UI_EXPORT void SetModalDialogHeartbeat(std::function<void()> heartbeat);

/// Calls the installed heartbeat once; does nothing when there is none. A replacement installed
/// during the call takes effect with the next one. Exceptions of the callback pass through.
QUINDLE_SDL_UI_EXPORT void PumpModalDialogHeartbeat();

/// Creates a window with its renderer, modal for `parent`.
///
/// Lifetime: the caller owns the bundle; `parent` must outlive it.
/// @param parent may be null: the window is then centred and modal for nobody
/// @param title the window's title, UTF-8; null counts as empty
/// @param x offset in pixels of the window's left edge from the parent's
/// @param y offset in pixels of the window's top edge from the parent's
/// @param width client width in pixels
/// @param height client height in pixels
/// @param windowFlags SDL_WindowFlags, passed on unchanged; pass SDL_WINDOW_HIDDEN and show the
/// window after its first frame, as the dialogs do
/// @param mode which renderer to make
/// @return the window with its renderer; an empty bundle, with nothing left open, when either could
/// not be made
QUINDLE_SDL_UI_EXPORT ModalWindowBundle CreateModalWindowBundle(SDL_Window* parent,
                                                                const char* title, int x, int y,
                                                                int width, int height,
                                                                unsigned int windowFlags,
                                                                ModalRendererMode mode);

/// Raises a dialog's parent and gives it the input focus.
/// @param parent the window to raise; null does nothing
QUINDLE_SDL_UI_EXPORT void RestoreModalParentFocus(SDL_Window* parent);

}  // namespace quindle::frontend::gui
