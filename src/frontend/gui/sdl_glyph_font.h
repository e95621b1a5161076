#pragma once

// Private. Fonts for symbols that the front end's own faces may lack.

#include <SDL_ttf.h>

#include "frontend/gui/sdl_modal_runtime.h"

namespace quindle::frontend::gui {

// True when `font` (may be null) has a glyph for the code point.
bool FontHasGlyph(TTF_Font* font, Uint32 code_point);

// Opens, in bold, the first system font that has a glyph for the code point; empty when none has.
OwnedTtfFont OpenSystemFontWithGlyph(int size, Uint32 code_point);

}  // namespace quindle::frontend::gui
