#pragma once

/// UI fonts and one-line text. Call from the thread that owns SDL video.

#include <SDL.h>
#include <SDL_ttf.h>

#include <string_view>

#include "frontend/gui/export.h"
#include "frontend/gui/sdl_modal_runtime.h"

namespace quindle::frontend::gui {

/// The face family of a font request. Bold requests take the SemiBold face for either kind.
enum class SdlUiFontKind {
  Ui = 0,    ///< Interface text: the SemiBold face, also when not bold.
  Body = 1,  ///< Body text: the Regular face when not bold.
};

/// Bright text: selected or active items.
inline constexpr SDL_Color kColTextHi{232, 237, 244, 255};
/// Normal labels.
inline constexpr SDL_Color kColTextMid{170, 178, 192, 255};
/// Disabled or secondary text.
inline constexpr SDL_Color kColTextDim{100, 108, 122, 255};

/// Opens a font of `size` points. Starts SDL_ttf when it is not running; the library never calls
/// TTF_Quit.
///
/// The front end's files are looked for under "data/ttf", relative to the working directory, then
/// the usual system fonts at their absolute paths. Returns an empty owner when `size` is below 1,
/// SDL_ttf cannot be started or no file opens.
/// Lifetime: the caller owns the font and must close it before TTF_Quit.
QUINDLE_SDL_UI_EXPORT OwnedTtfFont OpenSdlUiFontHandle(int size, bool bold, SdlUiFontKind kind);

/// Returns the shared font for a request, opened on the first one; null when it could not be
/// opened. A failure is remembered too: the same request is not tried again until
/// ShutdownSdlUiCachedFonts().
/// Lifetime: owned by the font cache; dangles after ShutdownSdlUiCachedFonts().
QUINDLE_SDL_UI_EXPORT TTF_Font* GetCachedSdlUiFont(int size, bool bold, SdlUiFontKind kind);

/// Closes every cached font and empties the cache. Call it before TTF_Quit, while no dialog is
/// open.
QUINDLE_SDL_UI_EXPORT void ShutdownSdlUiCachedFonts();

/// Draws one line of UTF-8 text with its top-left corner at (`x`, `y`), in window pixels.
///
/// Does nothing when `renderer` or `font` is null or `text` is empty; a line that cannot be
/// rendered is skipped. `outRect` may be null; it receives the rectangle drawn to, and is written
/// only when there was text to draw. A NUL byte ends the text.
QUINDLE_SDL_UI_EXPORT void DrawSdlUiText(SDL_Renderer* renderer, TTF_Font* font,
                                         std::string_view text, int x, int y, SDL_Color color,
                                         SDL_Rect* outRect);

}  // namespace quindle::frontend::gui
