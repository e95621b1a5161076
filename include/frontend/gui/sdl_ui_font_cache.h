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

/// Opens a font. Starts SDL_ttf when it is not running; the library never calls TTF_Quit.
///
/// The front end's files are looked for under "data/ttf", relative to the working directory, then
/// the usual system fonts at their absolute paths.
/// Lifetime: the caller owns the font and must close it before TTF_Quit.
/// @param size in points
/// @param bold whether to draw bold, on top of the SemiBold face
/// @param kind the face family
/// @return the font; empty when `size` is below 1, SDL_ttf cannot be started or no file opens
QUINDLE_SDL_UI_EXPORT OwnedTtfFont OpenSdlUiFontHandle(int size, bool bold, SdlUiFontKind kind);

/// Returns the shared font for a request, opened on the first one. A failure is remembered too: the
/// same request is not tried again until ShutdownSdlUiCachedFonts().
/// Lifetime: owned by the font cache; dangles after ShutdownSdlUiCachedFonts().
/// @param size in points
/// @param bold as for OpenSdlUiFontHandle
/// @param kind the face family
/// @return the font; null when it could not be opened
QUINDLE_SDL_UI_EXPORT TTF_Font* GetCachedSdlUiFont(int size, bool bold, SdlUiFontKind kind);

/// Closes every cached font and empties the cache. Call it before TTF_Quit, while no dialog is
/// open.
QUINDLE_SDL_UI_EXPORT void ShutdownSdlUiCachedFonts();

/// Draws one line of text. A line that cannot be rendered is skipped.
/// @param renderer null does nothing
/// @param font null does nothing
/// @param text UTF-8; empty does nothing; a NUL byte ends the text
/// @param x left edge of the text, in window pixels
/// @param y top edge of the text, in window pixels
/// @param color the text's colour
/// @param outRect receives the rectangle drawn to, and only when there was text to draw; may be
/// null
QUINDLE_SDL_UI_EXPORT void DrawSdlUiText(SDL_Renderer* renderer, TTF_Font* font,
                                         std::string_view text, int x, int y, SDL_Color color,
                                         SDL_Rect* outRect);

}  // namespace quindle::frontend::gui
